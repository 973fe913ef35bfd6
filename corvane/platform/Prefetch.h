// Fetching memory into the processor's cache ahead of its use.
#pragma once

namespace corvane::platform {

/// Says that what lies there will be read or written soon. Any address will do, null included.
inline void prefetch(const void* address) {
    __builtin_prefetch(address);
    // To the compiler a prefetch has no effect, so it drops calls of functions that do nothing
    // else. This keeps them.
    asm volatile("");
}

}  // namespace corvane::platform
