// The image of a code as controls show it. One thread: the one that draws.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"

#include <cstdint>
#include <optional>

namespace corvane {

class EXImageMap;

/// In the tint, else in the map's. A template image that has neither takes the colour of texts.
/// Null without a map, outside of it, and where the image cannot be loaded.
platform::ImagePtr mapImage(const EXImageMap* map, std::int64_t index,
                            const std::optional<platform::Color>& tint = {});

}  // namespace corvane
