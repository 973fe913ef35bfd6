#include "corvane/dates/EXDateOnly.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/DateComponents.h"
#include "corvane/platform/TimeZone.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace corvane {
namespace {

using namespace std::chrono_literals;
using platform::Instant;

constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();

static_assert(std::regular<EXDateOnly> && std::totally_ordered<EXDateOnly>);
static_assert(EXDateOnly().integerValue() == 0);

TEST(EXDateOnly, AnswersAsItsHeaderShows) {
    EXDateOnly day(2024, 3, 5);
    EXPECT_EQ(day.integerValue(), 0x7E80305);
    EXPECT_EQ(day.isoString(), "2024-03-05");
    EXPECT_LT(day, EXDateOnly(2024, 12, 31));
    EXPECT_EQ(EXDateOnly::dateOnlyFromString(" 2024-3-5 "), day);
    EXPECT_EQ(EXDateOnly::dateOnlyFromString("2024-13-01"), std::nullopt);
    EXPECT_EQ(EXDateOnly::dateOnlyFromString("2023-02-31"), EXDateOnly(2023, 2, 31));
}

TEST(EXDateOnly, PacksAndPrints) {
    struct Case {
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
        EXPECT_EQ(EXDateOnly::withIntegerValue(packed), day);
        EXPECT_EQ(day.isoString(), iso);
        EXPECT_EQ((std::ostringstream() << day).str(), description);
    }
}

TEST(EXDateOnly, ReadsEveryPartBack) {
    for (std::int64_t year : {0, 1, 2024, 1 << 30}) {
        for (int month = 1; month <= 12; ++month) {
            EXDateOnly day(year, month, 31);
            EXPECT_EQ(EXDateOnly(day.year(), day.month(), day.day()), day);
            EXPECT_EQ(day.month(), month);
        }
    }
    EXPECT_EQ(EXDateOnly(-7, 3, 5).year(), -7);
}

TEST(EXDateOnly, TakesAnyNumber) {
    for (std::int64_t number : {kLowest, kLowest + 1, std::int64_t{-1}, kHighest}) {
        auto day = EXDateOnly::withIntegerValue(number);
        EXPECT_EQ(day.number(), number);
        EXPECT_EQ(EXDateOnly(number, number, number).integerValue(),
                  EXDateOnly::encodedValueForYear(number, number, number));
        EXPECT_FALSE(day.isoString().empty());
        EXPECT_NE(day.date(), Instant());
    }
    EXPECT_EQ(EXDateOnly::withIntegerValue(kLowest).year(), -(std::int64_t{1} << 47));
}

TEST(EXDateOnly, ComparesByPackedNumber) {
    EXDateOnly days[] = {{-1, 1, 1}, {}, {2023, 12, 31}, {2024, 1, 30}, {2024, 2, 1}};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(days[i].compare(std::nullopt), 1);
        EXPECT_FALSE(days[i].isEqual(std::nullopt));
        for (int j = 0; j < 5; ++j) {
            EXPECT_EQ(days[i].compare(days[j]), i < j ? -1 : i > j);
            EXPECT_EQ(days[i].isEqual(days[j]), i == j);
            EXPECT_EQ(days[i] < days[j], i < j);
        }
    }
}

TEST(EXDateOnly, HashFoldsTheUpperHalfIn) {
    EXPECT_EQ(EXDateOnly::withIntegerValue(0x500000003).hash(), 0x500000006u);
    EXPECT_EQ(EXDateOnly::withIntegerValue(-2).hash(), 1u);  // the shift keeps the sign
    EXPECT_EQ(std::hash<EXDateOnly>{}({2024, 3, 5}), EXDateOnly(2024, 3, 5).hash());
}

TEST(EXDateOnly, ParsesStrings) {
    struct Case {
        const char* text;
        std::optional<EXDateOnly> day;
    } cases[] = {
        {"2024-03-05", EXDateOnly(2024, 3, 5)},
        {"2024-03-05T10:00", EXDateOnly(2024, 3, 5)},
        {"\t2024 -\n3 - 5", EXDateOnly(2024, 3, 5)},
        {"\u00A02024-\u20283-\u30005", EXDateOnly(2024, 3, 5)},
        {"+7-+1-+2", EXDateOnly(7, 1, 2)},
        {"-7-1-2", EXDateOnly(-7, 1, 2)},
        {"2024-02-30", EXDateOnly(2024, 2, 30)},
        {"99999999999999999999-1-1", EXDateOnly(kHighest, 1, 1)},
    };
    for (const auto& [text, day] : cases) {
        EXPECT_EQ(EXDateOnly::dateOnlyFromString(text), day) << text;
    }
    for (auto text : {"2024-99999999999999999999-1", "2024--03-05", "2024- -3-05", "2024- -03-05",
                      "2024-03--5", "2024/03/05", "2024-00-10", "2024-13-01", "2024-02-00",
                      "2024-02-32", "2024-03", "2024-03-", "-03-05", "today", ""}) {
        EXPECT_EQ(EXDateOnly::dateOnlyFromString(text), std::nullopt) << text;
    }
}

TEST(EXDateOnly, GivesNothingForNothing) {
    EXPECT_FALSE(EXDateOnly::dateOnlyFromNumber(std::nullopt));
    EXPECT_FALSE(EXDateOnly::dateOnlyFromDateComponents(std::nullopt));
    EXPECT_FALSE(EXDateOnly::dateOnlyFromDate(std::nullopt));
    EXPECT_FALSE(EXDateOnly::dateOnlyFromString(std::nullopt));
    EXPECT_FALSE(EXDateOnly::numberFromDateOnly(std::nullopt));
    EXPECT_FALSE(EXDateOnly::dateFromDateOnly(std::nullopt));
    EXPECT_FALSE(EXDateOnly::stringFromDateOnly(std::nullopt));
    EXPECT_EQ(EXDateOnly::withNumber(std::nullopt), EXDateOnly());
}

TEST(EXDateOnly, ConvertsThere) {
    platform::ScopedTimeZone zone("Europe/Berlin");
    EXDateOnly day(2024, 3, 5);
    Instant noon = std::chrono::sys_days{std::chrono::year{2024} / 3 / 5} + 11h;
    EXPECT_EQ(day.date(), noon);
    EXPECT_EQ(EXDateOnly::dateFromDateOnly(day), noon);
    EXPECT_EQ(EXDateOnly::stringFromDateOnly(day), "2024-03-05");
    EXPECT_EQ(EXDateOnly::dateOnlyFromNumber(EXDateOnly::numberFromDateOnly(day)), day);
    platform::DateComponents components{.year = 2024, .month = 3, .day = 5, .hour = 9};
    EXPECT_EQ(EXDateOnly::dateOnlyFromDateComponents(components), day);
    EXPECT_EQ(EXDateOnly(platform::DateComponents{.year = 2024}), EXDateOnly(2024, 0, 0));
}

TEST(EXDateOnly, TheDayOfAnInstantIsTheLocalOne) {
    Instant evening = std::chrono::sys_days{std::chrono::year{2024} / 3 / 5} + 23h;
    platform::FixedClock fixed(evening);
    platform::ScopedClock clock(fixed);
    for (auto [id, day] : {std::pair("Asia/Tokyo", 6), {"UTC", 5}, {"Pacific/Kiritimati", 6}}) {
        platform::ScopedTimeZone zone(id);
        EXPECT_EQ(EXDateOnly::dateOnlyFromDate(evening), EXDateOnly(2024, 3, day)) << id;
        EXPECT_EQ(EXDateOnly(std::nullopt), EXDateOnly(2024, 3, day)) << id;
    }
}

}  // namespace
}  // namespace corvane
