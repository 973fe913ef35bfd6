#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "corvane/platform/ColorResources.h"
#include "corvane/vocabulary/NamedColors.h"

#include "tests/support/RecordingImageService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

using platform::Color;
using tests::descriptionOf;
using Collection = HGCorvaneStyleCollection;

/// Knows every name, and by which name it gave a color.
class NumberedColors final : public platform::ColorResources {
  public:
    std::optional<Color> colorNamed(std::string_view name) override {
        names.emplace_back(name);
        return numbered(names.size() - 1);
    }
    std::string nameOf(const Color& color) const {
        if (color == Color({1, 1, 1})) return "white";
        for (std::size_t i = 0; i < names.size(); ++i)
            if (numbered(i) == color) return names[i];
        return "unknown";
    }
    std::vector<std::string> names;

  private:
    static Color numbered(std::size_t i) { return Color({0.5, 0, static_cast<double>(i)}); }
    platform::ScopedColorResources scope_{*this};
};

// Named colors are kept for the process, and so is what these tests look at.
struct World {
    NumberedColors colors;
    tests::RecordingImageService service;
    std::shared_ptr<Collection> collection;

    World() {
        service.nameOfColor = [this](const Color& color) { return colors.nameOf(color); };
        collection = std::make_shared<Collection>();
        EXStyleCollection::setDefaultCollection(collection);
    }
};

World& world() {
    static World instance;
    return instance;
}

const std::vector<std::string> kColorNames{"Gray", "Purple", "Violet", "Blue",
                                           "Cyan", "Green",  "Orange", "Red"};

TEST(HGCorvaneStyleCollection, paintsEveryIndicatorWhiteOnABadgeOfEveryColor) {
    world();
    struct Kind {
        const char* map;
        const char* suffix;
        const char* base;
    };
    for (const Kind& kind :
         {Kind{"CategoryIndicatorImageMap", "-t", "category-base-t"},
          Kind{"CategoryIndicatorSmallImageMap", "-s-t", "category-base-s-t"},
          Kind{"ProjectCategoryIndicatorImageMap", "-t", "project-base-t"},
          Kind{"ProjectCategoryIndicatorSmallImageMap", "-s-t", "project-base-s-t"}}) {
        auto map = EXImageMap::imageMapNamed(kind.map);
        ASSERT_EQ(map->imageCount(), 360) << kind.map;
        for (std::int64_t i = 0; i < 360; ++i)
            EXPECT_EQ(descriptionOf(map->imageAtIndex(i)),
                      Collection::categoryIndicatorNames()[i % 45] + kind.suffix + "*white over " +
                          kind.base + "*category" + kColorNames[i / 45] + "Color");
    }
    auto badge = EXImageMap::imageMapNamed("CategoryIndicatorImageMap")->imageAtIndex(47);
    EXPECT_EQ(descriptionOf(badge), "email-t*white over category-base-t*categoryPurpleColor");
}

TEST(HGCorvaneStyleCollection, hasAMapOfEachColorForCategoriesOnly) {
    world();
    auto combined = EXImageMap::imageMapNamed("CategoryIndicatorSmallImageMap");
    for (std::int64_t color = 0; color < 8; ++color) {
        auto map = Collection::indicatorSmallImageMapForColor(color);
        ASSERT_EQ(map->imageCount(), 45);
        EXPECT_EQ(descriptionOf(map->imageAtIndex(2)),
                  descriptionOf(combined->imageAtIndex(color * 45 + 2)));
    }
    EXPECT_EQ(Collection::indicatorImageMapForColor(7),
              EXImageMap::imageMapNamed("CategoryIndicatorImageMap-red"));
    EXPECT_EQ(EXImageMap::imageMapNamed("ProjectCategoryIndicatorImageMap-red"), nullptr);
    EXPECT_THROW(Collection::indicatorImageMapForColor(8), std::out_of_range);
    EXPECT_THROW(Collection::createCategoryIndicatorImageMap(
                     "", -1, Collection::BadgeStyle::Category, Collection::IconSize::Small),
                 std::out_of_range);
}

std::string summaryOf(const EXImageMap& map) {
    std::string summary;
    for (std::int64_t i = 0; i < map.imageCount(); ++i)
        summary += descriptionOf(map.imageAtIndex(i)) + " ";
    return summary + "| " + (map.tintColor() ? world().colors.nameOf(*map.tintColor()) : "-");
}

TEST(HGCorvaneStyleCollection, hasTheImagesOfEveryCode) {
    const std::string project =
        "status-actionable-t status-in-progress-t status-on-hold-t status-completed-t "
        "status-canceled-t | mainTextColor";
    const std::string smallProject =
        "status-actionable-s-t status-in-progress-s-t status-on-hold-s-t status-completed-s-t "
        "status-canceled-s-t | mainTextColor";
    const std::map<std::string, std::string> expected{
        {"PriorityImageMap",
         "priority-trivial priority-low priority-medium priority-high priority-critical | -"},
        {"ProjectStatusImageMap", project},
        {"ProjectStatusTemplateImageMap", project},
        {"ProjectStatusSmallImageMap", smallProject},
        {"ProjectStatusSmallTemplateImageMap", smallProject},
        {"AttachmentTypeImageMap", "accessory-link-t | -"},
        {"AttachmentTypeSmallImageMap", "accessory-link-s-t | -"},
        {"ActionStatusImageMap",
         "status-actionable-t status-in-progress-t status-completed-t | mainTextColor"},
        {"ActionStatusSmallImageMap",
         "status-actionable-s-t status-in-progress-s-t status-completed-s-t | mainTextColor"},
        {"ActionStatusUltraSmallImageMap",
         "status-actionable-us-t status-in-progress-us-t status-completed-us-t | mainTextColor"},
        {"TaskStatusImageMap",
         "status-inbox-t status-someday-t status-scratchpad-t status-actionable-t "
         "status-in-progress-t status-on-hold-t status-completed-t status-canceled-t "
         "status-trash-t | mainTextColor"},
        {"TaskStatusSmallImageMap",
         "status-inbox-s-t status-someday-s-t status-scratchpad-s-t status-actionable-s-t "
         "status-in-progress-s-t status-on-hold-s-t status-completed-s-t status-canceled-s-t "
         "status-trash-s-t | -"},
        {"ContributorIndicatorImageMap",
         "contributor-person-t contributor-organization-t contact-person-t "
         "contact-organization-t | mainDescriptiveColor"},
        {"ContributorIndicatorSmallImageMap",
         "indicator-assigned-person-s-t indicator-assigned-organization-s-t "
         "indicator-contact-person-s-t indicator-contact-organization-s-t | "
         "mainDescriptiveColor"},
    };
    for (const auto& [name, summary] : expected)
        EXPECT_EQ(summaryOf(*world().collection->imageMapWithName(name)), summary) << name;

    for (std::int64_t i = 0; i < 8; ++i) {
        const auto tint = "*category" + kColorNames[i] + "Color";
        EXPECT_EQ(descriptionOf(EXImageMap::imageMapNamed("ColorImageMap")->imageAtIndex(i)),
                  "category-base-t" + tint);
        EXPECT_EQ(descriptionOf(EXImageMap::imageMapNamed("ColorSmallImageMap")->imageAtIndex(i)),
                  "category-base-s-t" + tint);
    }
    // Those above, the combined ones, and two of each color.
    EXPECT_EQ(world().collection->imageMaps().size(), expected.size() + 2 + 4 + 2 * 8);

    auto tint = EXStyle::styleNamed("TintStyle");
    EXPECT_EQ(tint->backgroundColor, NamedColors::mainBackgroundColor());
    EXPECT_EQ(tint->tintColor, NamedColors::tintColor());
}

TEST(HGCorvaneStyleCollection, colorsRowsByPriority) {
    world();
    const auto& rows = Collection::priorityBackgroundColors();
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0], Color::ofBytes(82, 204, 204).withAlpha(0.2));
    EXPECT_EQ(rows[2], NamedColors::mainBackgroundColor());
    EXPECT_EQ(rows[4], Color::ofBytes(247, 62, 77).withAlpha(0.2));
    std::vector<std::string> alternate;
    for (const auto& color : Collection::priorityAlternateBackgroundColors())
        alternate.push_back(world().colors.nameOf(color));
    EXPECT_THAT(alternate,
                testing::ElementsAre("priorityLowestBackgroundColor", "priorityLowBackgroundColor",
                                     "mainAlternateBackgroundColor", "priorityHighBackgroundColor",
                                     "priorityHighestBackgroundColor"));
    auto asked = world().colors.names;
    std::sort(asked.begin(), asked.end());
    EXPECT_EQ(std::adjacent_find(asked.begin(), asked.end()), asked.end());
}

TEST(HGCorvaneStyleCollection, sharesItsSingleImagesOnceTheyAreThere) {
    auto& service = world().service;
    service.missing = {"touch-starred-t", "sync00"};
    EXPECT_EQ(Collection::starredImageForTouchBar(), nullptr);
    EXPECT_EQ(Collection::syncingProgressAnimationIcons().front(), nullptr);
    service.missing.clear();
    EXPECT_EQ(descriptionOf(Collection::starredImageForTouchBar()), "touch-starred-t");
    EXPECT_EQ(Collection::starredImageForTouchBar(), Collection::starredImageForTouchBar());

    auto frames = Collection::repositoryProgressAnimationIcons();
    ASSERT_EQ(frames.size(), 12U);
    EXPECT_EQ(descriptionOf(frames.back()), "repository11");
    EXPECT_EQ(frames.front(), Collection::repositoryProgessIcon());
    EXPECT_EQ(descriptionOf(Collection::syncingProgressIcon()), "sync00");
}

}  // namespace
}  // namespace corvane
