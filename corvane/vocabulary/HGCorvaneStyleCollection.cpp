#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"
#include "corvane/vocabulary/NamedColors.h"

#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace corvane {

using platform::Color;
using platform::ImagePtr;
using Names = HGCorvaneStyleCollection::Names;

namespace {

constexpr double kPriorityRowAlpha = 0.2;

/// The map of an enumeration: the image of a code is the name at its index with the suffix.
struct CodeMap {
    std::string name;
    Names names;
    std::string suffix;  ///< "-t": takes one color; "-s-": small; "-us-": ultra-small
    Color (*tint)() = nullptr;
};

std::vector<CodeMap> codeMaps() {
    const Names priorities{"priority-trivial", "priority-low", "priority-medium", "priority-high",
                           "priority-critical"};
    // A project not started looks like an actionable task, an active one like one in progress.
    const Names projectStates{"status-actionable", "status-in-progress", "status-on-hold",
                              "status-completed", "status-canceled"};
    const Names actionStates{"status-actionable", "status-in-progress", "status-completed"};
    const Names& taskStates = HGIndicatorNameProvider::allTaskStatusIndicatorNames();
    const Names contributors{"contributor-person", "contributor-organization", "contact-person",
                             "contact-organization"};
    const Names contributorIndicators{"indicator-assigned-person",
                                      "indicator-assigned-organization", "indicator-contact-person",
                                      "indicator-contact-organization"};
    const auto text = &NamedColors::mainTextColor;
    const auto descriptive = &NamedColors::mainDescriptiveColor;
    return {
        {"PriorityImageMap", priorities, ""},
        {"ProjectStatusImageMap", projectStates, "-t", text},
        {"ProjectStatusTemplateImageMap", projectStates, "-t", text},
        {"ProjectStatusSmallImageMap", projectStates, "-s-t", text},
        {"ProjectStatusSmallTemplateImageMap", projectStates, "-s-t", text},
        {"AttachmentTypeImageMap", {"accessory-link"}, "-t"},
        {"AttachmentTypeSmallImageMap", {"accessory-link"}, "-s-t"},
        {"ActionStatusImageMap", actionStates, "-t", text},
        {"ActionStatusSmallImageMap", actionStates, "-s-t", text},
        {"ActionStatusUltraSmallImageMap", actionStates, "-us-t", text},
        {"TaskStatusImageMap", taskStates, "-t", text},
        // Its views draw these in colors of their own.
        {"TaskStatusSmallImageMap", taskStates, "-s-t"},
        {"ContributorIndicatorImageMap", contributors, "-t", descriptive},
        {"ContributorIndicatorSmallImageMap", contributorIndicators, "-s-t", descriptive},
    };
}

ImagePtr sharedImage(std::string_view name) {
    static std::map<std::string, ImagePtr, std::less<>> loaded;
    auto found = loaded.find(name);
    if (found != loaded.end()) return found->second;
    auto image = platform::imageService().imageNamed(name);
    if (image) loaded.emplace(name, image);
    return image;
}

HGCorvaneStyleCollection::Images animation(const std::string& prefix) {
    constexpr int kFrames = 12;
    HGCorvaneStyleCollection::Images frames;
    for (int frame = 0; frame < kFrames; ++frame)
        frames.push_back(sharedImage(prefix + (frame < 10 ? "0" : "") + std::to_string(frame)));
    return frames;
}

ImagePtr badgeBase(HGCorvaneStyleCollection::BadgeStyle style,
                   HGCorvaneStyleCollection::IconSize size) {
    using Collection = HGCorvaneStyleCollection;
    const bool small = size == Collection::IconSize::Small;
    if (style == Collection::BadgeStyle::Project)
        return small ? Collection::baseProjectSTImage() : Collection::baseProjectTImage();
    return small ? Collection::baseCategorySTImage() : Collection::baseCategoryTImage();
}

}  // namespace

HGCorvaneStyleCollection::HGCorvaneStyleCollection() {
    addCategoryIndicatorMaps();
    addColorMaps();
    addCodeMaps();
    auto tint = std::make_shared<EXStyle>();
    tint->name = "TintStyle";
    tint->backgroundColor = NamedColors::mainBackgroundColor();
    tint->tintColor = NamedColors::tintColor();
    addStyle(std::move(tint));
}

void HGCorvaneStyleCollection::addCategoryIndicatorMaps() {
    struct Kind {
        BadgeStyle style;
        IconSize size;
        std::shared_ptr<EXImageMap> combined;
    };
    std::vector<Kind> kinds;
    for (auto style : {BadgeStyle::Category, BadgeStyle::Project})
        for (auto size : {IconSize::Normal, IconSize::Small}) {
            auto map = std::make_shared<EXImageMap>(
                std::string(style == BadgeStyle::Project ? "Project" : "") +
                (size == IconSize::Small ? "CategoryIndicatorSmallImageMap"
                                         : "CategoryIndicatorImageMap"));
            map->setBackgroundImage(badgeBase(style, size));
            kinds.push_back({style, size, std::move(map)});
        }
    for (std::int64_t color = 0; color < static_cast<std::int64_t>(categoryColors().size());
         ++color)
        for (const auto& kind : kinds) {
            auto name = kind.size == IconSize::Small ? nameForIndicatorSmallImageMapWithColor(color)
                                                     : nameForIndicatorImageMapWithColor(color);
            auto map = createCategoryIndicatorImageMap(name, color, kind.style, kind.size);
            kind.combined->addImagesFromMap(*map);
            // A project's map of one color has the name of the category's, which stays.
            if (kind.style == BadgeStyle::Category) addImageMap(std::move(map));
        }
    for (auto& kind : kinds)
        addImageMap(std::move(kind.combined));
}

void HGCorvaneStyleCollection::addColorMaps() {
    for (auto size : {IconSize::Normal, IconSize::Small}) {
        const bool small = size == IconSize::Small;
        auto map = std::make_shared<EXImageMap>(small ? "ColorSmallImageMap" : "ColorImageMap");
        for (const auto& color : categoryColors())
            map->addImageNamed(small ? "category-base-s-t" : "category-base-t", color);
        addImageMap(std::move(map));
    }
}

void HGCorvaneStyleCollection::addCodeMaps() {
    for (const auto& row : codeMaps()) {
        auto map = std::make_shared<EXImageMap>(row.name);
        if (row.tint) map->setTintColor(row.tint());
        for (const auto& name : row.names)
            map->addImageNamed(name + row.suffix);
        addImageMap(std::move(map));
    }
}

std::shared_ptr<EXImageMap> HGCorvaneStyleCollection::createCategoryIndicatorImageMap(
    std::string name, std::int64_t color, BadgeStyle style, IconSize size) {
    constexpr Color kSymbol({1, 1, 1, 1});
    const auto background = categoryColors().at(static_cast<std::size_t>(color));
    auto map = std::make_shared<EXImageMap>(std::move(name));
    map->setBackgroundImage(badgeBase(style, size));
    for (const auto& indicator : categoryIndicatorNames())
        map->addImageNamed(indicator + (size == IconSize::Small ? "-s-t" : "-t"), kSymbol,
                           background);
    return map;
}

const HGCorvaneStyleCollection::Colors& HGCorvaneStyleCollection::priorityBackgroundColors() {
    static const Colors colors{Color::ofBytes(82, 204, 204, kPriorityRowAlpha),
                               Color::ofBytes(108, 217, 87, kPriorityRowAlpha),
                               NamedColors::mainBackgroundColor(),
                               Color::ofBytes(255, 170, 51, kPriorityRowAlpha),
                               Color::ofBytes(247, 62, 77, kPriorityRowAlpha)};
    return colors;
}

const HGCorvaneStyleCollection::Colors&
HGCorvaneStyleCollection::priorityAlternateBackgroundColors() {
    static const Colors colors{
        NamedColors::priorityLowestBackgroundColor(), NamedColors::priorityLowBackgroundColor(),
        NamedColors::mainAlternateBackgroundColor(), NamedColors::priorityHighBackgroundColor(),
        NamedColors::priorityHighestBackgroundColor()};
    return colors;
}

const Names& HGCorvaneStyleCollection::categoryIndicatorNames() {
    return HGIndicatorNameProvider::allCategoryIndicatorNames();
}

const Names& HGCorvaneStyleCollection::categoryColorNames() {
    return HGColorNameProvider::allColorNames();
}

const HGCorvaneStyleCollection::Colors& HGCorvaneStyleCollection::categoryColors() {
    static const Colors colors{
        NamedColors::categoryGrayColor(),   NamedColors::categoryPurpleColor(),
        NamedColors::categoryVioletColor(), NamedColors::categoryBlueColor(),
        NamedColors::categoryCyanColor(),   NamedColors::categoryGreenColor(),
        NamedColors::categoryOrangeColor(), NamedColors::categoryRedColor()};
    return colors;
}

std::string HGCorvaneStyleCollection::nameForIndicatorImageMapWithColor(std::int64_t color) {
    return "CategoryIndicatorImageMap-" + HGColorNameProvider::nameForColor(color);
}

std::string HGCorvaneStyleCollection::nameForIndicatorSmallImageMapWithColor(std::int64_t color) {
    return "CategoryIndicatorSmallImageMap-" + HGColorNameProvider::nameForColor(color);
}

std::shared_ptr<EXImageMap> HGCorvaneStyleCollection::indicatorImageMapForColor(
    std::int64_t color) {
    return EXImageMap::imageMapNamed(nameForIndicatorImageMapWithColor(color));
}

std::shared_ptr<EXImageMap> HGCorvaneStyleCollection::indicatorSmallImageMapForColor(
    std::int64_t color) {
    return EXImageMap::imageMapNamed(nameForIndicatorSmallImageMapWithColor(color));
}

ImagePtr HGCorvaneStyleCollection::statusMultipleImageForTouchBar() {
    return sharedImage("touch-status-multiple-t");
}

ImagePtr HGCorvaneStyleCollection::priorityMultipleImageForTouchBar() {
    return sharedImage("touch-priority-multiple-t");
}

ImagePtr HGCorvaneStyleCollection::categoryMultipleImageForTouchBar() {
    return sharedImage("touch-category-multiple");
}

ImagePtr HGCorvaneStyleCollection::categoryAddImageForTouchBar() {
    return sharedImage("touch-category-add");
}

ImagePtr HGCorvaneStyleCollection::starredImageForTouchBar() {
    return sharedImage("touch-starred-t");
}

ImagePtr HGCorvaneStyleCollection::baseCategoryTImage() {
    return sharedImage("category-base-t");
}

ImagePtr HGCorvaneStyleCollection::baseCategorySTImage() {
    return sharedImage("category-base-s-t");
}

ImagePtr HGCorvaneStyleCollection::baseProjectTImage() {
    return sharedImage("project-base-t");
}

ImagePtr HGCorvaneStyleCollection::baseProjectSTImage() {
    return sharedImage("project-base-s-t");
}

std::shared_ptr<EXImageMap> HGCorvaneStyleCollection::statusImageMapForTouchBar() {
    return EXImageMap::imageMapNamed("TaskStatusImageMap");
}

std::shared_ptr<EXImageMap> HGCorvaneStyleCollection::priorityImageMapForTouchBar() {
    return EXImageMap::imageMapNamed("PriorityImageMap");
}

HGCorvaneStyleCollection::Images HGCorvaneStyleCollection::repositoryProgressAnimationIcons() {
    return animation("repository");
}

HGCorvaneStyleCollection::Images HGCorvaneStyleCollection::syncingProgressAnimationIcons() {
    return animation("sync");
}

ImagePtr HGCorvaneStyleCollection::repositoryProgessIcon() {
    return sharedImage("repository00");
}

ImagePtr HGCorvaneStyleCollection::syncingProgressIcon() {
    return sharedImage("sync00");
}

}  // namespace corvane
