// Sums and divisions of 64-bit integers that are defined for all of them.
#pragma once

#include <cstdint>
#include <limits>

namespace corvane::platform {

/// Rounded towards minus infinity: floorQuotient(-1, 7) is -1. The divisor must be positive.
constexpr std::int64_t floorQuotient(std::int64_t number, std::int64_t divisor) {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

/// What floorQuotient leaves, 0 to divisor - 1: floorRemainder(-1, 7) is 6.
constexpr std::int64_t floorRemainder(std::int64_t number, std::int64_t divisor) {
    return number % divisor + (number % divisor < 0 ? divisor : 0);
}

/// The nearest end of the 64-bit range where the sum lies beyond it.
constexpr std::int64_t saturatingSum(std::int64_t a, std::int64_t b) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (b > 0 && a > Limits::max() - b) return Limits::max();
    if (b < 0 && a < Limits::min() - b) return Limits::min();
    return a + b;
}

/// The same for a product by a positive factor.
constexpr std::int64_t saturatingProduct(std::int64_t number, std::int64_t factor) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (number > Limits::max() / factor) return Limits::max();
    if (number < Limits::min() / factor) return Limits::min();
    return number * factor;
}

}  // namespace corvane::platform
