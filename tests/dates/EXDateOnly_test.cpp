#include "corvane/dates/EXDateOnly.h"

#include "corvane/dates/EXTimeOnly.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/DateComponents.h"
#include "corvane/platform/TextScanner.h"
#include "corvane/platform/TimeZone.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvane {
namespace {

using namespace std::chrono_literals;
using platform::Instant;

static_assert(std::regular<EXDateOnly> && std::totally_ordered<EXDateOnly>);

TEST(EXDateOnly, PacksAndPrintsAndReadsItsPartsBack) {
    const struct {
        EXDateOnly day;
        std::int64_t packed;
        std::string iso, description;
    } cases[] = {
        {{2024, 12, 31}, 0x7E80C1F, "2024-12-31", "2024-12-31"},
        {{985, 1, 1}, 0x3D90101, "0985-01-01", "985-01-01"},
        {{}, 0, "0000-00-00", "0-00-00"},
        {{12024, 6, 7}, 0x2EF80607, "12024-06-07", "12024-06-07"},
        // The sign applies to the whole number, so the low bytes are those of its complement.
        {{-7, 3, 5}, -0x70305, "-007-252-251", "-7-252-251"},
    };
    for (const auto& [day, packed, iso, description] : cases) {
        EXPECT_EQ(day.integerValue(), packed);
        EXPECT_EQ(day.isoString(), iso);
        EXPECT_EQ((std::ostringstream() << day).str(), description);
        EXPECT_TRUE(packed < 0 || EXDateOnly(day.year(), day.month(), day.day()) == day);
    }
    EXPECT_EQ(EXDateOnly(-7, 3, 5).year(), -7);
    for (std::int64_t number : {INT64_MIN, INT64_MIN + 1, std::int64_t{-1}, INT64_MAX}) {
        auto day = EXDateOnly::withIntegerValue(number);
        EXPECT_EQ(day.number(), number);
        EXPECT_FALSE(day.isoString().empty());
        EXPECT_NE(day.date(), Instant());
    }
    EXPECT_EQ(EXDateOnly::withIntegerValue(INT64_MIN).year(), -(std::int64_t{1} << 47));
}

TEST(EXDateOnly, ComparesAndHashesByPackedNumber) {
    const EXDateOnly days[] = {{-1, 1, 1}, {}, {2023, 12, 31}, {2024, 1, 30}, {2024, 2, 1}};
    for (int i = 0; i < 5; ++i)
        for (int j = 0; j < 5; ++j)
            EXPECT_EQ(days[i].compare(days[j]), i < j ? -1 : i > j);
    EXPECT_EQ(days[0].compare(std::nullopt), 1);
    EXPECT_FALSE(EXDateOnly::dateOnlyFromString({}) || EXDateOnly::dateOnlyFromDate({}));
    EXPECT_FALSE(EXTimeOnly::timeOnlyFromString({}) || EXTimeOnly::timeOnlyFromDate({}));
    EXPECT_EQ(EXDateOnly::withIntegerValue(0x500000003).hash(), 0x500000006u);
    EXPECT_EQ(EXDateOnly::withIntegerValue(-2).hash(), 1u);  // the shift keeps the sign
}

TEST(EXDateOnly, ParsesStrings) {
    // clang-format off
    const std::pair<const char*, EXDateOnly> cases[] = {
        {"2024-03-05", {2024, 3, 5}}, {"2024-03-05T10:00", {2024, 3, 5}},
        {" \t\r\n\v\f2024 -\u0085\u1680\u20003 - 5", {2024, 3, 5}},
        {"\u00A02024-\u2028\u2029\u200A3\u202F-\u205F\u30005", {2024, 3, 5}},
        {"+7-+1-+2", {7, 1, 2}}, {"-7-1-2", {-7, 1, 2}}, {"2024-02-30", {2024, 2, 30}},
        {"9223372036854775807-1-1", {INT64_MAX, 1, 1}},
        {"99999999999999999999-1-1", {INT64_MAX, 1, 1}},
        {"-9223372036854775808-1-1", {INT64_MIN, 1, 1}},
        {"-99999999999999999999-1-1", {INT64_MIN, 1, 1}},
    };
    // clang-format on
    for (auto [text, day] : cases)
        EXPECT_EQ(EXDateOnly::dateOnlyFromString(text), day) << text;
    // U+200B has no width and is no white space; E2 80 is only the start of some.
    for (auto text :
         {"2024-99999999999999999999-1", "2024--03-05", "2024- -3-05", "2024-03--5", "2024/03/05",
          "2024-00-10", "2024-13-01", "2024-02-00", "2024-02-32", "2024-03", "2024-03-", "-03-05",
          "+-7-1-1", "- 7-1-1", "\u200B7-1-1", "\xE2\x80", "today", "-", ""})
        EXPECT_EQ(EXDateOnly::dateOnlyFromString(text), std::nullopt) << text;
    // Two separators are not one and a sign.
    EXPECT_EQ(platform::TextScanner("--2").scanIntegerAfter('-'), std::nullopt);
    EXPECT_EQ(platform::TextScanner("- -2").scanIntegerAfter('-'), -2);
}

TEST(EXDateOnly, ConvertsInTheZoneInForce) {
    const EXDateOnly day(2024, 3, 5);
    const Instant midnight = std::chrono::sys_days{std::chrono::year{2024} / 3 / 5};
    platform::FixedClock fixed(midnight + 23h);
    platform::ScopedClock clock(fixed);
    // The local noon as hours after the midnight of UTC, and the local day an hour before the next.
    for (auto [id, noon, today] : {std::tuple("Asia/Tokyo", 3h, 6),
                                   {"UTC", 12h, 5},
                                   {"Europe/Berlin", 11h, 6},
                                   {"Pacific/Kiritimati", -2h, 6}}) {
        platform::ScopedTimeZone zone(id);
        EXPECT_EQ(EXDateOnly::dateFromDateOnly(day), midnight + noon) << id;
        EXPECT_EQ(EXDateOnly::dateOnlyFromDate(fixed.now()), EXDateOnly(2024, 3, today)) << id;
        EXPECT_EQ(EXDateOnly(std::nullopt), EXDateOnly(2024, 3, today)) << id;
    }
    platform::DateComponents components{.year = 2024, .month = 3, .day = 5, .hour = 9};
    EXPECT_EQ(EXDateOnly::dateOnlyFromDateComponents(components), day);
    EXPECT_EQ(EXDateOnly(platform::DateComponents{.year = 2024}), EXDateOnly(2024, 0, 0));
}

Instant on(int month, int day, std::chrono::seconds time) {
    return std::chrono::sys_days{std::chrono::year{2024} / month / day} + time;
}

TEST(EXDateOnly, TimesPackAndPrint) {
    const EXTimeOnly time(7, 5, 9);
    EXPECT_EQ(EXTimeOnly::numberFromTimeOnly(time), 0x70509);
    EXPECT_EQ(EXTimeOnly::stringFromTimeOnly(time), "07:05:09");
    EXPECT_EQ((std::ostringstream() << time).str(), "7:05:09");
    EXPECT_EQ(EXTimeOnly(100, 0, 0).isoString(), "100:00:00");
}

TEST(EXDateOnly, ParsesTimes) {
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString("23:59:59"), EXTimeOnly(23, 59, 59));
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString(" 0 : 0 : -0 "), EXTimeOnly());
    EXPECT_EQ(EXTimeOnly::timeOnlyFromString("7:5:3 in the morning"), EXTimeOnly(7, 5, 3));
    for (auto text : {"24:00:00", "-1:00:00", "12:60:00", "12:00:60", "12:-1:00", "12:30:-1",
                      "12:30", "12::30:00", "12-30-00", ""})
        EXPECT_EQ(EXTimeOnly::timeOnlyFromString(text), std::nullopt) << text;
}

TEST(EXDateOnly, ATimesDateIsTodayAndASkippedTimeTheEndOfTheGap) {
    platform::FixedClock fixed(on(3, 5, 23h + 30min));
    platform::ScopedClock clock(fixed);
    platform::ScopedTimeZone zone("Asia/Tokyo");  // where it is the 6th already, 08:30
    EXTimeOnly time(9, 15, 30);
    EXPECT_EQ(EXTimeOnly::dateFromTimeOnly(time), on(3, 6, 15min + 30s));
    EXPECT_EQ(EXTimeOnly::timeOnlyFromDate(time.date()), time);
    EXPECT_EQ(EXTimeOnly(std::nullopt), EXTimeOnly(8, 30, 0));
    EXPECT_LT(EXTimeOnly::withIntegerValue(INT64_MIN).date(), Instant());
    EXPECT_GT(EXTimeOnly::withIntegerValue(INT64_MAX).date(), Instant());
    platform::ScopedTimeZone berlin("Europe/Berlin");
    fixed.set(on(3, 31, 12h));
    EXPECT_EQ(EXTimeOnly(2, 30, 0).date(), on(3, 31, 1h));
}

}  // namespace
}  // namespace corvane
