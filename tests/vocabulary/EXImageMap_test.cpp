#include "corvane/vocabulary/EXImageMap.h"

#include "corvane/platform/Console.h"
#include "corvane/vocabulary/EXStyleCollection.h"

#include "tests/support/RecordingImageService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using platform::Color;
using testing::ElementsAre;
using testing::IsEmpty;
using tests::descriptionOf;

constexpr Color kRed = Color::ofBytes(255, 0, 0);
constexpr Color kBlue = Color::ofBytes(0, 0, 255);

struct EXImageMapTest : testing::Test {
    EXImageMapTest() {
        service.nameOfColor = [](const Color& color) { return color == kRed ? "red" : "blue"; };
    }
    std::vector<std::string> imagesOf(const EXImageMap& of) {
        std::vector<std::string> descriptions;
        for (const auto& image : of.images())
            descriptions.push_back(descriptionOf(image));
        return descriptions;
    }

    tests::RecordingImageService service;
    platform::RecordingConsole console;
    platform::ScopedConsole scope{console};
    EXImageMap map{"Map"};
};

TEST_F(EXImageMapTest, tintsTheImageAndTheBackgroundEachWithItsOwnColor) {
    map.addImageNamed("plain");
    map.addImageNamed("front", kRed);
    map.addImageNamed("back", std::nullopt, kBlue);
    map.addImageNamed("both", kRed, kBlue);
    EXImageMap withoutBackground("Other");
    withoutBackground.addImagesFromMap(map);

    map.setBackgroundImage(std::make_shared<tests::DescribedImage>("base"));
    EXPECT_THAT(imagesOf(map), ElementsAre("plain over base", "front*red over base",
                                           "back over base*blue", "both*red over base*blue"));
    EXPECT_THAT(imagesOf(withoutBackground), ElementsAre("plain", "front*red", "back", "both*red"));
}

TEST_F(EXImageMapTest, loadsOnDemandOnceAndTriesAgainWhatFailed) {
    map.setImageNames({"a", "b"});
    service.missing = {"b"};
    EXPECT_THAT(service.asked, IsEmpty());

    auto image = map.imageAtIndex(0);
    EXPECT_EQ(map.imageAtIndex(0), image);
    EXPECT_THAT(service.asked, ElementsAre("a"));

    const auto warning = "WARNING: Could not load image 'b' in image map 'Map'";
    EXPECT_EQ(map.imageAtIndex(1), nullptr);
    EXPECT_THAT(imagesOf(map), ElementsAre("a", "none"));
    EXPECT_THAT(console.lines(), ElementsAre(warning, warning));

    service.missing.clear();
    EXPECT_EQ(descriptionOf(map.imageAtIndex(1)), "b");
    EXPECT_THAT(service.asked, ElementsAre("a", "b", "b", "b"));
}

TEST_F(EXImageMapTest, keepsItsListsParallel) {
    map.addImageNamed("a", kRed, kBlue);
    map.imageAtIndex(0);
    map.addImagesFromMap(map);
    EXPECT_THAT(map.imageNames(), ElementsAre("a", "a"));
    EXPECT_EQ(map.tintColorForImageAtIndex(1), kRed);
    EXPECT_EQ(map.backgroundTintColorForImageAtIndex(1), kBlue);

    map.setImageNames({"x", "y", "z"});
    EXPECT_THAT(map.imageTintColors(), testing::Each(std::nullopt));
    EXPECT_EQ(map.imageTintColors().size(), 3U);
    EXPECT_EQ(map.imageBackgroundTintColors(), map.imageTintColors());
    EXPECT_THAT(imagesOf(map), ElementsAre("x", "y", "z"));
    map.setImageNames({});
    EXPECT_EQ(map.imageCount(), 0);
}

TEST_F(EXImageMapTest, givesNothingOutsideOfIt) {
    map.setImageNames({"a"});
    for (std::int64_t index : {-1L, 1L, INT64_MIN, INT64_MAX}) {
        EXPECT_EQ(map.imageAtIndex(index), nullptr);
        EXPECT_EQ(map.nameForImageAtIndex(index), std::nullopt);
        EXPECT_EQ(map.tintColorForImageAtIndex(index), std::nullopt);
        EXPECT_EQ(map.backgroundTintColorForImageAtIndex(index), std::nullopt);
    }
    EXPECT_THAT(service.asked, IsEmpty());
}

TEST(EXStyleCollection, keepsTheLatestOfANameAndNothingWithoutOne) {
    EXPECT_EQ(EXImageMap::imageMapNamed("Map"), nullptr);
    EXPECT_EQ(EXStyle::styleNamed("Style"), nullptr);
    auto collection = std::make_shared<EXStyleCollection>();
    EXStyleCollection::setDefaultCollection(collection);

    collection->addImageMap(std::make_shared<EXImageMap>());
    collection->addImageMap(nullptr);
    collection->addStyle(std::make_shared<EXStyle>());
    collection->addStyle(nullptr);
    EXPECT_THAT(collection->imageMaps(), IsEmpty());
    EXPECT_THAT(collection->styles(), IsEmpty());

    auto later = std::make_shared<EXImageMap>("Map");
    collection->addImageMap(std::make_shared<EXImageMap>("Map"));
    collection->addImageMap(later);
    auto style = std::make_shared<EXStyle>();
    style->name = "Style";
    collection->addStyle(style);
    EXPECT_EQ(EXImageMap::imageMapNamed("Map"), later);
    EXPECT_EQ(EXStyle::styleNamed("Style"), style);
    EXStyleCollection::setDefaultCollection(nullptr);
}

}  // namespace
}  // namespace corvane
