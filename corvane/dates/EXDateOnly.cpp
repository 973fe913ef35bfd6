#include "corvane/dates/EXDateOnly.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/DateComponents.h"
#include "corvane/platform/TextScanner.h"
#include "corvane/platform/TimeZone.h"

#include <fmt/format.h>

#include <ostream>

namespace corvane {

namespace {

EXDateOnly dayOfCivil(const platform::CivilTime& civil) {
    return {civil.year, civil.month, civil.day};
}

/// REQUIRES: 0 <= number < 100.
void writeTwoDigits(char* to, std::int64_t number) {
    to[0] = static_cast<char>('0' + number / 10);
    to[1] = static_cast<char>('0' + number % 10);
}

}  // namespace

EXDateOnly::EXDateOnly(const platform::DateComponents& components)
    : EXDateOnly(components.year.value_or(0), components.month.value_or(0),
                 components.day.value_or(0)) {}

EXDateOnly::EXDateOnly(std::optional<Instant> date)
    : EXDateOnly(dayOfCivil(platform::TimeZone::current().civilFromInstant(
          date ? *date : platform::currentClock().now()))) {}

std::optional<EXDateOnly> EXDateOnly::dateOnlyFromNumber(std::optional<std::int64_t> number) {
    if (!number) return std::nullopt;
    return withIntegerValue(*number);
}

std::optional<EXDateOnly> EXDateOnly::dateOnlyFromDateComponents(
    const std::optional<platform::DateComponents>& components) {
    if (!components) return std::nullopt;
    return EXDateOnly(*components);
}

std::optional<EXDateOnly> EXDateOnly::dateOnlyFromDate(std::optional<Instant> date) {
    if (!date) return std::nullopt;
    return EXDateOnly(date);
}

std::optional<std::int64_t> EXDateOnly::numberFromDateOnly(std::optional<EXDateOnly> day) {
    if (!day) return std::nullopt;
    return day->number();
}

std::optional<EXDateOnly::Instant> EXDateOnly::dateFromDateOnly(std::optional<EXDateOnly> day) {
    if (!day) return std::nullopt;
    return day->date();
}

std::optional<std::string> EXDateOnly::stringFromDateOnly(std::optional<EXDateOnly> day) {
    if (!day) return std::nullopt;
    return day->isoString();
}

std::optional<EXDateOnly> EXDateOnly::dateOnlyFromString(std::optional<std::string_view> text) {
    if (!text) return std::nullopt;
    platform::TextScanner scanner(*text);
    auto year = scanner.scanInteger();
    auto month = scanner.scanIntegerAfter('-');
    auto day = scanner.scanIntegerAfter('-');
    if (!year || !month || !day) return std::nullopt;
    if (*month < 1 || *month > 12 || *day < 1 || *day > 31) return std::nullopt;
    return EXDateOnly(*year, *month, *day);
}

EXDateOnly::Instant EXDateOnly::date() const {
    return platform::TimeZone::current().instantFromCivil({year(), month(), day(), 12});
}

std::string EXDateOnly::isoString() const {
    const bool isOfTenPlaces = year() >= 0 && year() <= 9999 && month() < 100 && day() < 100;
    if (!isOfTenPlaces) return fmt::format("{:04d}-{:02d}-{:02d}", year(), month(), day());
    // Exports write thousands of them.
    char text[] = "0000-00-00";
    writeTwoDigits(text, year() / 100);
    writeTwoDigits(text + 2, year() % 100);
    writeTwoDigits(text + 5, month());
    writeTwoDigits(text + 8, day());
    return {text, sizeof text - 1};
}

std::string EXDateOnly::description() const {
    return fmt::format("{}-{:02d}-{:02d}", year(), month(), day());
}

std::ostream& operator<<(std::ostream& stream, EXDateOnly day) {
    return stream << day.description();
}

}  // namespace corvane
