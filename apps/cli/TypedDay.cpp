#include "apps/cli/TypedDay.h"

#include "corvane/dates/EXDateOnlyCommandParser.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include "apps/cli/TodoLine.h"

namespace corvane::cli {

void nameDays() {
    using Parser = EXDateOnlyCommandParser;
    Parser::setTodayName(EXLocalizable::localizableNameForKey(kTodayKey));
    Parser::setTodayShortName(EXLocalizable::localizableNameForKey(kTodayShortKey));
    Parser::setTomorrowName(EXLocalizable::localizableNameForKey(kTomorrowKey));
    Parser::setTomorrowShortName(EXLocalizable::localizableNameForKey(kTomorrowShortKey));
}

std::optional<EXDateOnly> typedDay(std::string_view text) {
    const auto day = existingDay(text);
    return day ? day : EXDateOnlyCommandParser::dateOnlyFromString(text);
}

}  // namespace corvane::cli
