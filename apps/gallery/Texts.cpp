#include "apps/gallery/Texts.h"

#include "corvane/controls/DateFieldParser.h"
#include "corvane/dates/EXDateOnlyCommandParser.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Locale.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include "apps/gallery/Resources.h"

#include <algorithm>

namespace corvane::gallery {

std::string localized(std::string_view english) {
    return EXLocalizable::localize(english);
}

const std::vector<std::string>& languagesWithTexts() {
    static const std::vector<std::string> languages{"ar", "de"};
    return languages;
}

void addTexts() {
    const auto isWanted = [](const std::string& language) {
        const auto& wanted = platform::preferredLanguages();
        return std::any_of(wanted.begin(), wanted.end(), [&](const std::string& one) {
            return platform::Locale(one).language() == language;
        });
    };
    for (const auto& language : languagesWithTexts()) {
        if (!isWanted(language)) continue;
        const std::string file = "gallery." + language + ".strings";
        for (const auto& problem : EXLocalizable::addStringTable(language, resourceText(file)))
            platform::currentConsole().writeLine("WARNING: " + file + ", line " +
                                                 std::to_string(problem.line) + ": " +
                                                 problem.message);
    }
}

void nameDays() {
    EXDateOnlyCommandParser::takeNamesOfStringTables();
    DateFieldParser::takeNamesOfStringTables();
}

}  // namespace corvane::gallery
