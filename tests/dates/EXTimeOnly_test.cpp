#include "corvane/dates/EXTimeOnly.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/TimeZone.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace corvane {
namespace {

using namespace std::chrono_literals;
using platform::Instant;

static_assert(std::regular<EXTimeOnly> && std::totally_ordered<EXTimeOnly>);

Instant on(int month, int day, std::chrono::seconds time) {
    using namespace std::chrono;
    return sys_days{year{2024} / month / day} + time;
}

TEST(EXTimeOnly, AnswersAsItsHeaderShows) {
    EXTimeOnly time(8, 30, 15);
    EXPECT_EQ(time.integerValue(), 0x81E0F);
    EXPECT_EQ(time.isoString(), "08:30:15");
    EXPECT_LT(time, EXTimeOnly(22, 0, 0));
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString("8:30:15"), time);
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString("8:30"), std::nullopt);
}

TEST(EXTimeOnly, PacksAndPrints) {
    struct Case {
        EXTimeOnly time;
        std::int64_t packed;
        std::string iso, description;
    } cases[] = {
        {{}, 0, "00:00:00", "0:00:00"},
        {{7, 5, 9}, 0x70509, "07:05:09", "7:05:09"},
        {{23, 59, 59}, 0x173B3B, "23:59:59", "23:59:59"},
        {{100, 0, 0}, 0x640000, "100:00:00", "100:00:00"},
    };
    for (const auto& [time, packed, iso, description] : cases) {
        EXPECT_EQ(time.number(), packed);
        EXPECT_EQ(EXTimeOnly(time.hour(), time.minute(), time.second()), time);
        EXPECT_EQ(EXTimeOnly::timeOnlyFromNumber(packed), time);
        EXPECT_EQ(EXTimeOnly::stringFromTimeOnly(time), iso);
        EXPECT_EQ((std::ostringstream() << time).str(), description);
    }
    EXPECT_EQ(EXTimeOnly(-2, 0, 0).hour(), -2);
}

TEST(EXTimeOnly, ParsesStrings) {
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString("23:59:59"), EXTimeOnly(23, 59, 59));
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString(" 0 : 0 : -0 "), EXTimeOnly());
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString("7:5:3 in the morning"), EXTimeOnly(7, 5, 3));
    for (auto text : {"24:00:00", "-1:00:00", "12:60:00", "12:00:60", "12:-1:00", "12:30:-1",
                      "12:30", "12::30:00", "12-30-00", ""}) {
        EXPECT_EQ(EXTimeOnly::timeOnlyFromString(text), std::nullopt) << text;
    }
}

TEST(EXTimeOnly, GivesNothingForNothing) {
    EXPECT_FALSE(EXTimeOnly::timeOnlyFromNumber(std::nullopt));
    EXPECT_FALSE(EXTimeOnly::timeOnlyFromDate(std::nullopt));
    EXPECT_FALSE(EXTimeOnly::timeOnlyFromString(std::nullopt));
    EXPECT_FALSE(EXTimeOnly::numberFromTimeOnly(std::nullopt));
    EXPECT_FALSE(EXTimeOnly::dateFromTimeOnly(std::nullopt));
    EXPECT_FALSE(EXTimeOnly::stringFromTimeOnly(std::nullopt));
    EXPECT_EQ(EXTimeOnly::withNumber(std::nullopt), EXTimeOnly());
    EXPECT_EQ(EXTimeOnly().compare(std::nullopt), 1);
}

TEST(EXTimeOnly, ItsDateIsToday) {
    platform::FixedClock fixed(on(3, 5, 23h + 30min));
    platform::ScopedClock clock(fixed);
    platform::ScopedTimeZone zone("Asia/Tokyo");  // where it is the 6th already, 08:30
    EXTimeOnly time(9, 15, 30);
    EXPECT_EQ(time.date(), on(3, 6, 15min + 30s));
    EXPECT_EQ(EXTimeOnly::dateFromTimeOnly(time), time.date());
    EXPECT_EQ(EXTimeOnly::timeOnlyFromDate(time.date()), time);
    EXPECT_EQ(EXTimeOnly(std::nullopt), EXTimeOnly(8, 30, 0));
}

TEST(EXTimeOnly, ATimeTheClocksSkipIsTheEndOfTheGap) {
    platform::FixedClock fixed(on(3, 31, 12h));
    platform::ScopedClock clock(fixed);
    platform::ScopedTimeZone zone("Europe/Berlin");
    EXPECT_EQ(EXTimeOnly(2, 30, 0).date(), on(3, 31, 1h));
}

TEST(EXTimeOnly, AnyNumberHasADate) {
    using Limits = std::numeric_limits<std::int64_t>;
    platform::ScopedTimeZone zone("UTC");
    EXPECT_LT(EXTimeOnly::withIntegerValue(Limits::min()).date(), Instant());
    EXPECT_GT(EXTimeOnly::withIntegerValue(Limits::max()).date(), Instant());
}

}  // namespace
}  // namespace corvane
