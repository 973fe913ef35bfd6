// Arithmetic on days alone, in the Gregorian calendar extended both ways. No instant stands in
// between, so no change of the clocks can disturb it. Pure functions for any thread, with an answer
// for every argument.
#pragma once

#include <compare>
#include <cstdint>

namespace corvane::platform {

/// A day by year, month and day; the year before 1 is 0. As a result it always exists; as an
/// argument its parts may run over: February 31 is then March 2 or 3, month 13 next January.
struct CivilDay {
    std::int64_t year = 1970;
    std::int64_t month = 1;
    std::int64_t day = 1;

    friend constexpr auto operator<=>(const CivilDay&, const CivilDay&) = default;
};

/// Days are counted up to this year and, before 1, down to its negative: as far as a packed day
/// reaches. What lies beyond is the last or the first day within.
inline constexpr std::int64_t kFarthestYear = (std::int64_t{1} << 47) - 1;

///     normalized({2023, 2, 31})                             // {2023, 3, 3}
///     normalized({2024, 1, 0})                              // {2023, 12, 31}
///     addDays({2024, 3, 1}, -1)                             // {2024, 2, 29}
///     addMonths({2024, 1, 31}, 1)                           // {2024, 2, 29}
///     addMonths({2024, 3, 31}, -1)                          // {2024, 2, 29}
///     addYears({2024, 2, 29}, 1)                            // {2025, 2, 28}
///     dayNumber({2024, 3, 31}) - dayNumber({2024, 3, 30})   // 1
///     weekday({2024, 3, 5})                                 // 3, a Tuesday
///     daysInMonth({1900, 2, 1})                             // 28
///     weekOfYear({2027, 1, 1}, 2, 4)                        // 53, the ISO week

/// Days since 1970-01-01, negative before it.
std::int64_t dayNumber(const CivilDay& day);
CivilDay civilDayFromNumber(std::int64_t number);

CivilDay normalized(const CivilDay& day);

/// True where the year has the month and the month has the day; such a day is its own normal form.
bool exists(const CivilDay& day);

CivilDay addDays(const CivilDay& day, std::int64_t days);
CivilDay addWeeks(const CivilDay& day, std::int64_t weeks);

/// A day that the month reached lacks becomes its last one.
CivilDay addMonths(const CivilDay& day, std::int64_t months);
CivilDay addYears(const CivilDay& day, std::int64_t years);

/// 1 = Sunday to 7 = Saturday.
int weekday(const CivilDay& day);

/// 28 to 31, of the month that the day lies in.
int daysInMonth(const CivilDay& day);

/// The week of the year, 1 to 53: weeks begin on `firstWeekday`, and week 1 is the first one with
/// at least `minimalDays` days in the year. Days before it belong to the last week of the year
/// before, and the last days of a year may belong to week 1 of the next.
int weekOfYear(const CivilDay& day, int firstWeekday, int minimalDays);

}  // namespace corvane::platform
