#include "corvane/dates/EXTimeOnly.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/TextScanner.h"
#include "corvane/platform/TimeZone.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>

namespace corvane {

namespace {

// Hours that count up to the end of time all the same, yet fit the field.
constexpr std::int64_t kFarthestHour = 2'000'000'000;

EXTimeOnly timeOfCivil(const platform::CivilTime& civil) {
    return {civil.hour, civil.minute, civil.second};
}

}  // namespace

EXTimeOnly::EXTimeOnly(std::optional<Instant> date)
    : EXTimeOnly(timeOfCivil(platform::TimeZone::current().civilFromInstant(
          date ? *date : platform::currentClock().now()))) {}

std::optional<EXTimeOnly> EXTimeOnly::timeOnlyFromNumber(std::optional<std::int64_t> number) {
    if (!number) return std::nullopt;
    return withIntegerValue(*number);
}

std::optional<EXTimeOnly> EXTimeOnly::timeOnlyFromDate(std::optional<Instant> date) {
    if (!date) return std::nullopt;
    return EXTimeOnly(date);
}

std::optional<std::int64_t> EXTimeOnly::numberFromTimeOnly(std::optional<EXTimeOnly> time) {
    if (!time) return std::nullopt;
    return time->number();
}

std::optional<EXTimeOnly::Instant> EXTimeOnly::dateFromTimeOnly(std::optional<EXTimeOnly> time) {
    if (!time) return std::nullopt;
    return time->date();
}

std::optional<std::string> EXTimeOnly::stringFromTimeOnly(std::optional<EXTimeOnly> time) {
    if (!time) return std::nullopt;
    return time->isoString();
}

std::optional<EXTimeOnly> EXTimeOnly::timeOnlyFromString(std::optional<std::string_view> text) {
    if (!text) return std::nullopt;
    platform::TextScanner scanner(*text);
    auto hour = scanner.scanInteger();
    auto minute = scanner.scanIntegerAfter(':');
    auto second = scanner.scanIntegerAfter(':');
    if (!hour || !minute || !second) return std::nullopt;
    if (*hour < 0 || *hour > 23 || *minute < 0 || *minute > 59) return std::nullopt;
    if (*second < 0 || *second > 59) return std::nullopt;
    return EXTimeOnly(*hour, *minute, *second);
}

EXTimeOnly::Instant EXTimeOnly::date() const {
    const auto& zone = platform::TimeZone::current();
    auto civil = zone.civilFromInstant(platform::currentClock().now());
    civil.hour = static_cast<int>(std::clamp(hour(), -kFarthestHour, kFarthestHour));
    civil.minute = minute();
    civil.second = second();
    return zone.instantFromCivil(civil);
}

std::string EXTimeOnly::isoString() const {
    return fmt::format("{:02d}:{:02d}:{:02d}", hour(), minute(), second());
}

std::string EXTimeOnly::description() const {
    return fmt::format("{}:{:02d}:{:02d}", hour(), minute(), second());
}

std::ostream& operator<<(std::ostream& stream, EXTimeOnly time) {
    return stream << time.description();
}

}  // namespace corvane
