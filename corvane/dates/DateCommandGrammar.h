// The days that people name by typing, in one locale: words, weekdays, dates with and without a
// year; and back from a day to its word. Immutable once made, which takes a millisecond; any
// thread, as far as the DayNames passed allow.
#pragma once

#include "corvane/dates/DateNameTables.h"
#include "corvane/dates/DatePattern.h"
#include "corvane/dates/DayCommand.h"
#include "corvane/dates/DayNames.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/WordTable.h"
#include "corvane/toolkit/EXBimap.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

///     DateCommandGrammar grammar(EXCalendar(platform::Calendar(zone, Locale("en_GB"))));
///     const EXDateOnly today(2024, 6, 15);               // a Saturday
///     grammar.parse("5/3/24", today)                     // 2024-03-05
///     grammar.parse(" 5 SEPT ", today)                   // 2024-09-05
///     grammar.parse("10 Mar", today)                     // 2025-03-10, the next one
///     grammar.parse("sat", today)                        // 2024-06-15
///     grammar.parse("31 Feb", today)                     // none
///     grammar.word(EXDateOnly(2024, 6, 18), today)       // "Tuesday"
class DateCommandGrammar {
  public:
    using DateOnly = std::optional<EXDateOnly>;

    explicit DateCommandGrammar(EXCalendar calendar);

    /// What the text says, whatever day it is. The first of these that can read it: the names of
    /// today and tomorrow, a weekday's short and full name, the patterns in their order.
    std::optional<DayCommand> read(std::string_view text, const DayNames& names = {}) const;

    /// The words alone, without the patterns.
    std::optional<DayCommand> readWord(std::string_view text, const DayNames& names = {}) const;

    /// The day that the text names, seen from `today`.
    DateOnly parse(std::string_view text, EXDateOnly today, const DayNames& names = {}) const;

    /// Today's and tomorrow's name where they are set, a weekday's full name for the five days
    /// after; none for other days. An absent day counts as today.
    std::optional<std::string> word(DateOnly day, EXDateOnly today,
                                    const DayNames& names = {}) const;

    const EXCalendar& calendar() const { return calendar_; }

    /// The locale's patterns: two with a year, "dMyy" and "dMMMyy", then "dM", "dMMM", "EdMMM".
    const std::vector<std::string>& patterns() const { return patterns_; }

    /// By weekday, 1 to 7, the full name as the locale writes it; the first place stays empty.
    const std::array<std::string, 8>& weekdayNameMap() const { return weekdayNameMap_; }

    /// Weekdays by names as typed, in lower case: the full names, and the short ones with and
    /// without their full stop.
    const EXBimap<std::string, int>& weekdayNameBimap() const { return weekdayNameBimap_; }
    const std::unordered_map<std::string, int>& weekdayShortNameMap() const {
        return weekdayShortNameMap_;
    }

  private:
    void addWeekdayNames();
    void addFullName(const std::string& name, int weekday);
    void addShortName(const std::string& name, int weekday);
    void addPatterns();
    std::optional<DayCommand> readTyped(std::string_view typed, const DayNames& names) const;
    std::optional<DayCommand> readTypedWord(std::string_view typed, const DayNames& names) const;

    EXCalendar calendar_;
    platform::LetterCase letterCase_;
    std::vector<std::string> patterns_;
    std::vector<DatePattern> compiledPatterns_;
    DateNameTables names_;
    std::array<std::string, 8> weekdayNameMap_;
    EXBimap<std::string, int> weekdayNameBimap_;
    std::unordered_map<std::string, int> weekdayShortNameMap_;
    WordTable weekdayWords_;  ///< Both kinds of names, the short ones first.
};

}  // namespace corvane
