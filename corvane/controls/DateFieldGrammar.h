// The days that people type into a date field, in one locale: English words beside the locale's
// own, weekdays that always lie ahead, dates with and without a year; and back from a day near
// today to its word. Immutable once made, which takes a millisecond; any thread, as far as the
// DayNames passed allow.
#pragma once

#include "corvane/dates/DateNameTables.h"
#include "corvane/dates/DatePattern.h"
#include "corvane/dates/DayNames.h"
#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/WordTable.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/TypedText.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Not the grammar of day-only fields, which is DateCommandGrammar: there a weekday may be today,
/// and English counts in English only.
///
///     DateFieldGrammar grammar(platform::Locale("de_DE"));
///     const EXDateOnly today(2026, 3, 4);             // a Wednesday
///     grammar.dayOfCommand("Mi", today)               // 2026-03-11, as for "wed"
///     grammar.dayOfCommand("tomorrow", today)         // 2026-03-05
///     grammar.dayOfCommand("5.3.", today)             // none: no word
///     grammar.dayOfDate("3.3.", today)                // 2027-03-03
///     grammar.word(EXDateOnly(2026, 3, 6), today)     // "Freitag"
class DateFieldGrammar {
  public:
    using DateOnly = std::optional<EXDateOnly>;

    explicit DateFieldGrammar(platform::Locale locale);

    const platform::Locale& locale() const { return locale_; }

    /// Words alone: the names given, "today", "tod", "tomorrow" and "tom", weekdays.
    DateOnly dayOfCommand(std::string_view text, EXDateOnly today,
                          const DayNames& names = {}) const;

    /// Dates alone. One without a year means today or a day ahead; where that makes February 29 one
    /// of a year without it, March 1. A day beyond its month's end runs over where the month is
    /// named and the year given, and is no day otherwise.
    DateOnly dayOfDate(std::string_view text, EXDateOnly today) const;

    /// The names of today and tomorrow where they are set, the weekday for the five days after;
    /// none for other days.
    std::optional<std::string> word(EXDateOnly day, EXDateOnly today,
                                    const DayNames& names = {}) const;

    /// Sunday first, in the form in which typed words are compared.
    const std::array<std::string, 7>& weekdayNames() const { return weekdayNames_; }
    const std::array<std::string, 7>& weekdayShortNames() const { return weekdayShortNames_; }

  private:
    struct InputPattern {
        DatePattern pattern;
        bool isLenient;
    };

    void addWeekdays();
    void addPatterns();
    std::optional<int> daysAhead(std::string_view text, std::string_view typed,
                                 const DayNames& names) const;
    std::optional<int> weekday(std::string_view english, std::string_view typed) const;

    platform::Locale locale_;
    platform::LetterCase letterCase_;
    std::vector<InputPattern> patterns_;
    std::shared_ptr<const DateNameTables> names_;
    std::array<std::string, 7> shownWeekdays_;
    std::array<std::string, 7> weekdayNames_;
    std::array<std::string, 7> weekdayShortNames_;
    WordTable localizedWeekdays_;
};

}  // namespace corvane
