#include "corvane/dates/EXCalendar.h"

#include "corvane/platform/Clock.h"

#include <gtest/gtest.h>

#include <random>

namespace corvane {
using namespace std::chrono_literals;
using D = EXDateOnly;

static EXCalendar calendarOf(const char* zone, const char* locale = "de_DE") {
    return EXCalendar({platform::TimeZone::named(zone).value(), platform::Locale(locale)});
}

TEST(EXCalendar, CountsDaysAndWeeks) {
    const platform::FixedClock clock(platform::Instant(std::chrono::sys_days(2024y / 3 / 5) + 23h));
    const platform::ScopedClock scope(clock);
    const auto c = calendarOf("Asia/Tokyo"), arabic = calendarOf("Pacific/Apia", "ar_EG");
    const auto p = [](const auto& value) { return testing::PrintToString(value); };
    // clang-format off
    const std::pair<std::string, const char*> cases[] = {
        {p(c.dateOnlyForYesterday()), "2024-03-05"}, {p(c.dateOnlyForTomorrow()), "2024-03-07"},  // Wednesday there already
        {p(c.dateOnlyByAddingYears(1, D(2024, 2, 29))), "(2025-02-28)"}, {p(c.dateOnlyByAddingDays(-1, D(2024, 3, 1))), "(2024-02-29)"},
        {p(c.dateOnlyByAddingMonths(1, D(2024, 1, 31))), "(2024-02-29)"}, {p(c.dateOnlyByAddingWeeks(-1, D(1, 1, 8))), "(1-01-01)"},
        {p(c.normalizedDateOnly(D(2023, 2, 31))), "(2023-03-03)"}, {p(arabic.normalizedDateOnly(D(2011, 12, 30))), "(2011-12-31)"},
        {p(c.dateForEndOfDateOnly({})), "(nullopt)"}, {p(c.daysFromDateOnly({}, D(1, 1, 1))), "0"}, {p(c.weekForDateOnly({})), "0"},
        {p(c.daysFromDateOnly(D(2024, 3, 30), D(2024, 3, 31))), "1"}, {p(c.nextWeekday(7)), "1"}, {p(c.weekdaysFromWeekday(7, 1)), "1"},
        {p(c.weekdaysFromWeekday(1, 7)), "6"}, {p(c.weekForDateOnly(D(2027, 1, 1))), "53"}, {p(arabic.weekForDateOnly(D(2027, 1, 1))), "1"},
        {p(c.isDateOnlyInWeekend(D(2024, 3, 3))), "true"}, {p(arabic.isDateOnlyInWeekend(D(2024, 3, 3))), "false"},
        {p(c.numberOfDaysInMonthForDateOnly(D(2023, 2, 31))), "31"}, {*c.nameForMonthOfDateOnly(D(2023, 2, 31)), "März"},
        {c.createWeekdayStringsWithDateFormat("EEEE d H")[0], "Montag 11 12"}, {c.createWeekdayNames()[6], "Sonntag"}};
    // clang-format on
    for (const auto& [result, expected] : cases)
        EXPECT_EQ(result, expected);
}

/// Days are seamless whatever the clocks do, and every time of day can be asked for and read again.
TEST(EXCalendar, DaysHaveTheirFirstAndLastMoment) {
    std::mt19937_64 random(1);
    for (auto zone : {"Europe/Berlin", "America/Sao_Paulo", "Asia/Beirut", "America/Havana",
                      "America/Nuuk", "Pacific/Apia"}) {
        const auto c = calendarOf(zone);
        for (D day(1985, 1, 1); day.year() < 2025; day = *c.dateOnlyByAddingDays(1, day)) {
            const auto start = *c.dateForStartOfDateOnly(day), end = *c.dateForEndOfDateOnly(day);
            ASSERT_TRUE(c.dateOnlyForDate(start - 1us) < day && c.dateForDateOnly(day) == start);
            ASSERT_GT(c.dateOnlyForDate(end + 1s), day) << zone;
            if (end < start && day == D(2011, 12, 30)) continue;  // when the date line moved
            std::optional<EXTimeOnly> time;
            const auto any = start + std::chrono::microseconds(random() % (end - start).count());
            for (auto moment : {start, end, any})
                ASSERT_EQ(c.dateOnlyAndTimeOnly(&time, moment), day) << zone;
            for (auto moment : {c.dateForDateOnly(day, time), c.dateForTimeOnly(time)})
                ASSERT_EQ(c.timeOnlyForDate(moment), time);
            const auto minute = *c.dateByStrippingSecondsFromDate(any);
            ASSERT_TRUE(minute <= any && any - minute < 1min && (minute - start) % 1min == 0s);
            ASSERT_TRUE(c.dateForEndOfDateOnly(D::withNumber(random())));
        }
    }
}

}  // namespace corvane
