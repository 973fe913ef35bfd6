// What is seen of a color through another one.
#pragma once

#include "corvane/platform/Color.h"

namespace corvane::tests {

using platform::RGBA;

/// The front one may be translucent, the one at the back is not.
inline RGBA over(const RGBA& front, const RGBA& back) {
    const auto mix = [&](double a, double b) { return a * front.alpha + b * (1 - front.alpha); };
    return {mix(front.red, back.red), mix(front.green, back.green), mix(front.blue, back.blue)};
}

}  // namespace corvane::tests
