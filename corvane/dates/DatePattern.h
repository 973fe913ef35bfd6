// A locale's way of writing a date, compiled for reading it back strictly: order, separators and
// names are the pattern's, and the whole text must be used. Immutable; any thread.
#pragma once

#include "corvane/dates/DateNameTables.h"
#include "corvane/platform/TypedText.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What a text says of a date. Month and day are within 1 to 12 and 1 to 31.
struct DateFields {
    std::optional<std::int64_t> year = std::nullopt;
    int month = 0;
    int day = 0;

    friend bool operator==(const DateFields&, const DateFields&) = default;
};

/// What a pattern leaves open:
/// - the letters' count is for writing; a day or month is read from one or two digits,
/// - a year is four digits as they stand, or two for a year from 1950 to 2049,
/// - a name may be any of its table's, and a weekday need not be that of the day,
/// - blanks beside punctuation may be left out, and so may whatever stands after the last field but
///   a bracket that must be closed ("10.3" for "10.3.").
///
///     auto pattern = DatePattern::compile("d. MMM yy", LetterCase::Usual).value();
///     pattern.match("10. mär 24", names)   // year 2024, month 3, day 10
///     pattern.match("10 mär 24", names)    // none
class DatePattern {
  public:
    /// Takes Unicode's pattern letters (UTS #35). None for a pattern with other fields than year,
    /// month, day and weekday, and for one without a month or a day.
    static std::optional<DatePattern> compile(std::string_view pattern,
                                              platform::LetterCase letterCase);

    /// Whether the pattern writes months by their narrow names.
    bool hasNarrowMonth() const { return hasNarrowMonth_; }

    /// Takes the text of a TypedText without blanks at its ends.
    std::optional<DateFields> match(std::string_view text, const DateNameTables& names) const;

  private:
    enum class Kind { Literal, Year, MonthNumber, MonthName, Day, Weekday };
    struct Part {
        Kind kind;
        std::string literal = {};
    };
    friend class DatePatternCompiler;
    friend class DatePatternMatcher;

    std::vector<Part> parts_;
    bool hasNarrowMonth_ = false;
    bool tailIsOptional_ = false;
};

}  // namespace corvane
