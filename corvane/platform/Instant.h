// A moment on the world's time line, independent of calendar and zone.
#pragma once

#include <chrono>
#include <optional>

namespace corvane::platform {

/// Microseconds since 1970-01-01 00:00 UTC. A value: copy, compare and subtract it freely.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

/// 2001-01-01 00:00 UTC, from which archived date-times count their seconds.
inline constexpr Instant kReferenceDate{std::chrono::sys_days{std::chrono::year{2001} / 1 / 1}};

/// Seconds since the reference date; negative before it.
double secondsSinceReferenceDate(Instant instant);

/// The instant `seconds` after the reference date, to the nearest microsecond; none when the
/// number is not finite or lies beyond the range of an Instant (about 290,000 years).
std::optional<Instant> instantFromReferenceSeconds(double seconds);

}  // namespace corvane::platform
