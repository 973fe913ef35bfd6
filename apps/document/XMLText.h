// Texts on their way into an XML document and out of it. Functions without state; any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::backup {

/// Whether the text would come back changed from the content of an element: it is empty, has white
/// space at its ends, a carriage return, or characters that XML cannot carry.
bool needsEscape(std::string_view text);

/// The text with "\\" for a backslash and "\u{1F}" for what would not come back. It needs no escape
/// then, unless it is empty.
///
///     escaped("a\\b\r")        // "a\\\\b\\u{D}"
///     escaped(" two words ")   // "\\u{20}two words\\u{20}"
///     unescaped("\\u{7}")      // "\a"
///     unescaped("\\x")         // none
std::string escaped(std::string_view text);

/// None for what escaped() does not write: other backslashes, code points that are none.
std::optional<std::string> unescaped(std::string_view text);

/// Whether the text needs a CDATA section, or references, to stand in an element.
bool hasMarkup(std::string_view text);

/// The text for a CDATA section, which ends and begins again within every "]]>".
std::string forCDATA(std::string_view text);

/// The text with references for markup, and for white space that a parser would change.
std::string forAttribute(std::string_view text);
std::string forContent(std::string_view text);

}  // namespace corvane::backup
