#include "apps/cli/TypedDay.h"

#include "corvane/controls/DateFieldParser.h"
#include "corvane/dates/EXDateOnlyCommandParser.h"

#include "apps/cli/TodoLine.h"

namespace corvane::cli {

void nameDays() {
    EXDateOnlyCommandParser::takeNamesOfStringTables();
    DateFieldParser::takeNamesOfStringTables();
}

std::optional<EXDateOnly> typedDay(std::string_view text) {
    const auto day = existingDay(text);
    return day ? day : EXDateOnlyCommandParser::dateOnlyFromString(text);
}

}  // namespace corvane::cli
