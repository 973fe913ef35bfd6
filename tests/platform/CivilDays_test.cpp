#include "corvane/platform/CivilDays.h"

#include <cctz/civil_time.h>
#include <gtest/gtest.h>

#include <random>

namespace corvane::platform {
static CivilDay civil(const cctz::civil_day& day) {
    return {day.year(), day.month(), day.day()};
}

TEST(CivilDays, AgreeWithAnotherCalendar) {
    std::mt19937_64 random(1);
    auto number = [&](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
    for (int i = 0; i < 100'000; ++i) {
        const int days = number(-1'500'000, 3'000'000), n = number(-40'000, 40'000);
        const auto other = cctz::civil_day(1970, 1, 1) + days;
        const auto day = civilDayFromNumber(days);
        const int weekdayOfOther = (static_cast<int>(cctz::get_weekday(other)) + 1) % 7 + 1;
        ASSERT_TRUE(day == civil(other) && dayNumber(day) == days &&
                    weekday(day) == weekdayOfOther);
        const CivilDay overrun{day.year, number(-2, 15), number(-40, 40)};
        const auto real = civil(cctz::civil_day(overrun.year, overrun.month, overrun.day));
        ASSERT_TRUE(normalized(overrun) == real && exists(overrun) == (overrun == real));
        const auto month = cctz::civil_month(other) + n;
        const auto last = cctz::civil_day(month + 1) - 1;
        ASSERT_EQ(addMonths(day, n), civil(std::min(last, cctz::civil_day(month) + day.day - 1)));
        ASSERT_EQ(daysInMonth(civil(cctz::civil_day(month))), last.day());
        // A week belongs to the year that has its decisive day, the fourth by ISO 8601.
        const int first = number(1, 7), minimal = number(1, 7);
        const auto decisive = other - (weekdayOfOther - first + 7) % 7 + 7 - minimal;
        ASSERT_EQ(weekOfYear(day, first, minimal), (cctz::get_yearday(decisive) - 1) / 7 + 1);
    }
    const CivilDay first{-kFarthestYear, 1, 1}, last{kFarthestYear, 12, 31};
    const std::int64_t far[] = {INT64_MIN, -kFarthestYear - 1, 0, kFarthestYear + 1, INT64_MAX};
    for (int i = 0; i < 125; ++i)
        ASSERT_TRUE(exists(addYears({far[i % 5], far[i / 5 % 5], far[i / 25]}, far[i % 5])));
    EXPECT_TRUE(addWeeks(last, INT64_MIN) == first && addYears(first, INT64_MAX) == last);
}

}  // namespace corvane::platform
