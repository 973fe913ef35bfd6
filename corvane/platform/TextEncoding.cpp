#include "corvane/platform/TextEncoding.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <cstring>
#include <limits>

namespace corvane::platform {

namespace {

constexpr UChar32 kReplacement = 0xFFFD;

void appendUTF8(std::string& out, UChar32 c) {
    char buffer[U8_MAX_LENGTH];
    int length = 0;
    U8_APPEND_UNSAFE(buffer, length, c);
    out.append(buffer, static_cast<std::size_t>(length));
}

void appendUnit(std::vector<std::uint8_t>& out, UChar32 unit) {
    out.push_back(static_cast<std::uint8_t>(unit >> 8));
    out.push_back(static_cast<std::uint8_t>(unit));
}

}  // namespace

bool isASCII(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + i, 8);
        if (word & kHighBits) return false;
    }
    for (; i < text.size(); ++i)
        if (text[i] & 0x80) return false;
    return true;
}

bool isUTF8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        UChar32 c;
        U8_NEXT(text.data(), i, text.size(), c);
        if (c < 0) return false;
    }
    return true;
}

std::string utf8FromUTF16BigEndian(std::span<const std::uint8_t> bytes) {
    const std::size_t count = bytes.size() / 2;
    auto unit = [&](std::size_t i) { return UChar32{bytes[2 * i]} << 8 | bytes[2 * i + 1]; };
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t i = 0; i < count; ++i) {
        UChar32 c = unit(i);
        if (U16_IS_SURROGATE(c)) {
            bool paired = U16_IS_SURROGATE_LEAD(c) && i + 1 < count && U16_IS_TRAIL(unit(i + 1));
            c = paired ? U16_GET_SUPPLEMENTARY(c, unit(i + 1)) : kReplacement;
            if (paired) ++i;
        }
        appendUTF8(result, c);
    }
    return result;
}

std::vector<std::uint8_t> utf16BigEndianFromUTF8(std::string_view text) {
    std::vector<std::uint8_t> result;
    result.reserve(2 * text.size());
    const char* at = text.data();
    const char* end = at + text.size();
    while (at != end) {
        UChar32 c;
        // In pieces, because the macro counts in 32 bits.
        std::int64_t i = 0;
        const std::int64_t length = end - at < 4 ? end - at : 4;
        U8_NEXT_OR_FFFD(at, i, length, c);
        at += i;
        if (c <= 0xFFFF) {
            appendUnit(result, c);
        } else {
            appendUnit(result, U16_LEAD(c));
            appendUnit(result, U16_TRAIL(c));
        }
    }
    return result;
}

}  // namespace corvane::platform
