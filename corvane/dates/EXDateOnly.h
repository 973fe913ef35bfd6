// A calendar day without time of day or time zone: a due day, the reference day of a repeat.
// A plain value, usable on any thread; arithmetic on days belongs to EXCalendar.
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

namespace corvane::platform {
struct DateComponents;
}

namespace corvane {

/// Regular, ordered by calendar for years from 0 on. The default value is 0, "no day".
///
///     EXDateOnly day(2024, 3, 5);
///     day.integerValue()                               // 0x7E80305
///     day.isoString()                                  // "2024-03-05"
///     day < EXDateOnly(2024, 12, 31)                   // true
///     EXDateOnly::dateOnlyFromString(" 2024-3-5 ")     // day
///     EXDateOnly::dateOnlyFromString("2024-13-01")     // none
///     EXDateOnly::dateOnlyFromString("2023-02-31")     // EXDateOnly(2023, 2, 31), as typed
class EXDateOnly : public PackedParts<EXDateOnly> {
  public:
    using Instant = std::chrono::sys_time<std::chrono::microseconds>;  // platform::Instant

    /// Names of the keyed archive's form. They must not change: archives hold them.
    static constexpr std::string_view kArchiveClassName = "EXDateOnly";
    static constexpr std::string_view kEncodedValueKey = "EXDateOnlyEncodedValue";
    static constexpr bool supportsSecureCoding = true;

    constexpr EXDateOnly() = default;

    /// Packs the parts without a range check.
    constexpr EXDateOnly(std::int64_t year, std::int64_t month, std::int64_t day)
        : EXDateOnly(Packed{}, encodedValueForYear(year, month, day)) {}

    /// Absent components count as 0.
    explicit EXDateOnly(const platform::DateComponents& components);

    /// The day of the instant in the current time zone; none means now.
    explicit EXDateOnly(std::optional<Instant> date);

    static constexpr EXDateOnly withIntegerValue(std::int64_t value) { return {Packed{}, value}; }
    static constexpr EXDateOnly withNumber(std::optional<std::int64_t> number) {
        return withIntegerValue(number.value_or(0));
    }

    static constexpr std::int64_t encodedValueForYear(std::int64_t year, std::int64_t month,
                                                      std::int64_t day) {
        return packParts(year, month, day);
    }

    static constexpr EXDateOnly dateOnlyWithYear(std::int64_t year, std::int64_t month,
                                                 std::int64_t day) {
        return {year, month, day};
    }
    static constexpr EXDateOnly dateOnlyWithIntegerValue(std::int64_t value) {
        return withIntegerValue(value);
    }

    /// Conversions that give nothing for nothing.
    static std::optional<EXDateOnly> dateOnlyFromNumber(std::optional<std::int64_t> number);
    static std::optional<EXDateOnly> dateOnlyFromDateComponents(
        const std::optional<platform::DateComponents>& components);
    static std::optional<EXDateOnly> dateOnlyFromDate(std::optional<Instant> date);
    static std::optional<std::int64_t> numberFromDateOnly(std::optional<EXDateOnly> day);
    static std::optional<Instant> dateFromDateOnly(std::optional<EXDateOnly> day);
    static std::optional<std::string> stringFromDateOnly(std::optional<EXDateOnly> day);

    /// Reads "year-month-day"; white space may stand before each part, text after the day is
    /// ignored. Month must be 1 to 12 and day 1 to 31; the day need not exist in the month.
    static std::optional<EXDateOnly> dateOnlyFromString(std::optional<std::string_view> text);

    /// Below year 0 only the year reads back: month and day are then the stored bytes, which the
    /// sign has changed.
    constexpr std::int64_t year() const { return high(); }
    constexpr int month() const { return middle(); }
    constexpr int day() const { return low(); }

    /// Noon of the day in the current time zone. A day beyond its month runs on into the next.
    Instant date() const;

    /// "2024-03-05"; the year has at least four places.
    std::string isoString() const;

    /// As isoString(), but with the year unpadded; for logs.
    std::string description() const;

  private:
    struct Packed {};
    constexpr EXDateOnly(Packed, std::int64_t value) : PackedParts(value) {}
};

/// Writes the description.
std::ostream& operator<<(std::ostream& stream, EXDateOnly day);

}  // namespace corvane

template <>
struct std::hash<corvane::EXDateOnly> {
    constexpr std::size_t operator()(corvane::EXDateOnly day) const noexcept { return day.hash(); }
};
