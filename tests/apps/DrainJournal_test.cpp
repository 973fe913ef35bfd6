#include "apps/cli/DrainJournal.h"

#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/GroupContainer.h"

#include "apps/cli/Drain.h"
#include "apps/cli/Failure.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <signal.h>

namespace corvane::cli {
namespace {

using Step = DrainJournal::Step;
using testing::ElementsAre;
namespace fs = std::filesystem;

constexpr const char* kList = "old\r\nlast";
constexpr const char* kFirst = "task-proxies-2024-03-05-14h07m09s000.archive";

/// A list of two lines and a queue of two batches with three tasks.
class DrainedList : public testing::Test {
  protected:
    DrainedList() {
        fs::create_directories(queue());
        directory_.write("list", kList);
        ::chmod(list().c_str(), 0640);
        enqueue({"one", "two"});
        enqueue({"three"});
    }

    std::string list() const { return directory_ / "list"; }
    std::string container() const { return directory_ / "container"; }
    std::string queue() const { return container() + "/insert-queue"; }
    std::string content() const { return directory_.content().at("list"); }

    void enqueue(const std::vector<std::string>& titles) {
        HGInsertQueue::TaskProxies tasks;
        for (const std::string& title : titles) {
            tasks.push_back(std::make_shared<HGTaskProxy>());
            tasks.back()->setTitle(title);
        }
        ASSERT_TRUE(HGInsertQueue().addTaskProxies(tasks));
        clock_.set(clock_.now() + std::chrono::milliseconds(1));
    }

    /// Kills a drain after the step; `before` runs in the process that is about to die.
    void killDrainAfter(
        Step step, const std::function<void()>& before = [] {}) {
        ASSERT_EQ(-SIGKILL, tests::runInChild([&] {
            drainQueue(list(), [&](Step done) {
                if (done != step) return;
                before();
                ::raise(SIGKILL);
            });
            return 0;
        }));
    }

    void expectNothingLeftBeside(const std::string& expectedList) {
        EXPECT_EQ(content(), expectedList);
        EXPECT_TRUE(fs::is_empty(queue()));
        EXPECT_EQ(std::distance(fs::directory_iterator(directory_.path()), {}), 2);
        struct stat status {};
        ::stat(list().c_str(), &status);
        EXPECT_EQ(status.st_mode & 0777, 0640u);
    }

    static constexpr Step kSteps[] = {Step::NextWritten, Step::Committed, Step::Placed,
                                      Step::QueueCleared, Step::Closed};

    tests::TemporaryDirectory directory_;
    platform::FixedClock clock_{
        platform::Instant(std::chrono::sys_days(std::chrono::year(2024) / 3 / 5) +
                          std::chrono::seconds(14 * 3600 + 7 * 60 + 9))};
    platform::ScopedClock scopedClock_{clock_};
    platform::ScopedGroupContainer scopedContainer_{container()};
    platform::RecordingConsole console_;
    platform::ScopedConsole scopedConsole_{console_};
};

TEST_F(DrainedList, GetsEveryTaskOnce) {
    EXPECT_THAT(drainQueue(list()).added, ElementsAre("one", "two", "three"));
    EXPECT_TRUE(drainQueue(list()).added.empty());
    expectNothingLeftBeside("old\r\nlast\r\none\r\ntwo\r\nthree\r\n");
}

TEST_F(DrainedList, GetsEveryTaskOnceThoughDrainsAreKilledAtAnyStep) {
    for (Step step : kSteps) {
        directory_.write("list", kList);
        fs::remove_all(queue());
        fs::create_directory(queue());
        enqueue({"one", "two"});
        killDrainAfter(step);
        // Again at every step of the recovery or, where nothing was committed, of the second try.
        for (Step again : kSteps)
            tests::runInChild([&] {
                drainQueue(list(), [&](Step done) {
                    if (done == again) ::raise(SIGKILL);
                });
                return 0;
            });
        drainQueue(list());
        expectNothingLeftBeside("old\r\nlast\r\none\r\ntwo\r\n");
    }
}

TEST_F(DrainedList, GetsEveryTaskOnceThoughTheQueueWasHalfDeleted) {
    killDrainAfter(Step::Committed, [&] { fs::remove(queue() + "/" + kFirst); });
    enqueue({"four"});
    const Drained drained = drainQueue(list());
    EXPECT_THAT(drained.completed, ElementsAre("one", "two", "three"));
    EXPECT_THAT(drained.added, ElementsAre("four"));
    expectNothingLeftBeside("old\r\nlast\r\none\r\ntwo\r\nthree\r\nfour\r\n");
}

TEST_F(DrainedList, ForgetsWhatWasNotCommitted) {
    killDrainAfter(Step::NextWritten);
    HGInsertQueue().clear();
    drainQueue(list());
    expectNothingLeftBeside(kList);
}

TEST_F(DrainedList, KeepsWhatTheUserWroteMeanwhile) {
    const struct {
        Step step;
        const char *list, *result;
    } cases[] = {
        {Step::NextWritten, "mine\n", "mine\none\ntwo\nthree\n"},
        {Step::Committed, "mine\n", "mine\none\ntwo\nthree\n"},
        {Step::Placed, "mine\none\n", "mine\none\n"},
        {Step::QueueCleared, "", ""},
    };
    for (const auto& c : cases) {
        killDrainAfter(c.step);
        directory_.write("list", c.list);
        drainQueue(list());
        expectNothingLeftBeside(c.result);
        enqueue({"one", "two"});
        enqueue({"three"});
    }
    // Also between the steps of a drain that is not killed.
    directory_.write("list", kList);
    drainQueue(list(), [&](Step step) {
        if (step == Step::Committed) directory_.write("list", "mine");
    });
    expectNothingLeftBeside("mine\none\ntwo\nthree\n");
}

TEST_F(DrainedList, DoesNotMistakeANewBatchForOneItHas) {
    killDrainAfter(Step::Placed);
    fs::remove_all(queue());
    fs::create_directory(queue());
    const auto now = clock_.now();
    clock_.set(now - std::chrono::milliseconds(2));  // the name of the first batch once more
    enqueue({"four"});
    ASSERT_TRUE(fs::exists(queue() + "/" + kFirst));
    EXPECT_THAT(drainQueue(list()).added, ElementsAre("four"));
}

TEST_F(DrainedList, RecognisesItsBatchesInAContainerThatWasMoved) {
    killDrainAfter(Step::Committed);
    enqueue({"four"});
    fs::rename(container(), directory_ / "moved");
    {
        platform::ScopedGroupContainer moved(directory_ / "moved");
        EXPECT_THAT(drainQueue(list()).added, ElementsAre("four"));
    }
    fs::rename(directory_ / "moved", container());
    expectNothingLeftBeside("old\r\nlast\r\none\r\ntwo\r\nthree\r\nfour\r\n");
}

TEST_F(DrainedList, StaysAsItWasWhereAStepFails) {
    fs::create_directory(list() + ".drain-journal");
    fs::create_directory(list() + ".drain-journal/x");
    EXPECT_THROW(drainQueue(list()), Failure);
    fs::remove_all(list() + ".drain-journal");
    directory_.write("list.drain-journal", "{}");
    EXPECT_THROW(drainQueue(list()), Failure);
    fs::remove(list() + ".drain-journal");
    EXPECT_EQ(content(), kList);
    EXPECT_THAT(drainQueue(list()).added, ElementsAre("one", "two", "three"));
    expectNothingLeftBeside("old\r\nlast\r\none\r\ntwo\r\nthree\r\n");
}

TEST_F(DrainedList, DropsFilesOfTheQueueThatHoldNoTasks) {
    directory_.write("container/insert-queue/stray", "not an archive");
    EXPECT_THAT(drainQueue(list()).added, ElementsAre("one", "two", "three"));
    EXPECT_THAT(console_.lines(),
                ElementsAre("corvane: dropped 'stray' from the queue: there is no task in it"));
    directory_.write("container/insert-queue/stray", "");
    EXPECT_TRUE(drainQueue(list()).added.empty());
    expectNothingLeftBeside("old\r\nlast\r\none\r\ntwo\r\nthree\r\n");
}

}  // namespace
}  // namespace corvane::cli
