#include "corvane/logging/OneLine.h"

#include <fmt/format.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace corvane::logging {

namespace {

/// So much that no honest message is cut, and so little that full queues stay small.
constexpr std::size_t kLongestText = 65536;

bool isPlain(char c) {
    return (c >= ' ' && c <= '~') || c == '\t';
}

void appendEscaped(UChar32 c, std::string& line) {
    if (c == '\n') {
        line += "\\n";
    } else if (c == '\r') {
        line += "\\r";
    } else if (c < 0x80) {
        fmt::format_to(std::back_inserter(line), "\\x{:02x}", static_cast<std::uint32_t>(c));
    } else {
        fmt::format_to(std::back_inserter(line), "\\u{:04x}", static_cast<std::uint32_t>(c));
    }
}

bool isControl(UChar32 c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

void appendOnOneLine(std::string_view text, std::string& line) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < length;) {
        const std::int32_t start = i;
        UChar32 c = 0;
        U8_NEXT(bytes, i, length, c);
        if (c < 0) {
            line += "\xEF\xBF\xBD";
        } else if (isControl(c) && c != '\t') {
            appendEscaped(c, line);
        } else {
            line.append(text, static_cast<std::size_t>(start), static_cast<std::size_t>(i - start));
        }
    }
}

std::string_view cut(std::string_view text) {
    std::size_t length = std::min(text.size(), kLongestText);
    for (int i = 0; i < 3 && length < text.size() && U8_IS_TRAIL(text[length]); ++i)
        --length;  // not through a character
    return text.substr(0, length);
}

}  // namespace

std::string_view onOneLine(std::string_view text, std::string& changed) {
    text = text.substr(0, text.find_last_not_of("\r\n") + 1);  // npos + 1 is 0
    const std::string_view kept = cut(text);
    if (kept.size() == text.size() && std::all_of(text.begin(), text.end(), isPlain)) return text;
    changed.clear();
    appendOnOneLine(kept, changed);
    if (kept.size() < text.size()) {
        fmt::format_to(std::back_inserter(changed), " ... ({} bytes more)",
                       text.size() - kept.size());
    }
    return changed;
}

}  // namespace corvane::logging
