#include "corvane/platform/TimeZone.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

namespace corvane::platform {
namespace {

using namespace std::chrono_literals;

TimeZone zoneNamed(const char* id) {
    return TimeZone::named(id).value();
}

Instant utc(const CivilTime& civil) {
    return TimeZone::utc().instantFromCivil(civil);
}

TEST(TimeZone, ConvertsBothWays) {
    // clang-format off
    const struct {
        const char* zone;
        CivilTime local, utc, shown = local;
        RepeatedTime repeated = RepeatedTime::First;
    } cases[] = {
        {"UTC", {1970, 1, 1}, {1970, 1, 1}}, {"Europe/Berlin", {2024, 7, 1, 12}, {2024, 7, 1, 10}},
        {"Europe/Berlin", {2024, 1, 1, 0, 30}, {2023, 12, 31, 23, 30}},
        {"Asia/Kathmandu", {2024, 1, 1}, {2023, 12, 31, 18, 15}},
        {"America/Mexico_City", {2024, 7, 1}, {2024, 7, 1, 6}},  // no summer time since 2022
        {"America/New_York", {2500, 7, 1}, {2500, 7, 1, 4}},     // beyond the listed changes
        {"UTC", {-1, 2, 28, 23, 59, 59}, {-1, 2, 28, 23, 59, 59}},
        // What the clocks skip is the end of the gap.
        {"America/Sao_Paulo", {2018, 11, 4}, {2018, 11, 4, 3}, {2018, 11, 4, 1}},
        {"Europe/Berlin", {2024, 3, 31, 2, 59, 59}, {2024, 3, 31, 1}, {2024, 3, 31, 3}},
        {"Australia/Lord_Howe", {2024, 10, 6, 2, 10}, {2024, 10, 5, 15, 30}, {2024, 10, 6, 2, 30}},
        {"Pacific/Apia", {2011, 12, 30, 12}, {2011, 12, 30, 10}, {2011, 12, 31}},
        // What they repeat can be meant twice.
        {"Europe/Berlin", {2024, 10, 27, 2, 30}, {2024, 10, 27, 0, 30}},
        {"Europe/Berlin", {2024, 10, 27, 2, 30}, {2024, 10, 27, 1, 30}, {2024, 10, 27, 2, 30}, RepeatedTime::Second},
        {"Europe/Berlin", {2024, 10, 27, 12}, {2024, 10, 27, 11}, {2024, 10, 27, 12}, RepeatedTime::Second},
        // Fields may run over their range.
        {"UTC", {2023, 2, 31}, {2023, 3, 3}, {2023, 3, 3}},
        {"UTC", {2024, 12, 31, 24}, {2025, 1, 1}, {2025, 1, 1}},
        {"UTC", {2024, 14, 0, 0, -1, 60}, {2025, 1, 31}, {2025, 1, 31}},
    };
    // clang-format on
    for (const auto& each : cases) {
        auto zone = zoneNamed(each.zone);
        EXPECT_EQ(zone.instantFromCivil(each.local, each.repeated), utc(each.utc)) << each.zone;
        EXPECT_EQ(zone.civilFromInstant(utc(each.utc)), each.shown) << each.zone;
    }
    EXPECT_EQ(utc({2024, 3, 5}), Instant{std::chrono::sys_days{std::chrono::year{2024} / 3 / 5}});
    EXPECT_EQ(TimeZone::utc().civilFromInstant(Instant{-1us}),
              (CivilTime{1969, 12, 31, 23, 59, 59}));
}

TEST(TimeZone, FarAwayIsTheEndOfTheRange) {
    for (auto id : {"UTC", "America/New_York", "Asia/Tokyo"}) {
        auto zone = zoneNamed(id);
        for (std::int64_t year : {INT64_MAX, std::int64_t{300'000}}) {
            EXPECT_EQ(zone.instantFromCivil({year, 14}), Instant::max());
            EXPECT_EQ(zone.instantFromCivil({-year, -14}), Instant::min());
        }
        for (auto [far, end] : {std::pair(INT_MAX, Instant::max()), {INT_MIN, Instant::min()}})
            EXPECT_EQ(zone.instantFromCivil({2024, far, far, far, far, far}), end);
        EXPECT_EQ(zone.instantFromCivil(zone.civilFromInstant(Instant::max())),
                  std::chrono::floor<std::chrono::seconds>(Instant::max()));
        EXPECT_EQ(zone.civilFromInstant(Instant::min()).year, -290'308);
    }
}

TEST(TimeZone, KnowsOnlyIdentifiers) {
    EXPECT_EQ(zoneNamed("Asia/Tokyo"), zoneNamed("Asia/Tokyo"));
    EXPECT_NE(zoneNamed("Asia/Tokyo"), zoneNamed("UTC"));
    for (auto id : {"", "Atlantis/Capital", "Europe", "/usr/share/zoneinfo/Asia/Tokyo",
                    "../zoneinfo/Asia/Tokyo", "file:Asia/Tokyo"})
        EXPECT_EQ(TimeZone::named(id), std::nullopt) << id;
    EXPECT_THROW(ScopedTimeZone("Atlantis/Capital"), std::invalid_argument);
}

TEST(TimeZoneDeathTest, TheRealOneFollowsTheEnvironment) {
    // In a process of its own, since the zone is asked for once.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    auto exitWithItsOffset = [] {
        setenv("TZ", "Asia/Kathmandu", 1);
        std::exit(TimeZone::current().civilFromInstant(Instant()).minute);
    };
    EXPECT_EXIT(exitWithItsOffset(), testing::ExitedWithCode(30), "");
}

}  // namespace
}  // namespace corvane::platform
