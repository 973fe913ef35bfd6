#include "apps/document/XMLText.h"

#include "corvane/platform/TextEncoding.h"
#include "corvane/platform/TextScanner.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace corvane::backup {

namespace {

constexpr std::string_view kCodePointStart = "\\u{";
constexpr std::string_view kCDATAEnd = "]]>";

/// The length of the UTF-8 sequence that begins with the byte. REQUIRES: well-formed UTF-8.
std::size_t sequenceLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

std::uint32_t codePointOf(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence[0]);
    if (sequence.size() == 1) return first;
    std::uint32_t value = first & (0x7Fu >> sequence.size());
    for (char byte : sequence.substr(1))
        value = value << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
    return value;
}

void appendCodePoint(std::string& text, std::uint32_t value) {
    auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (value < 0x80) return append(value);
    const int following = value < 0x800 ? 1 : value < 0x10000 ? 2 : 3;
    append((0xFF00u >> (following + 1) & 0xFFu) | value >> 6 * following);
    for (int i = following - 1; i >= 0; --i)
        append(0x80u | (value >> 6 * i & 0x3Fu));
}

bool isChangedWithin(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 && byte != '\t' && byte != '\n';
}

bool isNoncharacter(std::string_view sequence) {
    return sequence == "\xEF\xBF\xBE" || sequence == "\xEF\xBF\xBF";
}

bool hasNoncharacter(std::string_view text) {
    for (std::size_t at = 0; (at = text.find("\xEF\xBF", at)) != text.npos; ++at)
        if (isNoncharacter(text.substr(at, 3))) return true;
    return false;
}

/// The number between "\u{" and "}" at the front, which is taken off the text.
std::optional<std::uint32_t> takeCodePoint(std::string_view& text) {
    if (!text.starts_with(kCodePointStart)) return std::nullopt;
    const char* start = text.data() + kCodePointStart.size();
    const char* end = text.data() + text.size();
    std::uint32_t value = 0;
    const auto [stop, problem] = std::from_chars(start, end, value, 16);
    const bool exists = value < 0xD800 || (value > 0xDFFF && value <= 0x10FFFF);
    if (problem != std::errc() || stop == end || *stop != '}' || !exists) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(stop + 1 - text.data()));
    return value;
}

template <class Replacement>
std::string replacing(std::string_view text, std::string_view characters, Replacement replacement) {
    std::string result;
    while (true) {
        const std::size_t at = text.find_first_of(characters);
        result += text.substr(0, at);
        if (at == text.npos) return result;
        result += replacement(text[at]);
        text.remove_prefix(at + 1);
    }
}

std::string reference(char character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        default:
            return fmt::format("&#{};", static_cast<int>(character));
    }
}

}  // namespace

bool needsEscape(std::string_view text) {
    return text.empty() || platform::withoutOuterSpace(text).size() != text.size() ||
           std::any_of(text.begin(), text.end(), isChangedWithin) || hasNoncharacter(text);
}

std::string escaped(std::string_view text) {
    const std::string_view inner = platform::withoutOuterSpace(text);
    std::string result;
    for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
        length = std::min(sequenceLength(text[0]), text.size());
        const std::string_view sequence = text.substr(0, length);
        const bool outer = inner.empty() || sequence.data() < inner.data() ||
                           sequence.data() >= inner.data() + inner.size();
        if (outer || isChangedWithin(text[0]) || isNoncharacter(sequence)) {
            result += fmt::format("{}{:X}}}", kCodePointStart, codePointOf(sequence));
        } else {
            if (text[0] == '\\') result += '\\';
            result += sequence;
        }
    }
    return result;
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find('\\'), text.size());
        result += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        if (text.starts_with("\\\\")) {
            result += '\\';
            text.remove_prefix(2);
        } else if (auto codePoint = takeCodePoint(text)) {
            appendCodePoint(result, *codePoint);
        } else {
            return std::nullopt;
        }
    }
    return result;
}

bool hasMarkup(std::string_view text) {
    return text.find_first_of("<&>") != text.npos;
}

std::string forCDATA(std::string_view text) {
    std::string result;
    for (std::size_t at; (at = text.find(kCDATAEnd)) != text.npos; text.remove_prefix(at + 2))
        result.append(text, 0, at + 2).append("]]><![CDATA[");
    return result.append(text);
}

std::string forAttribute(std::string_view text) {
    return replacing(text, "&<>\"\t\n\r", reference);
}

std::string forContent(std::string_view text) {
    return replacing(text, "&<>\r", reference);
}

}  // namespace corvane::backup
