#include "apps/cli/DrainJournal.h"

#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/GroupContainer.h"

#include "apps/cli/Drain.h"
#include "apps/document/BackupFile.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <signal.h>

namespace corvane::cli {
namespace {

using Step = DrainJournal::Step;
using testing::ElementsAre;
namespace fs = std::filesystem;

constexpr const char* kList = "old\r\nlast";
constexpr const char* kDrained = "old\r\nlast\r\none\r\ntwo\r\nthree\r\n";
constexpr const char* kFirstBatch =
    "container/insert-queue/task-proxies-2024-03-05-14h07m09s000.archive";
constexpr Step kSteps[] = {Step::NextWritten, Step::Committed, Step::Placed, Step::QueueCleared,
                           Step::Closed};

/// A list of two lines and a queue of two batches with three tasks.
class DrainedList : public testing::Test {
  protected:
    DrainedList() {
        fs::create_directories(queue());
        reset();
        fs::permissions(list(), fs::perms(0640));
    }

    void reset() {
        directory_.write("list", kList);
        for (const auto& batch : fs::directory_iterator(queue()))
            fs::remove(batch);
        clock_.set(kStart);
        enqueue({"one", "two"});
        enqueue({"three"});
    }

    std::string list() const { return directory_ / name_; }
    std::string container() const { return directory_ / "container"; }
    std::string queue() const { return directory_ / "container/insert-queue"; }

    void enqueue(const std::vector<std::string>& titles) {
        HGInsertQueue::TaskProxies tasks;
        for (const std::string& title : titles) {
            tasks.push_back(std::make_shared<HGTaskProxy>());
            tasks.back()->setTitle(title);
        }
        ASSERT_TRUE(HGInsertQueue().addTaskProxies(tasks));
        clock_.set(clock_.now() + std::chrono::milliseconds(1));
    }

    /// Kills a drain after the step, or lets it end where there is no such step; `before` runs in
    /// the process that is about to die.
    int killDrainAfter(Step step, const std::function<void()>& before = nullptr) {
        return tests::runInChild([&] {
            drainQueue(list(), [&](Step done) {
                if (done != step) return;
                if (before) before();
                ::raise(SIGKILL);
            });
            return 0;
        });
    }

    void expectNothingLeftBeside(const std::string& expectedList) {
        EXPECT_EQ(directory_.content().at("list"), expectedList);
        EXPECT_TRUE(fs::is_empty(queue()));
        EXPECT_EQ(std::distance(fs::directory_iterator(directory_.path()), {}), 2);
        EXPECT_EQ(fs::status(list()).permissions(), fs::perms(0640));
    }

    static constexpr platform::Instant kStart =
        std::chrono::sys_days(std::chrono::year(2024) / 3 / 5) +
        std::chrono::seconds(14 * 3600 + 7 * 60 + 9);
    const char* name_ = "list";
    tests::TemporaryDirectory directory_;
    platform::FixedClock clock_{kStart};
    platform::ScopedClock scopedClock_{clock_};
    platform::ScopedGroupContainer scopedContainer_{container()};
};

TEST_F(DrainedList, GetsEveryTaskOnceThoughDrainsAreKilledAtAnyStep) {
    for (Step step : kSteps) {
        reset();
        ASSERT_EQ(killDrainAfter(step), -SIGKILL);
        // Again at every step of the recovery or, where nothing was committed, of the second try.
        for (Step again : kSteps)
            killDrainAfter(again);
        drainQueue(list());
        expectNothingLeftBeside(kDrained);
    }
}

TEST_F(DrainedList, GetsEveryTaskOnceThoughItIsADocument) {
    name_ = "list.cvbx";
    for (Step step : kSteps) {
        reset();
        fs::remove(list());
        ASSERT_EQ(killDrainAfter(step), -SIGKILL);
        drainQueue(list());
        const auto document = backup::loadBackupDocument(list(), nullptr);
        std::string titles;
        for (const auto& task : document.value().tasks)
            titles += *task.titleRaw + ",";
        EXPECT_EQ(titles, "one,two,three,");
    }
}

TEST_F(DrainedList, GetsEveryTaskOnceThoughTheQueueWasHalfDeletedAndTheContainerMoved) {
    killDrainAfter(Step::Committed, [&] { fs::remove(directory_ / kFirstBatch); });
    enqueue({"four"});
    fs::rename(container(), directory_ / "moved");
    platform::ScopedGroupContainer moved(directory_ / "moved");
    const Drained drained = drainQueue(list());
    EXPECT_THAT(drained.completed, ElementsAre("one", "two", "three"));
    EXPECT_THAT(drained.added, ElementsAre("four"));
    fs::rename(directory_ / "moved", container());
    expectNothingLeftBeside(std::string(kDrained) + "four\r\n");
}

TEST_F(DrainedList, KeepsWhatTheUserWroteMeanwhile) {
    // clang-format off
    const struct { Step step; const char *list, *result; } cases[] = {
        {Step::NextWritten, "mine\n", "mine\none\ntwo\nthree\n"},
        {Step::Committed, "mine\n", "mine\none\ntwo\nthree\n"},
        {Step::Placed, "mine\none\n", "mine\none\n"},
        {Step::QueueCleared, "", ""},
    };
    // clang-format on
    for (const auto& c : cases) {
        reset();
        killDrainAfter(c.step, [&] { directory_.write("list", c.list); });
        drainQueue(list());
        expectNothingLeftBeside(c.result);
    }
    // Also between the steps of a drain that is not killed.
    reset();
    drainQueue(list(), [&](Step step) {
        if (step == Step::Committed) directory_.write("list", "mine");
    });
    expectNothingLeftBeside("mine\none\ntwo\nthree\n");
}

TEST_F(DrainedList, ForgetsWhatWasNotCommittedAndDoesNotMistakeANewBatchForOneItHas) {
    killDrainAfter(Step::NextWritten);
    HGInsertQueue().clear();
    drainQueue(list());
    expectNothingLeftBeside(kList);

    reset();
    killDrainAfter(Step::Placed);
    HGInsertQueue().clear();
    clock_.set(kStart);  // the name of the first batch once more
    enqueue({"four"});
    ASSERT_TRUE(fs::exists(directory_ / kFirstBatch));
    EXPECT_THAT(drainQueue(list()).added, ElementsAre("four"));
}

}  // namespace
}  // namespace corvane::cli
