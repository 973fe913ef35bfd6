#include "corvane/bridge/HGInsertQueue.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/TimeZone.h"

#include "tests/support/BridgeSamples.h"
#include "tests/support/ChildProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <functional>

namespace corvane {
namespace {

using platform::Instant;
using std::chrono::microseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Names = std::vector<std::string>;

// 2024-03-05 10:00:00 UTC
constexpr Instant kTen =
    std::chrono::sys_days(std::chrono::year{2024} / 3 / 5) + std::chrono::hours(10);

Names titlesOf(const HGInsertQueue::TaskProxies& tasks) {
    Names titles(tasks.size());
    std::ranges::transform(tasks, titles.begin(), [](auto& task) { return *task->title(); });
    return titles;
}

/// A queue in a container of its own, whose directory the main application has made.
class InsertQueue : public testing::Test {
  protected:
    InsertQueue() { std::filesystem::create_directory(path()); }

    std::string path() const { return container_.directory / "insert-queue"; }

    static std::string batchName(std::string_view ms) {
        return "task-proxies-2024-03-05-10h00m00s" + std::string(ms) + ".archive";
    }

    bool addAt(int ms, const Names& titles) {
        clock_.set(kTen + std::chrono::milliseconds(ms));
        HGInsertQueue::TaskProxies tasks;
        for (const auto& title : titles)
            tasks.push_back(tests::titledTask(title));
        return queue_.addTaskProxies(tasks);
    }

    Names poll() const { return titlesOf(queue_.pollAllTaskProxies()); }

    Names entries() const {
        const auto listed = platform::listDirectory(path()).value();
        Names names(listed.size());
        std::ranges::transform(listed, names.begin(), &platform::DirectoryEntry::name);
        return names;
    }

    /// Until a file made now counts as younger than those made before.
    static void awaitNextFileTime() {
        const tests::TemporaryDirectory probes;
        const auto madeNow = [&] {
            std::filesystem::remove(probes / "probe");
            probes.write("probe", "");
            return platform::listDirectory(probes.path())->front().creationTime;
        };
        for (const auto first = madeNow(); madeNow() == first;) {
        }
    }

    tests::ScopedContainer container_;
    platform::FixedClock clock_{kTen};
    platform::ScopedClock clockScope_{clock_};
    platform::RecordingConsole console_;
    platform::ScopedConsole consoleScope_{console_};
    HGInsertQueue queue_;
};

TEST_F(InsertQueue, BatchesAreNamedForTheMomentInUTC) {
    platform::ScopedTimeZone zone("Asia/Kolkata");
    platform::ScopedLocale locale(platform::Locale("ar_EG"));
    const std::pair<Instant, std::string> cases[] = {
        {kTen + microseconds(100'000), "2024-03-05-10h00m00s100"},
        {kTen + microseconds(14'829'123'999), "2024-03-05-14h07m09s123"},
        {kTen - std::chrono::hours(10) - microseconds(1), "2024-03-04-23h59m59s999"},
        {Instant(microseconds(-1)), "1969-12-31-23h59m59s999"}};
    for (const auto& [instant, time] : cases) {
        clock_.set(instant);
        EXPECT_EQ(queue_.taskProxiesFilePath(), path() + "/task-proxies-" + time + ".archive");
    }
}

TEST_F(InsertQueue, OnlyPollingMakesTheDirectory) {
    std::filesystem::remove(path());
    EXPECT_FALSE(addAt(0, {"lost"}));
    queue_.clear();
    EXPECT_THAT(container_.directory.content(), IsEmpty());
    EXPECT_THAT(poll(), IsEmpty());
    EXPECT_EQ(queue_.allTaskProxiesFileURLs(), std::nullopt) << "absent and not empty";
    EXPECT_TRUE(addAt(0, {"kept"}));
    EXPECT_THAT(poll(), ElementsAre("kept"));
    EXPECT_THAT(console_.lines(), IsEmpty());

    std::filesystem::remove(path());
    container_.directory.write("insert-queue", "a file in the way");
    EXPECT_THAT(poll(), IsEmpty());
    EXPECT_FALSE(addAt(0, {"lost"}));
    EXPECT_THAT(console_.lines(),
                ElementsAre("ERROR: Could not auto-create 'insert-queue' directory"));
}

TEST_F(InsertQueue, GivesBatchesInTheOrderOfTheirCreation) {
    ASSERT_TRUE(addAt(300, {"a", "b", "c"}));
    awaitNextFileTime();
    ASSERT_TRUE(addAt(100, {"d"}));
    awaitNextFileTime();
    ASSERT_TRUE(addAt(200, {}));
    ASSERT_TRUE(addAt(201, {"e"}));
    EXPECT_THAT(poll(), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_THAT(entries(), IsEmpty());
}

// Whatever may stand in the directory besides whole batches. Two of these lead to a task.
TEST_F(InsertQueue, StraysAreRemovedAndGiveTheTasksTheyHold) {
    const std::string outside = container_.directory / "outside", queue = path();
    const auto archive = [](const std::string& file, const EXValue& root) {
        EXPECT_FALSE(platform::KeyedArchiver::archiveToFile(root, file));
    };
    using platform::ValueList;
    const std::function<void()> ways[] = {
        [&] { EXPECT_THAT(poll(), testing::UnorderedElementsAre("mixed", "linked")); },
        [&] { queue_.pollAllTaskProxies([](const auto& batches) { return batches.size() == 6; }); },
        [&] { queue_.clear(); }};
    for (const auto& way : ways) {
        std::ofstream(queue + "/.hidden") << "not an archive";
        archive(queue + "/mixed", ValueList{{1, tests::titledTask("mixed"), tests::uri("x")}});
        archive(queue + "/no list", tests::titledTask("x"));
        std::filesystem::create_directories(queue + "/folder/inner");
        EXPECT_EQ(::mkfifo((queue + "/pipe").c_str(), 0600), 0);
        archive(outside, ValueList{{tests::titledTask("linked")}});
        std::filesystem::create_symlink(outside, queue + "/link");
        way();
        EXPECT_THAT(entries(), IsEmpty());
        EXPECT_TRUE(std::filesystem::exists(outside)) << "what a link leads to stays";
    }
}

TEST_F(InsertQueue, WhatCannotBeRemovedIsReportedAndComesAgain) {
    ASSERT_TRUE(addAt(100, {"a"}));
    ::chmod(container_.directory.path().c_str(), 0755);
    ::chmod(path().c_str(), 0555);
    EXPECT_EQ(0, tests::runInChild([&] {
                  if (::getuid() == 0 && ::setuid(54321) != 0) return 2;  // root may remove all
                  for (int round = 0; round < 2; ++round)
                      EXPECT_THAT(poll(), ElementsAre("a"));
                  queue_.clear();
                  EXPECT_TRUE(queue_.pollAllTaskProxies([](const auto&) { return true; }));
                  EXPECT_EQ(console_.lines(),
                            Names(4, "WARNING: Could not remove insert-queue file named '" +
                                         batchName("100") + "'"));
                  return HasFailure() ? 1 : 0;
              }));
    ::chmod(path().c_str(), 0755);
    EXPECT_THAT(entries(), SizeIs(1));
}

TEST_F(InsertQueue, ARefusedBatchStaysInTheQueue) {
    EXPECT_TRUE(queue_.pollAllTaskProxies([](const auto&) { return false; })) << "nothing to store";
    ASSERT_TRUE(addAt(100, {"a", "b"}));
    const auto before = container_.directory.content();
    EXPECT_FALSE(queue_.pollAllTaskProxies([&](const std::vector<HGInsertQueue::Batch>& batches) {
        EXPECT_EQ(batches.at(0).fileName, batchName("100"));
        EXPECT_THAT(titlesOf(batches[0].taskProxies), ElementsAre("a", "b"));
        return false;
    }));
    EXPECT_TRUE(queue_.pollAllTaskProxies([&](const auto&) {
        EXPECT_EQ(container_.directory.content(), before) << "nothing is removed before it is safe";
        return addAt(300, {"late"});
    }));
    EXPECT_THAT(entries(), ElementsAre(batchName("300"))) << "what came meanwhile stays";
}

// Batches of one millisecond share a name, and the later replaces the earlier.
TEST_F(InsertQueue, NothingButBatchesEverAppearsInTheDirectory) {
    const int watch = ::inotify_init1(IN_NONBLOCK);
    ASSERT_GE(::inotify_add_watch(watch, path().c_str(), IN_CREATE | IN_MOVE), 0);
    const Names names{batchName("100"), batchName("200"), batchName("200"), batchName("300")};
    ASSERT_TRUE(addAt(100, {"a"}) && addAt(200, {std::string(300'000, 'x')}));
    ASSERT_TRUE(addAt(200, {"b"}) && addAt(300, {"c"}));
    alignas(inotify_event) char buffer[4096];
    const auto size = ::read(watch, buffer, sizeof buffer);
    ::close(watch);
    Names appeared;
    for (const char* at = buffer; at < buffer + size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(at);
        appeared.emplace_back(event->name);
        at += sizeof(inotify_event) + event->len;
    }
    EXPECT_EQ(appeared, names);
    EXPECT_THAT(container_.directory.content(), SizeIs(4)) << "the directory and three batches";
    EXPECT_THAT(poll(), testing::UnorderedElementsAre("a", "b", "c"));
}

// Each process has milliseconds of its own, which no real clock can promise.
TEST_F(InsertQueue, NothingIsLostOrDoubledWhileManyAddAndOnePolls) {
    constexpr int kProcesses = 3, kBatches = 40;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process)
        children.push_back(tests::startChild([&] {
            bool done = true;
            for (int ms = process; ms < kProcesses * kBatches; ms += kProcesses)
                done = addAt(ms, {std::to_string(ms), std::to_string(ms) + "+"}) && done;
            return done ? 0 : 1;
        }));
    Names polled, expected;
    const auto pollMore = [&] { std::ranges::copy(poll(), std::back_inserter(polled)); };
    for (pid_t child : children) {
        siginfo_t ended{};
        constexpr int kLook = WEXITED | WNOHANG | WNOWAIT;
        while (::waitid(P_PID, static_cast<id_t>(child), &ended, kLook) == 0 && ended.si_pid == 0)
            pollMore();
        EXPECT_EQ(tests::waitForChild(child), 0);
    }
    pollMore();
    for (int ms = 0; ms < kProcesses * kBatches; ++ms)
        for (const char* second : {"", "+"})
            expected.push_back(std::to_string(ms) + second);
    EXPECT_THAT(polled, testing::UnorderedElementsAreArray(expected));
    EXPECT_THAT(entries(), IsEmpty());
}

}  // namespace
}  // namespace corvane
