// Big-endian numbers of 1 to 8 bytes, as binary property lists hold them.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace corvane::platform {

/// REQUIRES: 1 <= size <= 8 and `size` readable bytes.
inline std::uint64_t readBigEndian(const std::uint8_t* at, unsigned size) {
    std::uint64_t number = 0;
    for (unsigned i = 0; i < size; ++i)
        number = number << 8 | at[i];
    return number;
}

/// The same in one load for any size. REQUIRES: 8 readable bytes, whatever the size.
inline std::uint64_t readBigEndianWide(const std::uint8_t* at, unsigned size) {
    std::uint64_t number;
    std::memcpy(&number, at, 8);
    if constexpr (std::endian::native == std::endian::little) number = __builtin_bswap64(number);
    return number >> (64 - 8 * size);
}

/// Writes the low `size` bytes of `number`. REQUIRES: 1 <= size <= 8 and `size` writable bytes.
inline void writeBigEndian(std::uint8_t* at, std::uint64_t number, unsigned size) {
    for (unsigned i = size; i-- > 0; number >>= 8)
        at[i] = static_cast<std::uint8_t>(number);
}

/// The same in one store; the bytes up to the eighth become zero. REQUIRES: 8 writable bytes.
inline void writeBigEndianWide(std::uint8_t* at, std::uint64_t number, unsigned size) {
    number <<= 64 - 8 * size;
    if constexpr (std::endian::native == std::endian::little) number = __builtin_bswap64(number);
    std::memcpy(at, &number, 8);
}

}  // namespace corvane::platform
