// The stored codes that this program gives a meaning of its own.
#pragma once

#include <cstdint>

namespace corvane::cli {

inline constexpr std::int16_t kInboxStatus = 0;
inline constexpr std::int16_t kSomedayStatus = 1;
inline constexpr std::int16_t kScratchpadStatus = 2;
inline constexpr std::int16_t kActionableStatus = 3;
inline constexpr std::int16_t kOnHoldStatus = 5;
inline constexpr std::int16_t kCompletedStatus = 6;
inline constexpr std::int16_t kCanceledStatus = 7;
inline constexpr std::int16_t kTrashStatus = 8;

inline constexpr std::int16_t kMediumPriority = 2;
inline constexpr std::int16_t kHighestPriority = 4;

}  // namespace corvane::cli
