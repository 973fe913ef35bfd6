// Turns what users type into days, and days near today back into words, as the locale, calendar
// and first weekday have it that are in force at the first use. A class of static operations that
// take no lock: for one thread at a time.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/SettableDayNames.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class DateCommandGrammar;

/// Absent text gives nothing. Weekdays and dates are read as the locale writes them, in no other
/// language, and the stored form "2024-03-05" only where the locale has it: for that there is
/// EXDateOnly::dateOnlyFromString. Words for today and tomorrow are the names that the application
/// has set, one by one or all by takeNamesOfStringTables; without them there are none.
///
///     // on Saturday, June 15, 2024, in en_US
///     EXDateOnlyCommandParser::setTomorrowName("${Tomorrow}");
///     EXDateOnlyCommandParser::dateOnlyFromString("TOMORROW")               // 2024-06-16
///     EXDateOnlyCommandParser::dateOnlyFromString("Fri")                    // 2024-06-21
///     EXDateOnlyCommandParser::dateOnlyFromString("3/10")                   // 2025-03-10
///     EXDateOnlyCommandParser::dateOnlyFromCommand("3/10")                  // none: no word
///     EXDateOnlyCommandParser::commandForDateOnly(EXDateOnly(2024, 6, 21))  // "Friday"
///     EXDateOnlyCommandParser::commandForDateOnly(EXDateOnly(2024, 6, 22))  // none
class EXDateOnlyCommandParser : public SettableDayNames<EXDateOnlyCommandParser> {
  public:
    EXDateOnlyCommandParser() = delete;

    /// Words only: the names set, and weekdays, which mean the next such day, today included.
    static std::optional<EXDateOnly> dateOnlyFromCommand(std::optional<std::string_view> text);

    /// Words and dates. A date without a year is of this year, or of the next where it has passed.
    static std::optional<EXDateOnly> dateOnlyFromString(std::optional<std::string_view> text);

    /// The word for a day from today to six days ahead; none for other days. An absent day counts
    /// as today.
    static std::optional<std::string> commandForDateOnly(std::optional<EXDateOnly> day);

    /// What is built at the first use.
    static const DateCommandGrammar& grammar();
};

}  // namespace corvane
