// A wall-clock time of day without date or time zone, such as the time of a reminder.
// A plain value, usable on any thread.
#pragma once

#include "corvane/dates/PackedParts.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Regular, ordered by time for hours from 0 on. The default value is 0, which is midnight. It has
/// no archived form of its own: where it is stored, its number is.
///
///     EXTimeOnly time(8, 30, 15);
///     time.integerValue()                            // 0x81E0F
///     time.isoString()                               // "08:30:15"
///     time < EXTimeOnly(22, 0, 0)                    // true
///     EXTimeOnly::timeOnlyFromString("8:30:15")      // time
///     EXTimeOnly::timeOnlyFromString("8:30")         // none: all three parts are needed
class EXTimeOnly : public PackedParts<EXTimeOnly> {
  public:
    using Instant = std::chrono::sys_time<std::chrono::microseconds>;  // platform::Instant

    constexpr EXTimeOnly() = default;

    /// Packs the parts without a range check.
    constexpr EXTimeOnly(std::int64_t hour, std::int64_t minute, std::int64_t second)
        : EXTimeOnly(Packed{}, encodedValueForHour(hour, minute, second)) {}

    /// The time of day at the instant in the current time zone; none means now.
    explicit EXTimeOnly(std::optional<Instant> date);

    static constexpr EXTimeOnly withIntegerValue(std::int64_t value) { return {Packed{}, value}; }
    static constexpr EXTimeOnly withNumber(std::optional<std::int64_t> number) {
        return withIntegerValue(number.value_or(0));
    }

    static constexpr std::int64_t encodedValueForHour(std::int64_t hour, std::int64_t minute,
                                                      std::int64_t second) {
        return packParts(hour, minute, second);
    }

    static constexpr EXTimeOnly timeOnlyWithHour(std::int64_t hour, std::int64_t minute,
                                                 std::int64_t second) {
        return {hour, minute, second};
    }
    static constexpr EXTimeOnly timeOnlyWithIntegerValue(std::int64_t value) {
        return withIntegerValue(value);
    }

    /// Conversions that give nothing for nothing.
    static std::optional<EXTimeOnly> timeOnlyFromNumber(std::optional<std::int64_t> number);
    static std::optional<EXTimeOnly> timeOnlyFromDate(std::optional<Instant> date);
    static std::optional<std::int64_t> numberFromTimeOnly(std::optional<EXTimeOnly> time);
    static std::optional<Instant> dateFromTimeOnly(std::optional<EXTimeOnly> time);
    static std::optional<std::string> stringFromTimeOnly(std::optional<EXTimeOnly> time);

    /// Reads "hour:minute:second" on the 24-hour clock; white space may stand before each part,
    /// text after the second is ignored.
    static std::optional<EXTimeOnly> timeOnlyFromString(std::optional<std::string_view> text);

    /// Below hour 0 only the hour reads back, as with the parts of an EXDateOnly.
    constexpr std::int64_t hour() const { return high(); }
    constexpr int minute() const { return middle(); }
    constexpr int second() const { return low(); }

    /// This time of today, as the current clock and time zone have it.
    Instant date() const;

    /// "08:30:15"; the hour has at least two places.
    std::string isoString() const;

    /// As isoString(), but with the hour unpadded; for logs.
    std::string description() const;

  private:
    struct Packed {};
    constexpr EXTimeOnly(Packed, std::int64_t value) : PackedParts(value) {}
};

/// Writes the description.
std::ostream& operator<<(std::ostream& stream, EXTimeOnly time);

}  // namespace corvane

template <>
struct std::hash<corvane::EXTimeOnly> {
    constexpr std::size_t operator()(corvane::EXTimeOnly time) const noexcept {
        return time.hash();
    }
};
