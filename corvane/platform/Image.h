// A picture that somebody else can draw, and the seam to who loads and combines pictures.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/ScopedOverride.h"
#include "corvane/platform/Size.h"

#include <atomic>
#include <memory>
#include <string_view>

namespace corvane::platform {

/// Immutable; made by the image service in force, which alone knows its pixels. It holds for every
/// scale of the screen and for both appearances: pixels are made when it is drawn.
class Image {
  public:
    virtual ~Image() = default;
    virtual Size size() const = 0;  ///< in points
};

using ImagePtr = std::shared_ptr<const Image>;

/// Loads, tints and composites. One thread: the one that draws.
class ImageService {
  public:
    virtual ~ImageService() = default;

    /// The application's image resource of the name; null when there is none.
    virtual ImagePtr imageNamed(std::string_view name) = 0;
    /// The image with its opaque pixels in the colour.
    virtual ImagePtr tintedImage(const ImagePtr& image, const Color& color) = 0;
    /// The image drawn over the middle of a background, in the background's size.
    virtual ImagePtr compositedImage(const ImagePtr& image, const ImagePtr& background) = 0;
};

/// The service in force; a process without one has no images (every name is unknown).
ImageService& imageService();

std::atomic<ImageService*>& serviceInForce();

using ScopedImageService = ScopedOverride<ImageService, serviceInForce>;

}  // namespace corvane::platform
