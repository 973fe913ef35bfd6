#include "corvane/controls/Contrast.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Files.h"
#include "corvane/qt/QtImage.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"
#include "corvane/vocabulary/NamedColors.h"

#include "apps/gallery/IconSheet.h"
#include "apps/gallery/Resources.h"

#include "tests/support/Blending.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace corvane::gallery {
namespace {

using platform::Appearance;
using platform::RGBA;
using tests::over;

using Icons = Resources::Icons;

Resources resources(Icons icons) {
    const std::string directory = CORVANE_GALLERY_RESOURCES;
    return Resources(*platform::readTextFile(directory + "/" + kPaletteFile),
                     *platform::readTextFile(directory + "/" + kImagesFile), icons);
}

double opaquePortion(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    return sum / (image.width() * image.height());
}

class ArtworkTest : public testing::TestWithParam<Icons> {};

TEST_P(ArtworkTest, leavesNoNameOfAnyMapBlankAndNoTwoOfOneMapAlike) {
    platform::RecordingConsole console;
    platform::ScopedConsole scope(console);
    const auto inForce = resources(GetParam());
    const HGCorvaneStyleCollection collection;
    const bool mayLookAlike = GetParam() == Icons::Drawn;  // letters
    for (double scale : {1.0, 2.0})
        for (const auto& [name, map] : collection.imageMaps()) {
            std::map<std::string, QImage> seen;
            for (std::int64_t i = 0; i < map->imageCount(); ++i) {
                const auto key = *map->nameForImageAtIndex(i);
                const auto symbol = platform::imageService().imageNamed(key);
                const auto image = qt::renderedImage(symbol, scale, Appearance::Light);
                ASSERT_FALSE(image.isNull()) << key;
                EXPECT_GT(opaquePortion(image), 0.02) << key << " at " << scale;
                for (const auto& [other, its] : seen)
                    EXPECT_TRUE(other == key || its != image || mayLookAlike) << key << other;
                seen.emplace(key, image);
            }
        }
    EXPECT_THAT(console.lines(), testing::IsEmpty());
}

TEST_P(ArtworkTest, drawsEveryFrameAndTheTouchBar) {
    const auto inForce = resources(GetParam());
    using Collection = HGCorvaneStyleCollection;
    auto images = Collection::repositoryProgressAnimationIcons();
    for (const auto& frame : Collection::syncingProgressAnimationIcons())
        images.push_back(frame);
    for (auto image :
         {&Collection::statusMultipleImageForTouchBar,
          &Collection::priorityMultipleImageForTouchBar,
          &Collection::categoryMultipleImageForTouchBar, &Collection::categoryAddImageForTouchBar,
          &Collection::starredImageForTouchBar})
        images.push_back(image());
    for (std::size_t i = 0; i < images.size(); ++i)
        for (std::size_t j = 0; j <= i; ++j) {
            const auto image = qt::renderedImage(images[i], 1, Appearance::Dark);
            ASSERT_GT(opaquePortion(image), 0.05) << i;
            EXPECT_EQ(image == qt::renderedImage(images[j], 1, Appearance::Dark), i == j);
        }
    for (const char* unknown : {"sync12", "sync1", "sync-1", "nobody"})
        EXPECT_EQ(platform::imageService().imageNamed(unknown), nullptr) << unknown;
}

INSTANTIATE_TEST_SUITE_P(IconSet, ArtworkTest, testing::Values(Icons::FromSet, Icons::Drawn),
                         [](const auto& each) {
                             return each.param == Icons::FromSet ? "FromSet" : "Drawn";
                         });

TEST(Palette, hasEveryColorAndIsReadableOnEveryGround) {
    platform::RecordingConsole console;
    platform::ScopedConsole scope(console);
    const auto inForce = resources(Icons::FromSet);
    for (auto appearance : {Appearance::Light, Appearance::Dark}) {
        const auto paper = NamedColors::mainBackgroundColor().in(appearance);
        std::vector<RGBA> grounds;
        for (auto name : NamedColors::allNames())
            if (name.find("Background") != name.npos)
                grounds.push_back(NamedColors::colorNamed(name).in(appearance));
        for (const auto& row : HGCorvaneStyleCollection::priorityBackgroundColors())
            grounds.push_back(over(row.in(appearance), paper));
        for (const auto& ground : grounds)
            for (const auto& text : {NamedColors::mainTextColor(), NamedColors::tintColor(),
                                     NamedColors::mainDescriptiveColor()})
                EXPECT_GE(contrastBetween(text.in(appearance), ground), 4.5);
        for (const auto& badge : HGCorvaneStyleCollection::categoryColors()) {
            EXPECT_GE(contrastBetween(badge.in(appearance), {1, 1, 1}), 3);
            EXPECT_GE(contrastBetween(badge.in(appearance), paper), 3);
        }
    }
    EXPECT_EQ(inForce.palette().colors().size(), NamedColors::allNames().size());
    EXPECT_THAT(console.lines(), testing::IsEmpty());
}

}  // namespace
}  // namespace corvane::gallery
