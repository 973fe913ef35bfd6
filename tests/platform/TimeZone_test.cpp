#include "corvane/platform/TimeZone.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <ostream>

namespace corvane::platform {

void PrintTo(const CivilTime& t, std::ostream* stream) {
    *stream << t.year << '-' << t.month << '-' << t.day << ' ' << t.hour << ':' << t.minute << ':'
            << t.second;
}

namespace {

using namespace std::chrono_literals;

TimeZone zoneNamed(const char* id) {
    return TimeZone::named(id).value();
}

Instant utc(const CivilTime& civil) {
    return TimeZone::utc().instantFromCivil(civil);
}

TEST(TimeZone, ConvertsBothWays) {
    struct Case {
        const char* zone;
        CivilTime local, utc;
    } cases[] = {
        {"UTC", {1970, 1, 1}, {1970, 1, 1}},
        {"Europe/Berlin", {2024, 7, 1, 12}, {2024, 7, 1, 10}},
        {"Europe/Berlin", {2024, 1, 1, 0, 30}, {2023, 12, 31, 23, 30}},
        {"Asia/Kathmandu", {2024, 1, 1}, {2023, 12, 31, 18, 15}},
        {"Pacific/Kiritimati", {2024, 3, 1, 1}, {2024, 2, 29, 11}},
        {"America/Mexico_City", {2024, 7, 1}, {2024, 7, 1, 6}},  // no summer time since 2022
        {"America/New_York", {2500, 7, 1}, {2500, 7, 1, 4}},     // beyond the listed changes
        {"UTC", {-1, 2, 28, 23, 59, 59}, {-1, 2, 28, 23, 59, 59}},
    };
    for (const auto& each : cases) {
        auto zone = zoneNamed(each.zone);
        EXPECT_EQ(zone.instantFromCivil(each.local), utc(each.utc)) << each.zone;
        EXPECT_EQ(zone.civilFromInstant(utc(each.utc)), each.local) << each.zone;
    }
    EXPECT_EQ(utc({2024, 3, 5}), Instant{std::chrono::sys_days{std::chrono::year{2024} / 3 / 5}});
}

TEST(TimeZone, SkippedTimesAreTheEndOfTheGap) {
    struct Case {
        const char* zone;
        CivilTime asked, shown;
    } cases[] = {
        {"America/Sao_Paulo", {2018, 11, 4}, {2018, 11, 4, 1}},
        {"Asia/Beirut", {2022, 3, 27}, {2022, 3, 27, 1}},
        {"Europe/Berlin", {2024, 3, 31, 2, 59, 59}, {2024, 3, 31, 3}},
        {"Australia/Lord_Howe", {2024, 10, 6, 2, 10}, {2024, 10, 6, 2, 30}},
        {"Pacific/Apia", {2011, 12, 30, 12}, {2011, 12, 31}},  // a whole day
    };
    for (const auto& each : cases) {
        auto zone = zoneNamed(each.zone);
        EXPECT_EQ(zone.civilFromInstant(zone.instantFromCivil(each.asked)), each.shown);
    }
}

TEST(TimeZone, RepeatedTimesCanBeReadTwice) {
    auto zone = zoneNamed("Europe/Berlin");
    CivilTime repeated{2024, 10, 27, 2, 30};
    EXPECT_EQ(zone.instantFromCivil(repeated), utc({2024, 10, 27, 0, 30}));
    EXPECT_EQ(zone.instantFromCivil(repeated, RepeatedTime::Second), utc({2024, 10, 27, 1, 30}));
    CivilTime once{2024, 10, 27, 12};
    EXPECT_EQ(zone.instantFromCivil(once, RepeatedTime::Second), zone.instantFromCivil(once));
    EXPECT_EQ(zone.civilFromInstant(utc({2024, 10, 27, 0, 30})), repeated);
    EXPECT_EQ(zone.civilFromInstant(utc({2024, 10, 27, 1, 30})), repeated);
}

TEST(TimeZone, FieldsRunOverTheirRange) {
    EXPECT_EQ(utc({2023, 2, 31}), utc({2023, 3, 3}));
    EXPECT_EQ(utc({2024, 12, 31, 24}), utc({2025, 1, 1}));
    EXPECT_EQ(utc({2024, 14, 0, 0, -1, 60}), utc({2025, 1, 31}));
}

TEST(TimeZone, FarAwayIsTheEndOfTheRange) {
    for (auto id : {"UTC", "America/New_York", "Asia/Tokyo"}) {
        auto zone = zoneNamed(id);
        for (std::int64_t year : {INT64_MAX, INT64_MAX / 400, std::int64_t{300'000}}) {
            EXPECT_EQ(zone.instantFromCivil({year, 14}), Instant::max());
            EXPECT_EQ(zone.instantFromCivil({-year, -14}), Instant::min());
        }
        EXPECT_EQ(zone.instantFromCivil({2024, INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX}),
                  Instant::max());
        EXPECT_EQ(zone.instantFromCivil({2024, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN}),
                  Instant::min());
        EXPECT_EQ(zone.instantFromCivil(zone.civilFromInstant(Instant::max())),
                  std::chrono::floor<std::chrono::seconds>(Instant::max()));
        EXPECT_EQ(zone.civilFromInstant(Instant::min()).year, -290'308);
    }
}

TEST(TimeZone, FractionsAreDroppedDownwards) {
    EXPECT_EQ(TimeZone::utc().civilFromInstant(Instant{-1us}),
              (CivilTime{1969, 12, 31, 23, 59, 59}));
}

TEST(TimeZone, KnowsOnlyIdentifiers) {
    EXPECT_EQ(zoneNamed("Asia/Tokyo").name(), "Asia/Tokyo");
    EXPECT_EQ(zoneNamed("Asia/Tokyo"), zoneNamed("Asia/Tokyo"));
    EXPECT_NE(zoneNamed("Asia/Tokyo"), TimeZone::utc());
    EXPECT_EQ(TimeZone(), zoneNamed("UTC"));
    for (auto id : {"", "Atlantis/Capital", "Europe", "/usr/share/zoneinfo/Asia/Tokyo",
                    "../zoneinfo/Asia/Tokyo", "file:Asia/Tokyo"}) {
        EXPECT_EQ(TimeZone::named(id), std::nullopt) << id;
    }
}

TEST(TimeZone, ScopesNest) {
    auto real = TimeZone::current();
    {
        ScopedTimeZone outer("Asia/Tokyo");
        {
            ScopedTimeZone inner(TimeZone::utc());
            EXPECT_EQ(TimeZone::current(), TimeZone::utc());
        }
        EXPECT_EQ(TimeZone::current().name(), "Asia/Tokyo");
        EXPECT_THROW(ScopedTimeZone("Atlantis/Capital"), std::invalid_argument);
        EXPECT_EQ(TimeZone::current().name(), "Asia/Tokyo");
    }
    EXPECT_EQ(TimeZone::current(), real);
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
