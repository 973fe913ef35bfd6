#include "corvane/dates/EXDateFactory.h"

#include "corvane/dates/EXCalendar.h"
#include "corvane/platform/CivilDays.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/IntegerMath.h"

namespace corvane {

namespace {

constexpr int kStandardHour = 8;
constexpr std::int64_t kDaysInWeek = 7;

platform::Instant now() {
    return platform::currentClock().now();
}

platform::CivilDay dayFromNow(std::int64_t days, const platform::Calendar& calendar) {
    return platform::addDays(calendar.dayOfInstant(now()), days);
}

platform::Instant standardizedDay(const platform::CivilDay& day,
                                  const platform::Calendar& calendar) {
    return calendar.instantFromComponents(
        {.year = day.year, .month = day.month, .day = day.day, .hour = kStandardHour});
}

/// None where the text has anything but digits.
std::optional<std::int64_t> numberOfDigits(std::string_view digits) {
    std::int64_t number = 0;
    for (char c : digits) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + (c - '0');
    }
    return number;
}

std::optional<platform::CivilDay> dayOfISOText(std::string_view text) {
    constexpr std::string_view kForm = "yyyy-MM-ddZ";
    if (text.size() != kForm.size() || text[4] != '-' || text[7] != '-' || text[10] != 'Z')
        return std::nullopt;
    const auto year = numberOfDigits(text.substr(0, 4));
    const auto month = numberOfDigits(text.substr(5, 2));
    const auto day = numberOfDigits(text.substr(8, 2));
    if (!year || !month || !day) return std::nullopt;
    const platform::CivilDay result{*year, *month, *day};
    return result.year > 0 && platform::exists(result) ? std::optional(result) : std::nullopt;
}

}  // namespace

std::optional<platform::DateComponents> EXDateFactory::standardizedComponentsFromDate(
    Date date, const Calendar& calendar) {
    if (!date) return std::nullopt;
    auto components = calendar.componentsFromInstant(*date);
    components.hour = components.minute = components.second = std::nullopt;
    return components;
}

EXDateFactory::Instant EXDateFactory::standardizedDateFromComponents(
    platform::DateComponents& components, const Calendar& calendar) {
    components.hour = kStandardHour;
    components.minute = 0;
    components.second = 0;
    return calendar.instantFromComponents(components);
}

EXDateFactory::Date EXDateFactory::standardizeDate(Date date, const Calendar& calendar) {
    if (!date) return std::nullopt;
    return standardizedDay(calendar.dayOfInstant(*date), calendar);
}

EXDateFactory::Date EXDateFactory::standardizedDateFromISODateOnlyString(
    const Calendar& calendar, std::optional<std::string_view> text) {
    const auto day = text ? dayOfISOText(*text) : std::nullopt;
    if (!day) return std::nullopt;
    return standardizeDate(calendar.startOfDay(*day), calendar);
}

EXDateFactory::Date EXDateFactory::startOfDate(Date date, const Calendar& calendar) {
    if (!date) return std::nullopt;
    return calendar.startOfDay(calendar.dayOfInstant(*date));
}

EXDateFactory::Date EXDateFactory::endOfDate(Date date, const Calendar& calendar) {
    if (!date) return std::nullopt;
    return calendar.endOfDay(calendar.dayOfInstant(*date));
}

EXDateFactory::Date EXDateFactory::mergeDate(Date date, Date time, const Calendar& calendar) {
    if (!date || !time) return std::nullopt;
    auto civil = calendar.timeZone().civilFromInstant(*time);
    const auto day = calendar.dayOfInstant(*date);
    return calendar.instantFromComponents({.year = day.year,
                                           .month = day.month,
                                           .day = day.day,
                                           .hour = civil.hour,
                                           .minute = civil.minute,
                                           .second = civil.second});
}

EXDateFactory::Instant EXDateFactory::today(const Calendar& calendar) {
    return standardizedDay(dayFromNow(0, calendar), calendar);
}

EXDateFactory::Instant EXDateFactory::startOfToday(const Calendar& calendar) {
    return calendar.startOfDay(dayFromNow(0, calendar));
}

EXDateFactory::Instant EXDateFactory::endOfToday(const Calendar& calendar) {
    return endOfNextDays(0, calendar);
}

EXDateFactory::Instant EXDateFactory::tomorrow(const Calendar& calendar) {
    return standardizedDay(dayFromNow(1, calendar), calendar);
}

EXDateFactory::Instant EXDateFactory::startOfTomorrow(const Calendar& calendar) {
    return calendar.startOfDay(dayFromNow(1, calendar));
}

EXDateFactory::Instant EXDateFactory::endOfTomorrow(const Calendar& calendar) {
    return endOfNextDays(1, calendar);
}

EXDateFactory::Instant EXDateFactory::dayAfterTomorrow(const Calendar& calendar) {
    return standardizedDay(dayFromNow(2, calendar), calendar);
}

EXDateFactory::Instant EXDateFactory::startOfDayAfterTomorrow(const Calendar& calendar) {
    return calendar.startOfDay(dayFromNow(2, calendar));
}

EXDateFactory::Instant EXDateFactory::endOfYesterday(const Calendar& calendar) {
    return endOfNextDays(-1, calendar);
}

EXDateFactory::Instant EXDateFactory::endOfNextDays(std::int64_t n, const Calendar& calendar) {
    return calendar.endOfDay(dayFromNow(n, calendar));
}

bool EXDateFactory::isToday(const Calendar& calendar, Date date) {
    return date && calendar.dayOfInstant(*date) == dayFromNow(0, calendar);
}

bool EXDateFactory::isTomorrow(const Calendar& calendar, Date date) {
    return daysFromDate(calendar, now(), date) == 1;
}

std::int64_t EXDateFactory::daysFromDate(const Calendar& calendar, Date from, Date to) {
    if (!from || !to) return 0;
    return platform::dayNumber(calendar.dayOfInstant(*to)) -
           platform::dayNumber(calendar.dayOfInstant(*from));
}

EXDateFactory::Date EXDateFactory::dateByAddingDays(const Calendar& calendar, std::int64_t n,
                                                    Date date) {
    if (!date) return std::nullopt;
    return calendar.addDays(*date, n);
}

EXDateFactory::Date EXDateFactory::dateByAddingWeeks(const Calendar& calendar, std::int64_t n,
                                                     Date date) {
    return dateByAddingDays(calendar, platform::saturatingProduct(n, kDaysInWeek), date);
}

int EXDateFactory::daysFromFirstWeekdayToDate(const Calendar& calendar, Date date) {
    if (!date) return 0;
    return EXCalendar::weekdaysFromWeekday(calendar.firstWeekday(),
                                           platform::weekday(calendar.dayOfInstant(*date)));
}

}  // namespace corvane
