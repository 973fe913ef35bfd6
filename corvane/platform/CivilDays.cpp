#include "corvane/platform/CivilDays.h"

#include "corvane/platform/IntegerMath.h"

#include <algorithm>

namespace corvane::platform {

namespace {

constexpr std::int64_t kDaysInWeek = 7;
constexpr std::int64_t kMonthsInYear = 12;

// After which leap years repeat.
constexpr std::int64_t kYearsInCycle = 400;
constexpr std::int64_t kDaysInCycle = 146'097;

// Years are counted from March on, so that the leap day is the last one and the lengths of the
// months before it follow one line, of 153 days in five months.
constexpr std::int64_t kFirstCountedMonth = 3;
constexpr std::int64_t kDaysInFiveMonths = 153;
constexpr std::int64_t kDaysBefore1970 = 719'468;  // since March 1 of year 0

// Outside the years that exist, so that a day counted back from there may still exist, and inside
// those whose days fit 64 bits.
constexpr std::int64_t kFarthestCountedYear = std::int64_t{1} << 53;

constexpr int kThursday = 5;  // 1970-01-01

/// Of a month from 1 to 12 in a year up to the farthest counted one.
constexpr std::int64_t numberOfFirstDay(std::int64_t year, std::int64_t month) {
    const bool beforeMarch = month < kFirstCountedMonth;
    year -= beforeMarch ? 1 : 0;
    month += (beforeMarch ? kMonthsInYear : 0) - kFirstCountedMonth;
    const auto cycle = floorQuotient(year, kYearsInCycle);
    const auto yearOfCycle = year - cycle * kYearsInCycle;
    const auto dayOfYear = (kDaysInFiveMonths * month + 2) / 5;
    const auto dayOfCycle = yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;
    return cycle * kDaysInCycle + dayOfCycle - kDaysBefore1970;
}

constexpr std::int64_t kFirstNumber = numberOfFirstDay(-kFarthestYear, 1);
constexpr std::int64_t kLastNumber = numberOfFirstDay(kFarthestYear + 1, 1) - 1;

constexpr bool isLeapYear(std::int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % kYearsInCycle == 0);
}

constexpr int lengthOfMonth(std::int64_t year, std::int64_t month) {
    if (month == 2) return isLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// The first day of the week 1 that lies at the start of the year.
std::int64_t startOfFirstWeek(std::int64_t year, int firstWeekday, int minimalDays) {
    const auto newYear = dayNumber({year, 1, 1});
    const auto daysOfOldYear =
        floorRemainder(std::int64_t{weekday({year, 1, 1})} - firstWeekday, kDaysInWeek);
    const auto start = newYear - daysOfOldYear;
    return kDaysInWeek - daysOfOldYear >= minimalDays ? start : start + kDaysInWeek;
}

}  // namespace

std::int64_t dayNumber(const CivilDay& day) {
    const auto months = saturatingSum(day.month, -1);
    auto year = saturatingSum(day.year, floorQuotient(months, kMonthsInYear));
    year = std::clamp(year, -kFarthestCountedYear, kFarthestCountedYear);
    const auto first = numberOfFirstDay(year, floorRemainder(months, kMonthsInYear) + 1);
    const auto number = saturatingSum(first, saturatingSum(day.day, -1));
    return std::clamp(number, kFirstNumber, kLastNumber);
}

CivilDay civilDayFromNumber(std::int64_t number) {
    const auto days = std::clamp(number, kFirstNumber, kLastNumber) + kDaysBefore1970;
    const auto cycle = floorQuotient(days, kDaysInCycle);
    const auto dayOfCycle = days - cycle * kDaysInCycle;
    // Without the leap days before it: one in four years but the hundredth, and the last day.
    const auto yearOfCycle =
        (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36'524 - dayOfCycle / 146'096) / 365;
    const auto dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    const auto countedMonth = (5 * dayOfYear + 2) / kDaysInFiveMonths;
    const bool beforeMarch = countedMonth >= kMonthsInYear - (kFirstCountedMonth - 1);
    return {cycle * kYearsInCycle + yearOfCycle + (beforeMarch ? 1 : 0),
            countedMonth + kFirstCountedMonth - (beforeMarch ? kMonthsInYear : 0),
            dayOfYear - (kDaysInFiveMonths * countedMonth + 2) / 5 + 1};
}

CivilDay normalized(const CivilDay& day) {
    return exists(day) ? day : civilDayFromNumber(dayNumber(day));
}

bool exists(const CivilDay& day) {
    return day.year >= -kFarthestYear && day.year <= kFarthestYear && day.month >= 1 &&
           day.month <= kMonthsInYear && day.day >= 1 &&
           day.day <= lengthOfMonth(day.year, day.month);
}

CivilDay addDays(const CivilDay& day, std::int64_t days) {
    return civilDayFromNumber(saturatingSum(dayNumber(day), days));
}

CivilDay addWeeks(const CivilDay& day, std::int64_t weeks) {
    return addDays(day, saturatingProduct(weeks, kDaysInWeek));
}

CivilDay addMonths(const CivilDay& day, std::int64_t months) {
    const auto from = normalized(day);
    const auto month = saturatingSum(from.year * kMonthsInYear + from.month - 1, months);
    CivilDay result{floorQuotient(month, kMonthsInYear), floorRemainder(month, kMonthsInYear) + 1,
                    from.day};
    result.day = std::min<std::int64_t>(result.day, lengthOfMonth(result.year, result.month));
    return normalized(result);
}

CivilDay addYears(const CivilDay& day, std::int64_t years) {
    return addMonths(day, saturatingProduct(years, kMonthsInYear));
}

int weekday(const CivilDay& day) {
    return static_cast<int>(floorRemainder(dayNumber(day) + kThursday - 1, kDaysInWeek)) + 1;
}

int daysInMonth(const CivilDay& day) {
    const auto inside = normalized(day);
    return lengthOfMonth(inside.year, inside.month);
}

int weekOfYear(const CivilDay& day, int firstWeekday, int minimalDays) {
    const auto number = dayNumber(day);
    const auto year = normalized(day).year;
    auto start = startOfFirstWeek(year + 1, firstWeekday, minimalDays);
    for (auto earlier : {year, year - 1})
        if (number < start) start = startOfFirstWeek(earlier, firstWeekday, minimalDays);
    return static_cast<int>((number - start) / kDaysInWeek) + 1;
}

}  // namespace corvane::platform
