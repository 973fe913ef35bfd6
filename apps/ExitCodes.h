// With what the programs end.
#pragma once

namespace corvane {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

}  // namespace corvane
