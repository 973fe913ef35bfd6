// Somewhere that image resources come from: files, or drawings in code.
#pragma once

#include "corvane/platform/Image.h"

#include <string_view>

namespace corvane::qt {

/// One thread: the one that draws.
class ImageSource {
  public:
    virtual ~ImageSource() = default;
    /// An image of this layer (see QtImage.h); null when the source does not have it, which may
    /// be different when it is asked again.
    virtual platform::ImagePtr imageNamed(std::string_view name) = 0;
};

}  // namespace corvane::qt
