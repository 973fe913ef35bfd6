// The times of files as the system call gives them. Not for use outside the platform layer.
#pragma once

#include "corvane/platform/Instant.h"

#include <sys/stat.h>

#include <chrono>

namespace corvane::platform {

inline Instant toInstant(const struct statx_timestamp& time) {
    auto sinceEpoch = std::chrono::seconds{time.tv_sec} + std::chrono::nanoseconds{time.tv_nsec};
    return Instant{std::chrono::floor<std::chrono::microseconds>(sinceEpoch)};
}

}  // namespace corvane::platform
