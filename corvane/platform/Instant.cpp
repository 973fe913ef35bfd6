#include "corvane/platform/Instant.h"

#include "corvane/platform/IntegerMath.h"

#include <cmath>

namespace corvane::platform {

namespace {

constexpr double kMicrosecondsPerSecond = 1e6;

// Inside the 64-bit range by more than the distance between the two epochs.
constexpr double kFarthestMicroseconds = 9.2e18;

}  // namespace

double secondsSinceReferenceDate(Instant instant) {
    const auto microseconds = saturatingSum(instant.time_since_epoch().count(),
                                            -kReferenceDate.time_since_epoch().count());
    return static_cast<double>(microseconds) / kMicrosecondsPerSecond;
}

std::optional<Instant> instantFromReferenceSeconds(double seconds) {
    double microseconds = std::nearbyint(seconds * kMicrosecondsPerSecond);
    if (!(std::abs(microseconds) < kFarthestMicroseconds)) return std::nullopt;
    return kReferenceDate + std::chrono::microseconds{static_cast<std::int64_t>(microseconds)};
}

}  // namespace corvane::platform
