// Conversions between UTF-8 and the big-endian UTF-16 of binary property lists.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// Whether every byte is below 0x80.
bool isASCII(std::string_view text);

/// Whether no sequence is ill-formed.
bool isUTF8(std::string_view text);

/// REQUIRES: an even number of bytes. Unpaired surrogates become U+FFFD.
std::string utf8FromUTF16BigEndian(std::span<const std::uint8_t> bytes);

/// Ill-formed sequences become U+FFFD.
std::vector<std::uint8_t> utf16BigEndianFromUTF8(std::string_view text);

}  // namespace corvane::platform
