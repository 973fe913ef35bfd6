#include "corvane/dates/DateNameTables.h"

#include "corvane/platform/TextEncoding.h"

#include <algorithm>

namespace corvane {

namespace {

using platform::NameLength;
using platform::NameUse;

/// The stop is no part of a full name, but a few languages have it there.
void addWithAndWithoutStop(std::vector<std::string>& spellings, std::string_view typed,
                           NameLength length) {
    auto add = [&](std::string_view spelling) {
        bool isNew = std::find(spellings.begin(), spellings.end(), spelling) == spellings.end();
        if (isNew && !spelling.empty()) spellings.emplace_back(spelling);
    };
    add(typed);
    if (typed.ends_with('.'))
        add(typed.substr(0, typed.size() - 1));
    else if (length == NameLength::Short && !typed.empty())
        add(std::string(typed) + '.');
}

void addNames(NameTable& table, const auto& names, NameLength length,
              const platform::Locale& locale) {
    for (std::size_t i = 0; i < names.size(); ++i)
        for (const auto& spelling : spellingsOfName(names[i], length, locale))
            table.add(spelling, static_cast<int>(i) + 1);
}

void addNamesOfLocale(DateNameTables& tables, NameLength length, const platform::Locale& locale) {
    for (auto use : {NameUse::InDate, NameUse::Alone}) {
        const auto names = platform::dateNamesOfLocale(locale, length, use);
        addNames(tables.months, names.months, length, locale);
        if (length != NameLength::Narrow) addNames(tables.weekdays, names.weekdays, length, locale);
    }
}

}  // namespace

std::vector<std::string> spellingsOfName(std::string_view name, NameLength length,
                                         const platform::Locale& locale) {
    const auto letterCase = platform::letterCaseOfLocale(locale);
    std::vector<std::string> spellings;
    addWithAndWithoutStop(spellings, platform::TypedText(name, letterCase).trimmedText(), length);
    if (platform::isASCII(name)) return spellings;
    const auto capitals = platform::upperCased(name, locale);
    addWithAndWithoutStop(spellings, platform::TypedText(capitals, letterCase).trimmedText(),
                          length);
    return spellings;
}

DateNameTables dateNameTables(const platform::Locale& locale, bool withNarrowMonths) {
    DateNameTables tables;
    const platform::Locale language(locale.language());
    for (const auto& each : {locale, language}) {
        addNamesOfLocale(tables, NameLength::Full, each);
        addNamesOfLocale(tables, NameLength::Short, each);
        if (language == locale) break;
    }
    if (withNarrowMonths) addNamesOfLocale(tables, NameLength::Narrow, locale);
    return tables;
}

}  // namespace corvane
