// The application's styles and image maps, and the images and colors that go with them. The main
// application sets one as the default collection when it starts. One thread: the one that draws.
#pragma once

#include "corvane/vocabulary/EXStyleCollection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// Building it costs no image but the four badge bases; the colors and the image service must be in
/// force by then. Codes outside of their vocabulary throw std::out_of_range.
class HGCorvaneStyleCollection final : public EXStyleCollection {
  public:
    using Colors = std::vector<platform::Color>;
    using Names = std::vector<std::string>;
    using Images = std::vector<platform::ImagePtr>;

    HGCorvaneStyleCollection();

    // Of the rows of a list, by priority; alternate ones for every other row.
    static const Colors& priorityBackgroundColors();
    static const Colors& priorityAlternateBackgroundColors();

    // By code. There are as many badges as colors times indicators.
    static const Names& categoryIndicatorNames();
    static const Names& categoryColorNames();
    static const Colors& categoryColors();

    // One color's badges, by indicator. The maps are those of the default collection; null where
    // there is none.
    static std::string nameForIndicatorImageMapWithColor(std::int64_t color);
    static std::string nameForIndicatorSmallImageMapWithColor(std::int64_t color);
    static std::shared_ptr<EXImageMap> indicatorImageMapForColor(std::int64_t color);
    static std::shared_ptr<EXImageMap> indicatorSmallImageMapForColor(std::int64_t color);

    enum class BadgeStyle { Category, Project };
    enum class IconSize { Normal, Small };
    /// A map of white indicators on badges of the color.
    static std::shared_ptr<EXImageMap> createCategoryIndicatorImageMap(std::string name,
                                                                       std::int64_t color,
                                                                       BadgeStyle style,
                                                                       IconSize size);

    // Loaded once and then shared; null where there is no such resource, which is tried again.
    static platform::ImagePtr statusMultipleImageForTouchBar();
    static platform::ImagePtr priorityMultipleImageForTouchBar();
    static platform::ImagePtr categoryMultipleImageForTouchBar();
    static platform::ImagePtr categoryAddImageForTouchBar();
    static platform::ImagePtr starredImageForTouchBar();
    static platform::ImagePtr baseCategoryTImage();
    static platform::ImagePtr baseCategorySTImage();
    static platform::ImagePtr baseProjectTImage();
    static platform::ImagePtr baseProjectSTImage();

    static std::shared_ptr<EXImageMap> statusImageMapForTouchBar();
    static std::shared_ptr<EXImageMap> priorityImageMapForTouchBar();

    // Twelve frames, a new list at every call; null where a resource is missing.
    static Images repositoryProgressAnimationIcons();
    static Images syncingProgressAnimationIcons();
    // The first frame, for when nothing moves. The first name is written so everywhere.
    static platform::ImagePtr repositoryProgessIcon();
    static platform::ImagePtr syncingProgressIcon();

  private:
    void addCategoryIndicatorMaps();
    void addColorMaps();
    void addCodeMaps();
};

}  // namespace corvane
