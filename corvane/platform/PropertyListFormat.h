// The numbers of the binary property list format, version "00".
//
// A file is: the 8-byte magic, the objects, a table of their offsets, and a 32-byte trailer. All
// numbers are big-endian. An object starts with a marker byte: the high half names its type, the
// low half a size, where 0xF means that an integer object with the size follows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corvane::platform::plist {

inline constexpr std::string_view kMagic = "bplist00";
inline constexpr std::size_t kTrailerSize = 32;

// Offsets inside the trailer; the bytes before the first are zero.
inline constexpr std::size_t kTrailerOffsetSize = 6;
inline constexpr std::size_t kTrailerRefSize = 7;
inline constexpr std::size_t kTrailerObjectCount = 8;
inline constexpr std::size_t kTrailerTopObject = 16;
inline constexpr std::size_t kTrailerTableStart = 24;

enum Marker : std::uint8_t {
    kNull = 0x00,
    kFalse = 0x08,
    kTrue = 0x09,
    kInteger = 0x10,  ///< low half: log2 of the byte count; 1, 2 and 4 bytes are unsigned
    kReal = 0x20,     ///< low half: log2 of the byte count
    kDate = 0x33,     ///< 8-byte real: seconds since 2001-01-01 UTC
    kData = 0x40,
    kASCII = 0x50,
    kUTF16 = 0x60,  ///< size in 16-bit units, big-endian
    kUID = 0x80,    ///< low half: byte count less one
    kArray = 0xA0,
    kDictionary = 0xD0,  ///< all key references, then all value references
};

inline constexpr std::uint8_t kSizeFollows = 0x0F;

/// The bytes needed to write `number`, 1 to 8.
constexpr unsigned byteCount(std::uint64_t number) {
    unsigned count = 1;
    while (number >>= 8)
        ++count;
    return count;
}

}  // namespace corvane::platform::plist
