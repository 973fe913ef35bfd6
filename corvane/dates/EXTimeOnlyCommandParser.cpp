#include "corvane/dates/EXTimeOnlyCommandParser.h"

#include "corvane/dates/TimeCommandGrammar.h"
#include "corvane/platform/Locale.h"

namespace corvane {

std::optional<EXTimeOnly> EXTimeOnlyCommandParser::timeFromCommand(
    std::optional<std::string_view>) {
    return std::nullopt;
}

std::optional<EXTimeOnly> EXTimeOnlyCommandParser::timeOnlyFromString(
    std::optional<std::string_view> text) {
    if (auto time = timeFromCommand(text)) return time;
    return text ? grammar().parse(*text) : std::nullopt;
}

const TimeCommandGrammar& EXTimeOnlyCommandParser::grammar() {
    static const TimeCommandGrammar grammar(platform::currentLocale());
    return grammar;
}

}  // namespace corvane
