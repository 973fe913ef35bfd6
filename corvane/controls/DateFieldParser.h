// Turns what users type into a date field into moments, with the words, formats and weekday names
// of the user's locale at the first use. A class of static operations that take no lock: for one
// thread at a time.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/SettableDayNames.h"
#include "corvane/platform/Instant.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class DateFieldGrammar;

/// What CVMacDateField offers as a class, without the field. Absent text gives nothing.
/// Where the application sets no names for today and tomorrow, English alone has such words.
///
///     // on Wednesday, March 4, 2026, at 17:20, in en_US
///     DateFieldParser::dateFromCommand("wed")     // 2026-03-11 08:00, never today
///     DateFieldParser::dateFromString("3/3")      // 2027-03-03 17:20
///     DateFieldParser::dateFromCommand("3/3")     // none: no word
class DateFieldParser : public SettableDayNames<DateFieldParser> {
  public:
    using Date = std::optional<platform::Instant>;
    using Text = std::optional<std::string_view>;

    /// Words alone; the day's standardized moment.
    static Date dateFromCommand(const Text& text);

    /// Words and dates. A date is given at the present time of day.
    static Date dateFromString(const Text& text);

    // The same in the grammar of another locale, and what fields show of days near today.

    static Date dateFromCommand(const Text& text, const DateFieldGrammar& grammar);
    static Date dateFromString(const Text& text, const DateFieldGrammar& grammar);
    static std::optional<std::string> wordForDate(platform::Instant date,
                                                  const DateFieldGrammar& grammar);

    /// What is built at the first use.
    static const DateFieldGrammar& grammar();

  protected:
    DateFieldParser() = default;
};

}  // namespace corvane
