// The image resources that the reference program draws by itself. One thread: the one that draws.
#pragma once

#include "corvane/qt/ImageSource.h"

#include <string_view>

namespace corvane::gallery {

/// Has a picture for every name of the vocabulary: a drawing, or for want of one the letter of an
/// indicator. An application object must exist, for its fonts.
class Artwork final : public qt::ImageSource {
  public:
    platform::ImagePtr imageNamed(std::string_view name) override;
};

}  // namespace corvane::gallery
