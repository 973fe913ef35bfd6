#include "corvane/toolkit/EXBimap.h"
#include "corvane/toolkit/EXComparator.h"
#include "corvane/toolkit/EXGlobalAlert.h"
#include "corvane/toolkit/EXLine.h"
#include "corvane/toolkit/EXThreadMutex.h"
#include "corvane/toolkit/EXWeakReference.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <unordered_map>

namespace corvane {
namespace {

TEST(EXBimap, KeepsFormerNames) {
    EXBimap<int, std::string> map;
    map.setObject("Sunday", 1);
    map.setObject("Sun", 1);
    EXPECT_EQ(map.objectForKey(1), "Sun");
    EXPECT_EQ(map.keyForObject("Sunday"), 1);
    EXPECT_EQ(map.count(), 1u);
    map.removeObjectforKey(1);
    EXPECT_EQ(map.objectForKey(1), std::nullopt);
    EXPECT_EQ(map.keyForObject("Sun"), std::nullopt);
    EXPECT_EQ(map.keyForObject("Sunday"), 1);
}

TEST(EXComparator, PutsWhatIsMissingFirst) {
    using Text = std::optional<std::string_view>;
    const struct {
        Text a, b;
        int exact, folded;
    } cases[] = {{{}, {}, 0, 0},   {{}, "", -1, -1},        {"", {}, 1, 1},
                 {"b", "A", 1, 1}, {"a", "B", 1, -1},       {"STRASSE", "straße", -1, 0},
                 {"a", "a", 0, 0}, {"a", "a\u0301", -1, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(EXComparator::compareString(c.a, c.b), c.exact) << c.a.value_or("none");
        EXPECT_EQ(EXComparator::caseInsensitiveCompareString(c.a, c.b), c.folded);
    }
    EXPECT_EQ(EXComparator::compareNumber(3, 3.5), -1);
    EXPECT_EQ(EXComparator::compareNumber(nullptr, 0), -1);
    EXPECT_EQ(EXComparator::compareDateOnly(EXDateOnly(2024, 3, 5), std::nullopt), 1);
    EXPECT_EQ(EXComparator::compareDateOnly(EXDateOnly(2024, 3, 5), EXDateOnly(2024, 10, 1)), -1);
    EXPECT_EQ(EXComparator::compareURIRepresentation(platform::URL("x:b"), platform::URL("x:a")),
              1);
}

TEST(EXWeakReference, LosesItsHashWithItsObject) {
    auto object = std::make_shared<int>(1);
    const auto same = std::make_shared<int>(1);
    const EXWeakReference reference(object);
    std::unordered_map<EXWeakReference<int>, int> map{{reference, 7}};
    EXPECT_EQ(map.count(EXWeakReference(object)), 1u);
    EXPECT_NE(reference, EXWeakReference(same));
    object = nullptr;
    EXPECT_EQ(reference.hash(), 0u);
    EXPECT_EQ(reference, EXWeakReference<int>());
}

TEST(EXLine, MeetsOthers) {
    const EXLine rising({0, 0}, {2, 2});
    const struct {
        EXLine other;
        bool meets;
        EXLine::Point point;
    } cases[] = {
        {{{0, 2}, {2, 0}}, true, {1, 1}}, {{{0, 1}, {2, 3}}, false, {0, 0}},  // parallel
        {{{2, 2}, {5, 5}}, true, {1, 1}},  // on one line: always the middle
        {{{7, 7}, {9, 9}}, true, {1, 1}}, {{{3, 0}, {3, 9}}, false, {0, 0}},  // beyond the end
        {{{2, 0}, {2, 2}}, true, {2, 2}}};                                    // at the end
    for (const auto& c : cases) {
        EXLine::Point point{9, 9};
        EXPECT_EQ(rising.intersectsWithLine(c.other, &point), c.meets);
        EXPECT_EQ(point, c.point);
    }
}

TEST(EXThreadMutex, LetsOneThreadThrough) {
    EXThreadMutex mutex;
    int count = 0;
    auto work = [&] {
        for (int i = 0; i < 1000; ++i)
            mutex.synchronize([&] { ++count; });
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(count, 2000);
}

TEST(EXGlobalAlert, ArrivesAsItWasSent) {
    platform::NotificationCenter center;
    const platform::ScopedNotificationCenter scope(center);
    std::optional<EXGlobalAlert> seen;
    const auto observation = center.addObserver(
        EXGlobalAlertNotification, nullptr,
        [&](const auto& n) { seen = EXGlobalAlert::globalAlertFromUserInfo(n.userInfo); });
    EXGlobalAlert::sendGlobalAlertWithTitle("Full", std::nullopt, "OK");
    EXPECT_EQ(seen, EXGlobalAlert("Full", std::nullopt, "OK"));
}

}  // namespace
}  // namespace corvane
