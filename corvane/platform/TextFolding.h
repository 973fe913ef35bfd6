// The form of a text by which it is sorted and searched: no letter case, no accents.
#pragma once

#include "corvane/platform/Locale.h"

#include <string>
#include <string_view>

namespace corvane::platform {

/// `text` in lower case without the accents of Latin, Greek and Cyrillic letters. The marks of
/// other scripts stay, because there they tell words apart, and so do letters of their own such as
/// "ß", "ø" and "ł". Ill-formed UTF-8 becomes U+FFFD. Any thread.
///   foldedForCollation("Café CRÈME", Locale("en"))  is "cafe creme"
///   foldedForCollation("IĞDIR", Locale("tr"))       is "ıgdır"
///   foldedForCollation("ガ", Locale("en"))          is "ガ", not "カ"
std::string foldedForCollation(std::string_view text, const Locale& locale);

}  // namespace corvane::platform
