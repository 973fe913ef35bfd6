// How well one color can be told from another.
#pragma once

#include "corvane/platform/Color.h"

#include <algorithm>
#include <cmath>

namespace corvane::tests {

using platform::RGBA;

inline RGBA over(const RGBA& front, const RGBA& back) {
    const auto mix = [&](double a, double b) { return a * front.alpha + b * (1 - front.alpha); };
    return {mix(front.red, back.red), mix(front.green, back.green), mix(front.blue, back.blue)};
}

inline double luminance(const RGBA& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

/// From 1, for the same color, to 21, for black and white.
inline double contrast(const RGBA& a, const RGBA& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

}  // namespace corvane::tests
