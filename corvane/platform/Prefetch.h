// Fetching memory into the processor's cache ahead of its use.
#pragma once

#include <cstddef>

namespace corvane::platform {

/// Says that what lies there will be read or written soon. Any address will do, null included.
inline void prefetch(const void* address) {
    __builtin_prefetch(address);
    // To the compiler a prefetch has no effect, so it drops calls of functions that do nothing
    // else. This keeps them.
    asm volatile("");
}

/// The same of that many bytes, whether or not they are all there.
inline void prefetch(const void* start, std::size_t size) {
    constexpr std::size_t kLine = 64;
    for (std::size_t at = 0; at < size; at += kLine)
        prefetch(static_cast<const char*>(start) + at);
}

}  // namespace corvane::platform
