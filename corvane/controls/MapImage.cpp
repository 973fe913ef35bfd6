#include "corvane/controls/MapImage.h"

#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/NamedColors.h"

namespace corvane {

platform::ImagePtr mapImage(const EXImageMap* map, std::int64_t index,
                            const std::optional<platform::Color>& tint) {
    auto image = map ? map->imageAtIndex(index) : nullptr;
    if (!image) return nullptr;
    if (tint) return platform::imageService().tintedImage(image, *tint);
    if (const auto& ofMap = map->tintColor())
        return platform::imageService().tintedImage(image, *ofMap);
    // By their names, templates are known; one that was tinted when it was loaded has its colour.
    const bool isTemplate = map->nameForImageAtIndex(index).value_or("").ends_with("-t") &&
                            !map->tintColorForImageAtIndex(index) && !map->backgroundImage();
    return isTemplate ? platform::imageService().tintedImage(image, NamedColors::mainTextColor())
                      : image;
}

}  // namespace corvane
