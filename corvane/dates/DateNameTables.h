// The months and weekdays that a date may name in a locale, in every spelling that counts. A value
// and functions without state; any thread.
#pragma once

#include "corvane/dates/NameTable.h"
#include "corvane/platform/LocaleData.h"
#include "corvane/platform/TypedText.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

struct DateNameTables {
    NameTable months;    ///< By 1 = January to 12.
    NameTable weekdays;  ///< By 1 = Sunday to 7.
};

/// The names of the locale, and after them those of its language, both full and short, as they
/// stand in dates and alone: en_GB writes "Sept", but English also "Sep". Narrow names ("S") only
/// where they are asked for, because most languages share them among months.
DateNameTables dateNameTables(const platform::Locale& locale, bool withNarrowMonths);

/// How the name may be typed: as it stands, in the locale's capitals, a short name with and without
/// its full stop. As texts of a TypedText; the first is the name as it stands.
std::vector<std::string> spellingsOfName(std::string_view name, platform::NameLength length,
                                         const platform::Locale& locale);

}  // namespace corvane
