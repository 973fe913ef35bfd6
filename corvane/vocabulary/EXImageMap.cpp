#include "corvane/vocabulary/EXImageMap.h"

#include "corvane/platform/Console.h"
#include "corvane/vocabulary/EXStyleCollection.h"

#include <utility>

namespace corvane {

using platform::Color;
using platform::ImagePtr;

namespace {

void warnAbout(const std::string& image, const std::optional<std::string>& map) {
    platform::currentConsole().writeLine("WARNING: Could not load image '" + image +
                                         "' in image map '" + map.value_or("(null)") + "'");
}

}  // namespace

EXImageMap::EXImageMap(std::optional<std::string> name) : name_(std::move(name)) {}

std::shared_ptr<EXImageMap> EXImageMap::imageMapNamed(std::string_view name) {
    auto collection = EXStyleCollection::defaultCollection();
    return collection ? collection->imageMapWithName(name) : nullptr;
}

void EXImageMap::addImageNamed(std::string name, std::optional<Color> tintColor,
                               std::optional<Color> backgroundTintColor) {
    imageNames_.push_back(std::move(name));
    imageTintColors_.push_back(tintColor);
    imageBackgroundTintColors_.push_back(backgroundTintColor);
    images_.emplace_back();
}

void EXImageMap::addImagesFromMap(const EXImageMap& other) {
    // Counted first, because a map may be added to itself.
    auto count = other.imageNames_.size();
    for (std::size_t i = 0; i < count; ++i)
        addImageNamed(other.imageNames_[i], other.imageTintColors_[i],
                      other.imageBackgroundTintColors_[i]);
}

void EXImageMap::setImageNames(std::vector<std::string> names) {
    imageNames_ = std::move(names);
    imageTintColors_.assign(imageNames_.size(), std::nullopt);
    imageBackgroundTintColors_.assign(imageNames_.size(), std::nullopt);
    images_.assign(imageNames_.size(), nullptr);
}

std::int64_t EXImageMap::imageCount() const {
    return static_cast<std::int64_t>(imageNames_.size());
}

bool EXImageMap::contains(std::int64_t index) const {
    return index >= 0 && index < imageCount();
}

std::optional<std::string> EXImageMap::nameForImageAtIndex(std::int64_t index) const {
    if (!contains(index)) return std::nullopt;
    return imageNames_[static_cast<std::size_t>(index)];
}

std::optional<Color> EXImageMap::tintColorForImageAtIndex(std::int64_t index) const {
    if (!contains(index)) return std::nullopt;
    return imageTintColors_[static_cast<std::size_t>(index)];
}

std::optional<Color> EXImageMap::backgroundTintColorForImageAtIndex(std::int64_t index) const {
    if (!contains(index)) return std::nullopt;
    return imageBackgroundTintColors_[static_cast<std::size_t>(index)];
}

ImagePtr EXImageMap::imageAtIndex(std::int64_t index) const {
    if (!contains(index)) return nullptr;
    auto& image = images_[static_cast<std::size_t>(index)];
    if (!image) image = loadedImage(static_cast<std::size_t>(index));
    return image;
}

ImagePtr EXImageMap::loadedImage(std::size_t index) const {
    auto& service = platform::imageService();
    auto image = service.imageNamed(imageNames_[index]);
    if (!image) {
        warnAbout(imageNames_[index], name_);
        return nullptr;
    }
    if (const auto& tint = imageTintColors_[index]) image = service.tintedImage(image, *tint);
    if (!backgroundImage_) return image;
    auto background = backgroundImage_;
    if (const auto& tint = imageBackgroundTintColors_[index])
        background = service.tintedImage(background, *tint);
    return service.compositedImage(image, background);
}

const std::vector<ImagePtr>& EXImageMap::images() const {
    loadAllImages();
    return images_;
}

void EXImageMap::loadAllImages() const {
    for (std::int64_t i = 0; i < imageCount(); ++i)
        imageAtIndex(i);
}

void EXImageMap::setBackgroundImage(ImagePtr image) {
    backgroundImage_ = std::move(image);
}

void EXImageMap::setTintColor(std::optional<Color> color) {
    tintColor_ = color;
}

}  // namespace corvane
