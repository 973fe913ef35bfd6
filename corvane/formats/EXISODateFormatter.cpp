#include "corvane/formats/EXISODateFormatter.h"

#include "corvane/platform/CivilDays.h"
#include "corvane/platform/IntegerMath.h"

#include <cstdint>
#include <cstdlib>

namespace corvane {

namespace {

using platform::CivilDay;
using platform::Instant;

constexpr std::size_t kFewestYearDigits = 4;
constexpr std::size_t kMostYearDigits = 6;
constexpr std::int64_t kSecondsOfDay = 86400;

// The whole seconds that an Instant can hold; conversions of durations truncate towards 0.
constexpr std::int64_t kFirstSecond =
    std::chrono::duration_cast<std::chrono::seconds>(Instant::min().time_since_epoch()).count();
constexpr std::int64_t kLastSecond =
    std::chrono::duration_cast<std::chrono::seconds>(Instant::max().time_since_epoch()).count();

class Output {
  public:
    explicit Output(char* at) : at_(at) {}
    void put(char c) { *at_++ = c; }
    void put(std::int64_t number, std::size_t digits) {
        at_ += digits;
        for (char* place = at_; digits > 0; --digits, number /= 10)
            *--place = static_cast<char>('0' + number % 10);
    }
    char* end() const { return at_; }

  private:
    char* at_;
};

class Input {
  public:
    explicit Input(std::string_view text) : rest_(text) {}

    bool skip(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    /// All digits that follow, which must be as many as told.
    std::optional<std::int64_t> number(std::size_t fewest, std::size_t most) {
        std::int64_t number = 0;
        std::size_t count = 0;
        for (; count < rest_.size() && rest_[count] >= '0' && rest_[count] <= '9'; ++count) {
            if (count == most) return std::nullopt;
            number = 10 * number + (rest_[count] - '0');
        }
        if (count < fewest || (count > kFewestYearDigits && rest_[0] == '0')) return std::nullopt;
        rest_.remove_prefix(count);
        return number;
    }

    /// Two digits after the separator that make a number below the limit.
    std::optional<std::int64_t> partAfter(char separator, std::int64_t limit) {
        if (!skip(separator)) return std::nullopt;
        const auto part = number(2, 2);
        return part && *part < limit ? part : std::nullopt;
    }

    bool isAtEnd() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

std::size_t digitsOfYear(std::int64_t year) {
    std::size_t digits = kFewestYearDigits;
    for (std::int64_t bound = 10'000; std::abs(year) >= bound; bound *= 10)
        ++digits;
    return digits;
}

}  // namespace

std::string EXISODateFormatter::stringFromDate(Instant date) const {
    Buffer buffer;
    return std::string(stringFromDate(date, buffer));
}

std::string_view EXISODateFormatter::stringFromDate(Instant date, Buffer& buffer) const {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date.time_since_epoch()).count();
    const auto ofDay = platform::floorRemainder(seconds, kSecondsOfDay);
    const auto day = platform::civilDayFromNumber(platform::floorQuotient(seconds, kSecondsOfDay));
    Output output(buffer.data());
    if (day.year < 0) output.put('-');
    output.put(std::abs(day.year), digitsOfYear(day.year));
    output.put('-');
    output.put(day.month, 2);
    output.put('-');
    output.put(day.day, 2);
    output.put('T');
    output.put(ofDay / 3600, 2);
    output.put(':');
    output.put(ofDay / 60 % 60, 2);
    output.put(':');
    output.put(ofDay % 60, 2);
    output.put('Z');
    return {buffer.data(), output.end()};
}

std::optional<Instant> EXISODateFormatter::dateFromString(std::string_view string) const {
    Input input(string);
    const bool isNegative = input.skip('-');
    const auto year = input.number(kFewestYearDigits, kMostYearDigits);
    const auto month = input.partAfter('-', 13);
    const auto day = input.partAfter('-', 32);
    const auto hour = input.partAfter('T', 24);
    const auto minute = input.partAfter(':', 60);
    const auto second = input.partAfter(':', 60);
    if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;
    if (!input.skip('Z') || !input.isAtEnd()) return std::nullopt;
    if (isNegative && *year == 0) return std::nullopt;

    const CivilDay civil{isNegative ? -*year : *year, *month, *day};
    if (!platform::exists(civil)) return std::nullopt;
    const auto seconds =
        platform::dayNumber(civil) * kSecondsOfDay + *hour * 3600 + *minute * 60 + *second;
    if (seconds < kFirstSecond || seconds > kLastSecond) return std::nullopt;
    return Instant(std::chrono::seconds(seconds));
}

}  // namespace corvane
