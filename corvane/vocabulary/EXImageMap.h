// The images of a set of codes: the image of code i is the one at index i. Held by shared pointers;
// one thread: the one that draws.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// An entry is the name of an image resource, with a color for the image and one for the background
/// behind it where they are to be tinted. Its image is loaded, tinted and put together when it is
/// first asked for, and then kept. One that cannot be loaded is a warning on the console, and is
/// tried again at the next request.
///
/// Indexes outside of the map give nothing.
class EXImageMap {
  public:
    using Colors = std::vector<std::optional<platform::Color>>;

    explicit EXImageMap(std::optional<std::string> name = {});
    EXImageMap(const EXImageMap&) = delete;
    EXImageMap& operator=(const EXImageMap&) = delete;

    /// That of the default style collection; null where there is none.
    static std::shared_ptr<EXImageMap> imageMapNamed(std::string_view name);

    const std::optional<std::string>& name() const { return name_; }

    void addImageNamed(std::string name, std::optional<platform::Color> tintColor = {},
                       std::optional<platform::Color> backgroundTintColor = {});
    /// Every entry of the other map as it was added there. Not its background image: one entry can
    /// so appear on several backgrounds.
    void addImagesFromMap(const EXImageMap& other);
    /// Replaces all entries by entries without colors.
    void setImageNames(std::vector<std::string> names);

    std::int64_t imageCount() const;
    std::optional<std::string> nameForImageAtIndex(std::int64_t index) const;
    std::optional<platform::Color> tintColorForImageAtIndex(std::int64_t index) const;
    std::optional<platform::Color> backgroundTintColorForImageAtIndex(std::int64_t index) const;
    /// Null also where the image cannot be loaded.
    platform::ImagePtr imageAtIndex(std::int64_t index) const;

    // By index. The images are loaded for this, and null where that failed.
    const std::vector<std::string>& imageNames() const { return imageNames_; }
    const Colors& imageTintColors() const { return imageTintColors_; }
    const Colors& imageBackgroundTintColors() const { return imageBackgroundTintColors_; }
    const std::vector<platform::ImagePtr>& images() const;
    void loadAllImages() const;

    /// Drawn behind every image of the map; null for none. It counts for images not yet loaded.
    const platform::ImagePtr& backgroundImage() const { return backgroundImage_; }
    void setBackgroundImage(platform::ImagePtr image);

    /// For views that draw the images in one color, whatever their own are.
    const std::optional<platform::Color>& tintColor() const { return tintColor_; }
    void setTintColor(std::optional<platform::Color> color);

  private:
    bool contains(std::int64_t index) const;
    platform::ImagePtr loadedImage(std::size_t index) const;

    std::optional<std::string> name_;
    std::vector<std::string> imageNames_;
    Colors imageTintColors_;
    Colors imageBackgroundTintColors_;
    mutable std::vector<platform::ImagePtr> images_;
    platform::ImagePtr backgroundImage_;
    std::optional<platform::Color> tintColor_;
};

}  // namespace corvane
