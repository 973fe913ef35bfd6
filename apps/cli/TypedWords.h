// Words that users type, in whatever letter case. Only ASCII has any here.
#pragma once

#include <algorithm>
#include <optional>
#include <string_view>

namespace corvane::cli {

inline char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

inline bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowered(x) == lowered(y); });
}

/// "true", "yes", "1", "false", "no" or "0"; none for any other word.
inline std::optional<bool> flagNamed(std::string_view word) {
    for (const char* yes : {"true", "yes", "1"})
        if (equalIgnoringCase(word, yes)) return true;
    for (const char* no : {"false", "no", "0"})
        if (equalIgnoringCase(word, no)) return false;
    return std::nullopt;
}

}  // namespace corvane::cli
