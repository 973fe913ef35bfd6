// Making any text one line that commands no terminal. For the log itself.
#pragma once

#include <string>
#include <string_view>

namespace corvane::logging {

/// The text as log() describes it: the text itself where it needs no change, else a view of
/// `changed`, which holds the result.
///
///     onOneLine("two\nlines\n", changed)  // "two\\nlines"
std::string_view onOneLine(std::string_view text, std::string& changed);

}  // namespace corvane::logging
