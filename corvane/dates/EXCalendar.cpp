#include "corvane/dates/EXCalendar.h"

#include "corvane/platform/CivilDays.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/IntegerMath.h"
#include "corvane/platform/LocaleData.h"

#include <utility>

namespace corvane {

namespace {

constexpr int kDaysInWeek = 7;
constexpr int kNoon = 12;

platform::CivilDay civilDay(EXDateOnly day) {
    return {day.year(), day.month(), day.day()};
}

EXDateOnly dateOnly(const platform::CivilDay& day) {
    return {day.year, day.month, day.day};
}

EXTimeOnly timeOnly(const platform::CivilTime& civil) {
    return {civil.hour, civil.minute, civil.second};
}

platform::Instant now() {
    return platform::currentClock().now();
}

}  // namespace

EXCalendar::EXCalendar(platform::Calendar calendar) : calendar_(std::move(calendar)) {}

EXCalendar EXCalendar::currentCalendar() {
    return EXCalendar(platform::Calendar::current());
}

EXCalendar::Date EXCalendar::dateByStrippingSecondsFromDate(Date date) const {
    if (!date) return std::nullopt;
    const auto& zone = calendar_.timeZone();
    auto civil = zone.civilFromInstant(*date);
    civil.second = 0;
    const auto second = zone.instantFromCivil(civil, platform::RepeatedTime::Second);
    return second <= *date ? second : zone.instantFromCivil(civil);
}

EXCalendar::DateOnly EXCalendar::dateOnlyForDate(Date date) const {
    if (!date) return std::nullopt;
    return dateOnly(calendar_.dayOfInstant(*date));
}

EXCalendar::TimeOnly EXCalendar::timeOnlyForDate(Date date) const {
    if (!date) return std::nullopt;
    return timeOnly(calendar_.timeZone().civilFromInstant(*date));
}

EXCalendar::DateOnly EXCalendar::dateOnlyAndTimeOnly(TimeOnly* time, Date date) const {
    if (time) *time = timeOnlyForDate(date);
    return dateOnlyForDate(date);
}

EXTimeOnly EXCalendar::timeOnlyForNow() const {
    return *timeOnlyForDate(now());
}

EXDateOnly EXCalendar::dateOnlyForToday() const {
    return *dateOnlyForDate(now());
}

EXDateOnly EXCalendar::dateOnlyForYesterday() const {
    return *dateOnlyByAddingDays(-1, dateOnlyForToday());
}

EXDateOnly EXCalendar::dateOnlyForTomorrow() const {
    return *dateOnlyByAddingDays(1, dateOnlyForToday());
}

EXCalendar::Date EXCalendar::dateForTimeOnly(TimeOnly time) const {
    if (!time) return std::nullopt;
    return calendar_.instantFromComponents(
        {.hour = time->hour(), .minute = time->minute(), .second = time->second()});
}

std::optional<platform::DateComponents> EXCalendar::dateComponentsForDateOnly(DateOnly day,
                                                                              TimeOnly time) const {
    if (!day) return std::nullopt;
    platform::DateComponents components{
        .year = day->year(), .month = day->month(), .day = day->day()};
    if (time) {
        components.hour = time->hour();
        components.minute = time->minute();
        components.second = time->second();
    }
    return components;
}

EXCalendar::Date EXCalendar::dateForDateOnly(DateOnly day, TimeOnly time) const {
    auto components = dateComponentsForDateOnly(day, time);
    if (!components) return std::nullopt;
    return calendar_.instantFromComponents(*components);
}

EXCalendar::Date EXCalendar::dateForStartOfDateOnly(DateOnly day) const {
    if (!day) return std::nullopt;
    return calendar_.startOfDay(civilDay(*day));
}

EXCalendar::Date EXCalendar::dateForEndOfDateOnly(DateOnly day) const {
    if (!day) return std::nullopt;
    return calendar_.endOfDay(civilDay(*day));
}

EXCalendar::DateOnly EXCalendar::normalizedDateOnly(DateOnly day) const {
    return dateOnlyForDate(dateForDateOnly(day));
}

EXCalendar::DateOnly EXCalendar::dateOnlyByAddingDays(std::int64_t n, DateOnly day) const {
    if (!day) return std::nullopt;
    return dateOnly(platform::addDays(civilDay(*day), n));
}

EXCalendar::DateOnly EXCalendar::dateOnlyByAddingWeeks(std::int64_t n, DateOnly day) const {
    if (!day) return std::nullopt;
    return dateOnly(platform::addWeeks(civilDay(*day), n));
}

EXCalendar::DateOnly EXCalendar::dateOnlyByAddingMonths(std::int64_t n, DateOnly day) const {
    if (!day) return std::nullopt;
    return dateOnly(platform::addMonths(civilDay(*day), n));
}

EXCalendar::DateOnly EXCalendar::dateOnlyByAddingYears(std::int64_t n, DateOnly day) const {
    if (!day) return std::nullopt;
    return dateOnly(platform::addYears(civilDay(*day), n));
}

std::int64_t EXCalendar::daysFromDateOnly(DateOnly a, DateOnly b) const {
    if (!a || !b) return 0;
    return platform::dayNumber(civilDay(*b)) - platform::dayNumber(civilDay(*a));
}

int EXCalendar::weekdayForDateOnly(DateOnly day) const {
    return day ? platform::weekday(civilDay(*day)) : 0;
}

int EXCalendar::nextWeekday(int weekday) {
    return static_cast<int>(platform::floorRemainder(weekday, kDaysInWeek)) + 1;
}

int EXCalendar::weekdaysFromWeekday(int a, int b) {
    return static_cast<int>(platform::floorRemainder(std::int64_t{b} - a, kDaysInWeek));
}

int EXCalendar::weekForDateOnly(DateOnly day) const {
    return day ? calendar_.weekOfYear(civilDay(*day)) : 0;
}

int EXCalendar::numberOfDaysInMonthForDateOnly(DateOnly day) const {
    return day ? platform::daysInMonth(civilDay(*day)) : 0;
}

bool EXCalendar::isDateOnlyInWeekend(DateOnly day) const {
    return day && calendar_.isInWeekend(civilDay(*day));
}

std::optional<std::string> EXCalendar::nameForMonthOfDateOnly(DateOnly day) const {
    if (!day) return std::nullopt;
    const auto month = platform::normalized(civilDay(*day)).month;
    auto names = platform::dateNamesOfLocale(calendar_.locale(), platform::NameLength::Full,
                                             platform::NameUse::InDate);
    return std::move(names.months[static_cast<std::size_t>(month - 1)]);
}

std::vector<std::string> EXCalendar::createWeekdayStringsWithDateFormat(
    std::string_view pattern) const {
    const platform::DateFormatter formatter(pattern, calendar_.locale());
    const auto today = dateOnlyForToday();
    const int ahead = weekdaysFromWeekday(weekdayForDateOnly(today), firstWeekday());
    std::vector<std::string> strings;
    for (int i = 0; i < kDaysInWeek; ++i) {
        const auto day = *dateOnlyByAddingDays(ahead + i, today);
        strings.push_back(formatter.stringFromCivil({day.year(), day.month(), day.day(), kNoon}));
    }
    return strings;
}

std::vector<std::string> EXCalendar::createWeekdayNames() const {
    return createWeekdayStringsWithDateFormat("EEEE");
}

std::vector<std::string> EXCalendar::createWeekdayShortNames() const {
    return createWeekdayStringsWithDateFormat("EEE");
}

std::vector<std::string> EXCalendar::createWeekdayInitials() const {
    return createWeekdayStringsWithDateFormat("EEEEE");
}

}  // namespace corvane
