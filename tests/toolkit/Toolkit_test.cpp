#include "corvane/platform/MainBundle.h"
#include "corvane/platform/ManualRunLoop.h"
#include "corvane/platform/NotificationCenter.h"
#include "corvane/toolkit/EXDeferredScheduler.h"
#include "corvane/toolkit/EXLRUCache.h"
#include "corvane/toolkit/EXProcessManager.h"
#include "corvane/toolkit/EXRandomGenerator.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

using namespace corvane;
using namespace std::literals;

TEST(EXDeferredScheduler, FollowsItsScripts) {
    struct Receiver {
        void receive(const EXValue& by) { sum += by.integerValue(); }
        std::int64_t sum = 0;
    };
    for (auto [script, states] :
         {std::pair{"s.+", "0 0! 1 "},  // the executions after each step, "!" while one is pending
          {"ss.+.", "0 0 0! 2 2 "},
          {"i..", "0 0! 1 "},
          {"s.c.+", "0 0! 0! 0 0 "},
          {"ic..", "0 0 0 0 "},
          {"cs.+", "0 0 0! 1 "},
          {"s.p+r+", "0 0! 0! 0! 1 1 "},
          {"ss.p+r", "0 0 0! 0! 0! 1 "},
          {"s.r+", "0 0! 0! 1 "},
          {"s.pr+", "0 0! 0! 1 2 "},
          {"ts.+", "0 0 0 0 "},
          {"s.t+", "0 0! 0! 0 "}}) {
        platform::ManualRunLoop loop;
        const platform::ScopedMainRunLoop scope(loop);
        const auto receiver = std::make_shared<Receiver>();
        EXDeferredScheduler<Receiver> scheduler;
        scheduler.setTarget(receiver);
        scheduler.setSelector(&Receiver::receive);
        scheduler.setDelay(1);
        std::string seen;
        for (const char* step = script; *step; ++step, scheduler.setArgument(1)) {
            switch (*step) {
                case 's':
                    scheduler.scheduleDeferredAction();
                    break;
                case 'i':
                    scheduler.scheduleImmediateAction();
                    break;
                case 'c':
                    scheduler.cancelDeferredAction();
                    break;
                case 't':
                    scheduler.setTarget(nullptr);
                    break;
                case 'p':
                    scheduler.pauseExecution();
                    break;
                case 'r':
                    scheduler.resumeExecution();
                    break;
                case '.':
                    loop.runTurn();
                    break;
                case '+':
                    loop.advance(1);
            }
            seen += std::to_string(receiver->sum) + (scheduler.actionPending() ? "! " : " ");
        }
        EXPECT_EQ(seen, states) << script;
    }
}

TEST(EXProcessManager, NotifiesOnceTheLastActivityHasEnded) {
    struct Activities
        : platform::ProcessActivities {  // logs what begins (its reason) and ends (">")
        struct Token : platform::ProcessActivity {
            Token(std::string& l) : log(l) {}
            void end() override { log += ">"; }
            std::string& log;
        };
        EXProcessManager::Activity beginActivity(platform::ActivityOptions options,
                                                 const std::string& reason) override {
            log += options == 49407 ? reason : "?";
            return std::make_shared<Token>(log);
        }
        std::string log;
    } activities;
    platform::NotificationCenter center;
    const platform::ScopedNotificationCenter centerScope(center);
    platform::StandardRunLoop loop;
    const platform::ScopedMainRunLoop loopScope(loop);
    auto& manager = EXProcessManager::defaultManager();
    const platform::ScopedProcessActivities activitiesScope(activities);
    const auto observation =
        center.addObserver("EXProcessManagerAllBackgroundActivitiesCompletedNotification", &manager,
                           [&](auto&) { activities.log += "*"; });
    auto a = manager.beginBackgroundActivityWithReason("a"),
         b = manager.beginBackgroundActivityWithReason("b");
    manager.endBackgroundActivity(a);
    manager.endBackgroundActivity(b);
    a = manager.beginBackgroundActivityWithReason("a");
    EXPECT_TRUE(manager.backgroundActivitiesPending());
    a = nullptr;
    EXPECT_FALSE(manager.backgroundActivitiesPending());
    manager.performBackgroundActivityWithReason("b", [&] { activities.log += "work"; });
    EXPECT_THROW(manager.performBackgroundActivityWithReason("c", [] { throw 1; }), int);
    EXPECT_TRUE(manager.backgroundActivitiesPending());
    EXPECT_EQ(std::exchange(activities.log, ""), "ab>>*abworkc");
    loop.runTurn();
    EXPECT_EQ(std::exchange(activities.log, ""), "*");
    std::promise<std::thread::id> met;  // comes only from another queue
    manager.performExpiringBackgroundActivityWithReason("a", [&](bool expired) {
        EXPECT_FALSE(expired || met.get_future().get() == std::this_thread::get_id());
    });
    manager.performExpiringBackgroundActivityWithReason(
        "b", [&](bool) { met.set_value(std::this_thread::get_id()); });
    loop.runUntil([&] { return !manager.backgroundActivitiesPending(); });
    EXPECT_EQ(activities.log, "ab>>*");
    const corvane::tests::TemporaryDirectory bundle;
    const platform::ScopedMainBundle bundleScope(bundle.path());
    EXPECT_TRUE(manager.runningDevelopmentBuild()) << "without a profile";
    std::filesystem::create_directory(bundle / "Contents");
    for (auto [array, answer] : {std::pair{"\r\n\t<array>\xA0 <string>Development</string>", true},
                                 {"<string>Development", false}}) {
        bundle.write("Contents/embedded.provisionprofile",
                     "\x82<key>com.apple.developer.icloud-container-environment</key>"s + array);
        EXPECT_EQ(manager.runningDevelopmentBuild(), answer) << array;
    }
}

TEST(EXLRUCache, ForgetsTheLongestUnused) {
    // A small letter is looked up, a capital one added, and removed where a minus stands before it.
    for (auto [size, script, expected] : {std::tuple{2, "ABaCabc", "aa.c"},
                                          {2, "AABaab", "..b"},
                                          {2, "AA-AaBCabc", "..bc"},
                                          {3, "AABCabDa", ".b."},
                                          {0, "ABCabc", "abc"}}) {
        EXLRUCache<int, std::string> cache(size);
        std::string found;
        for (const char* step = script; *step; ++step) {
            if (*step == '-')
                cache.removeObjectWithKey(*++step | 0x20);
            else if (*step < 'a')
                cache.addObject(std::string(1, *step | 0x20), *step | 0x20);
            else
                found += cache.objectForKey(*step).value_or(".");
        }
        EXPECT_EQ(found, expected) << size << script;
    }
}

TEST(EXRandomGenerator, DrawsFromOneSharedTable) {
    EXRandomGenerator first, second;
    first.setIdum(5);  // as 1, because nobody has filled the table yet
    second.setIdum(-1'700'000'000);
    for (double value : {0.41599935685098144, 0.09196489075755929})
        EXPECT_DOUBLE_EQ(first.randomValue(), value);
    for (double value : {0.22908924949778675, 0.5207094668972816})
        EXPECT_DOUBLE_EQ(second.randomValue(), value);
    for (double value : {0.037297826743357736, 0.4078796670808828})
        EXPECT_DOUBLE_EQ(first.randomValue(), value);
}
