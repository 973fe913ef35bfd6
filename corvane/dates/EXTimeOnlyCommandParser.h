// Turns what users type into times of day, with the markers of the locale that is in force at the
// first use. Not the reader of the stored form, which is EXTimeOnly's. A class of static
// operations; any thread.
#pragma once

#include "corvane/dates/EXTimeOnly.h"

#include <optional>
#include <string_view>

namespace corvane {

class TimeCommandGrammar;

/// Absent text gives nothing.
///
///     EXTimeOnlyCommandParser::timeOnlyFromString("10:30")   // 10:30:00
///     EXTimeOnlyCommandParser::timeOnlyFromString("10pm")    // 22:00:00
///     EXTimeOnlyCommandParser::timeOnlyFromString("10.30")   // none
class EXTimeOnlyCommandParser {
  public:
    EXTimeOnlyCommandParser() = delete;

    /// There are no words for times yet; always none.
    static std::optional<EXTimeOnly> timeFromCommand(std::optional<std::string_view> text);

    /// Words first, then times as a TimeCommandGrammar reads them. White space at the ends counts.
    static std::optional<EXTimeOnly> timeOnlyFromString(std::optional<std::string_view> text);

    /// What is built at the first use.
    static const TimeCommandGrammar& grammar();
};

}  // namespace corvane
