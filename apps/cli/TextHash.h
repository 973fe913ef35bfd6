// A hash that is the same in every build and process, for what is written into files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace corvane::cli {

/// FNV-1a in 64 bits. Its results are in published files: it must not change.
inline std::uint64_t stableHash(std::span<const std::byte> bytes) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (std::byte byte : bytes) {
        hash ^= std::to_integer<std::uint64_t>(byte);
        hash *= 0x100000001b3;
    }
    return hash;
}

inline std::uint64_t stableHash(std::string_view text) {
    return stableHash(std::as_bytes(std::span(text)));
}

}  // namespace corvane::cli
