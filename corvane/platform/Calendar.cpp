#include "corvane/platform/Calendar.h"

#include "corvane/platform/IntegerMath.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <utility>

namespace corvane::platform {

namespace {

/// The rules of the locale that this thread asked for last; the locale data take too long to read
/// them for every question.
const WeekRules& knownWeekRules(const Locale& locale) {
    thread_local std::optional<std::pair<Locale, WeekRules>> latest;
    if (!latest || latest->first != locale) latest.emplace(locale, weekRulesOfLocale(locale));
    return latest->second;
}

bool isNumberInWeek(int number) {
    return number >= 1 && number <= 7;
}

/// Leaves in `field` what lies within its range and moves the rest to the field above.
void carry(std::int64_t& field, std::int64_t range, std::int64_t& above) {
    above = saturatingSum(above, floorQuotient(field, range));
    field = floorRemainder(field, range);
}

/// Of a day that exists.
CivilTime civilTime(const CivilDay& day, int hour, int minute, int second) {
    return {day.year, static_cast<int>(day.month), static_cast<int>(day.day), hour, minute, second};
}

DateComponents componentsOfCivil(const CivilTime& civil) {
    return {.year = civil.year,
            .month = civil.month,
            .day = civil.day,
            .hour = civil.hour,
            .minute = civil.minute,
            .second = civil.second};
}

std::chrono::microseconds fractionOfSecond(Instant instant) {
    return std::chrono::microseconds(
        floorRemainder(instant.time_since_epoch().count(), std::micro::den));
}

}  // namespace

Calendar::Calendar(TimeZone zone, Locale locale)
    : zone_(std::move(zone)), locale_(std::move(locale)) {}

Calendar::Calendar(TimeZone zone, Locale locale, WeekRules rules)
    : zone_(std::move(zone)), locale_(std::move(locale)), rules_(rules) {
    if (!isNumberInWeek(rules.firstWeekday) || !isNumberInWeek(rules.minimalDaysInFirstWeek))
        throw std::invalid_argument("week rules count from 1 to 7");
}

Calendar Calendar::current() {
    return {TimeZone::current(), currentLocale()};
}

WeekRules Calendar::weekRules() const {
    return rules_ ? *rules_ : knownWeekRules(locale_);
}

DateComponents Calendar::componentsFromInstant(Instant instant) const {
    auto components = componentsOfCivil(zone_.civilFromInstant(instant));
    const CivilDay day{*components.year, *components.month, *components.day};
    components.weekday = weekday(day);
    components.weekOfYear = weekOfYear(day);
    return components;
}

Instant Calendar::instantFromComponents(const DateComponents& components,
                                        RepeatedTime repeated) const {
    auto second = components.second.value_or(0);
    auto minute = components.minute.value_or(0);
    auto hour = components.hour.value_or(0);
    auto day = components.day.value_or(1);
    carry(second, 60, minute);
    carry(minute, 60, hour);
    carry(hour, 24, day);
    const auto real = normalized({components.year.value_or(1), components.month.value_or(1), day});
    return zone_.instantFromCivil(
        civilTime(real, static_cast<int>(hour), static_cast<int>(minute), static_cast<int>(second)),
        repeated);
}

CivilDay Calendar::dayOfInstant(Instant instant) const {
    const auto civil = zone_.civilFromInstant(instant);
    return {civil.year, civil.month, civil.day};
}

Instant Calendar::startOfDay(const CivilDay& day) const {
    return zone_.instantFromCivil(civilTime(normalized(day), 0, 0, 0));
}

Instant Calendar::endOfDay(const CivilDay& day) const {
    const auto civil = civilTime(normalized(day), 23, 59, 59);
    const auto end = zone_.instantFromCivil(civil, RepeatedTime::Second);
    const bool skipped = end > Instant::min() && zone_.civilFromInstant(end) > civil;
    return skipped ? end - std::chrono::seconds(1) : end;
}

Instant Calendar::addDays(Instant instant, std::int64_t days) const {
    if (days == 0) return instant;
    auto components = componentsOfCivil(zone_.civilFromInstant(instant));
    components.day = saturatingSum(*components.day, days);
    const auto fraction = fractionOfSecond(instant);
    return std::min(instantFromComponents(components), Instant::max() - fraction) + fraction;
}

bool Calendar::isInWeekend(const CivilDay& day) const {
    return weekRules().weekend[static_cast<std::size_t>(weekday(day) - 1)];
}

int Calendar::weekOfYear(const CivilDay& day) const {
    const auto rules = weekRules();
    return platform::weekOfYear(day, rules.firstWeekday, rules.minimalDaysInFirstWeek);
}

}  // namespace corvane::platform
