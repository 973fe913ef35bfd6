// What the proxy records share in reading and writing archives, and in finding their icon.
#pragma once

#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <cstdint>

namespace corvane {

/// A short code as archives hold it: a full integer, of which the low 16 bits count.
inline std::int16_t decodeCode(platform::KeyedUnarchiver& coder, platform::ArchiveKey key) {
    return static_cast<std::int16_t>(coder.decodeInteger(key));
}

/// The place of a badge in the grid of category icons, which has 45 indicators to each colour.
/// Not checked: codes out of range give an index out of range.
inline std::int64_t categoryIconIndexFor(std::int16_t color, std::int16_t indicator) {
    constexpr std::int64_t kIndicatorsPerColor = 45;
    return indicator + color * kIndicatorsPerColor;
}

}  // namespace corvane
