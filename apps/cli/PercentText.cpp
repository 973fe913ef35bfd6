#include "apps/cli/PercentText.h"

#include "corvane/platform/TextEncoding.h"

#include <charconv>

namespace corvane::cli {

namespace {

bool isUnreserved(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~").find(c) != std::string_view::npos;
}

}  // namespace

std::string percentEncoded(std::string_view text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string encoded;
    for (char c : text) {
        if (isUnreserved(c)) {
            encoded += c;
            continue;
        }
        auto byte = static_cast<unsigned char>(c);
        encoded += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return encoded;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        if (text.size() - i < 3) return std::nullopt;
        unsigned char byte = 0;
        const char* end = text.data() + i + 3;
        if (std::from_chars(text.data() + i + 1, end, byte, 16).ptr != end) return std::nullopt;
        decoded += static_cast<char>(byte);
        i += 2;
    }
    return platform::isUTF8(decoded) ? std::optional(decoded) : std::nullopt;
}

}  // namespace corvane::cli
