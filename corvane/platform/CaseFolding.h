// Comparison of texts without regard to letter case, the same in every locale.
#pragma once

#include <string_view>

namespace corvane::platform {

/// -1, 0 or 1 by the code points of the texts' full case foldings. Ill-formed UTF-8 counts as
/// U+FFFD. Any thread.
///   compareIgnoringCase("STRASSE", "straße")  is 0
///   compareIgnoringCase("Ärger", "zeit")      is 1: the order of codes, not of a dictionary
int compareIgnoringCase(std::string_view a, std::string_view b);

}  // namespace corvane::platform
