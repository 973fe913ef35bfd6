#include "corvane/platform/Console.h"
#include "corvane/platform/ManualRunLoop.h"
#include "corvane/platform/NotificationCenter.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

using namespace corvane::platform;

TEST(RunLoop, RunsWhatIsDueByTimeThenByOrderWhateverIsCancelled) {
    constexpr std::pair<double, double> kDelays[] = {{0, 0}, {-3, 0},     {NAN, 0}, {2, 2},
                                                     {1, 1}, {1e300, 1e9}};  // asked, meant
    std::set<std::tuple<double, int, unsigned long>> pending;  // due, number, owner (0 is nobody)
    std::vector<int> ran, expected;
    ManualRunLoop loop;
    std::mt19937 random(7);
    for (int number = 0, now = 0; number < 5000; ++number) {
        const auto owner = random() % 3;
        const auto [asked, meant] = kDelays[random() % 6];
        loop.callAfterDelay(asked, owner ? &kDelays[owner] : nullptr,
                            [&, number] { ran.push_back(number); });
        pending.emplace(now + meant, number, owner);
        if (owner && random() % 20 == 0) {
            loop.cancelCalls(&kDelays[owner]);
            std::erase_if(pending, [&](auto& call) { return std::get<2>(call) == owner; });
        }
        if (random() % 5) continue;
        for (loop.advance(1), ++now; !pending.empty() && std::get<0>(*pending.begin()) <= now;
             pending.erase(pending.begin()))
            expected.push_back(std::get<1>(*pending.begin()));
        ASSERT_EQ(ran, expected);
    }
}

TEST(RunLoop, KeepsToTurnsWhateverCallsDo) {
    ManualRunLoop loop;
    RecordingConsole console;
    const ScopedConsole scope(console);
    std::string log;
    auto owner = std::make_shared<int>();
    loop.callAtEndOfTurn([&] { log += "no turn, "; });
    loop.runTurn();
    loop.callAfterDelay(0, owner.get(), [&, held = std::weak_ptr(owner)] {
        loop.callAtEndOfTurn([&] { loop.callAtEndOfTurn([&] { log += "last, "; }); });
        loop.post([&] { log += console.lines().at(0); });
        loop.cancelCalls(std::exchange(owner, nullptr).get());
        log += held.expired() ? "first, " : "cancelled calls are not released";
    });
    for (int delay : {0, 5})
        loop.callAfterDelay(delay, owner.get(), [&log, owner] { log += "never"; });
    loop.post([] { throw std::runtime_error("x"); });
    EXPECT_EQ(loop.runTurn(), 2u);
    loop.advance(9);
    EXPECT_EQ(log, "no turn, first, last, ERROR: a call of 'run loop' threw: x");
}

TEST(RunLoop, ServesManyThreadsAsNotificationCentersDo) {
    StandardRunLoop loop;
    NotificationCenter center;
    std::vector<int> ran[8];
    std::vector<std::jthread> threads;
    std::size_t finished = 0;
    for (auto& mine : ran)
        threads.emplace_back([&] {
            for (int i = 0; i < 1000; ++i) {
                const auto observation = center.addObserver(
                    "n", &mine, [&, i](auto&) { loop.post([&, i] { mine.push_back(i); }); });
                center.post("n", &mine);
                loop.callAfterDelay(i % 2 ? 3600 : 1e-4, &mine, [] {});
                if (i % 2) loop.cancelCalls(&mine);
            }
            loop.callAfterDelay(1e-3, nullptr, [&] { ++finished; });
        });
    loop.runUntil([&] { return finished == threads.size(); });
    for (auto& numbers : ran)
        EXPECT_TRUE(numbers.size() == 1000 && std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_FALSE(loop.nextDue()) << "nothing of what was cancelled is left";
}

TEST(NotificationCenter, CallsObserversInOrderWhateverTheyDo) {
    NotificationCenter center;
    std::string log;
    const auto observe = [&](auto from, char mark) {
        return center.addObserver("n", from, [&, mark](auto&) { log += mark; });
    };
    NotificationCenter::Observation added, doomed, first = observe(&center, '1'), self;
    self = center.addObserver("n", nullptr, [&](auto&) {
        log += "2";
        doomed.end();
        added = observe(&log, '3');
        self = observe(nullptr, '4');  // ends this very one
    });
    doomed = observe(nullptr, '!');
    for (const void* from : {(void*)&center, (void*)&log, (void*)&center})
        center.post("n", from);
    EXPECT_EQ(log,
              "12"
              "34"
              "14");
}
