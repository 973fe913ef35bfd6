#include "corvane/platform/Console.h"
#include "corvane/platform/Palette.h"
#include "corvane/vocabulary/CVColorManager.h"
#include "corvane/vocabulary/CVImageManager.h"
#include "corvane/vocabulary/EXRGBColor.h"
#include "corvane/vocabulary/NamedColors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace corvane {
namespace {

using platform::Appearance;
using platform::Color;
using platform::Palette;
using testing::ElementsAre;

TEST(EXRGBColor, readsBackTheByteNearestToAFraction) {
    EXRGBColor orange(1.0, 0.5, 0.0);
    EXPECT_EQ(orange.intValue(), 0xFF8000);
    EXPECT_EQ(orange.green(), 128 / 255.0);
    EXPECT_EQ(EXRGBColor().intValue(), 0);
    for (int byte = 0; byte < 256; ++byte) {
        EXRGBColor color((255 - byte) / 255.0, byte / 255.0, (byte ^ 0x55) / 255.0);
        EXPECT_EQ(color.intValue(), (255 - byte) << 16 | byte << 8 | (byte ^ 0x55));
        EXPECT_EQ(EXRGBColor(color.red(), color.green(), color.blue()), color);
    }
    EXPECT_EQ(EXRGBColor(-1, 7, std::nan("")).intValue(), 0x00FF00);
}

TEST(Palette, readsWhatItCanAndTellsTheRest) {
    auto palette = Palette::parse(
        "# comment\n"
        "both = #0A66D9\n"
        "pair = #0A66D9  #5AA2FF80\n"
        "short = #FFF\n"
        "word = red\n"
        "odd = #12345G\n"
        "three = #000000 #000000 #000000\n"
        "sign = #-12345\n"
        "nothing\n");
    EXPECT_EQ(palette.colorNamed("both"), Color::ofBytes(0x0A, 0x66, 0xD9));
    EXPECT_EQ(palette.colorNamed("pair")->in(Appearance::Light).green, 0.4);
    EXPECT_EQ(palette.colorNamed("pair")->in(Appearance::Dark).alpha, 128 / 255.0);
    EXPECT_EQ(palette.colorNamed("short"), std::nullopt);
    EXPECT_THAT(palette.problems(),
                ElementsAre("line 9: no \"=\"", "odd: not one or two colors",
                            "short: not one or two colors", "sign: not one or two colors",
                            "three: not one or two colors", "word: not one or two colors"));
}

// Names of its own, because what is found is kept for the process.
TEST(NamedColors, keepsWhatItFoundAndStandsInForTheRest) {
    platform::RecordingConsole console;
    platform::ScopedConsole scope(console);
    const auto ask = [] { return NamedColors::colorNamed("inkColor"); };
    for (auto appearance : {Appearance::Light, Appearance::Dark})
        EXPECT_GT(std::abs(ask().in(appearance).red -
                           NamedColors::colorNamed("paperBackgroundColor").in(appearance).red),
                  0.4);
    EXPECT_THAT(console.lines(),
                ElementsAre("WARNING: Could not load color 'inkColor'",
                            "WARNING: Could not load color 'paperBackgroundColor'"));
    for (const char* text : {"inkColor = #010203", "inkColor = #FFFFFF"}) {
        auto palette = Palette::parse(text);
        platform::ScopedColorResources resources(palette);
        EXPECT_EQ(ask(), Color::ofBytes(1, 2, 3));
    }
    EXPECT_EQ(ask(), Color::ofBytes(1, 2, 3));
}

class TwoColors final : public CVColorManager {
  public:
    void addColorWithIdentifier(std::string_view identifier, double red, double green, double blue,
                                double alpha) override {
        storeColor(Color({red, green, blue, alpha}), identifier);
    }
    void defineGlobalColors() override { addColorWithIdentifier("half", 0.5, 0.5, 0.5, 0.5); }
};

TEST(CVColorManager, definesItsColorsWhenItIsSet) {
    CVColorManager::setInstance(std::make_shared<TwoColors>());
    EXPECT_EQ(CVColorManager::instance()->colorWithIdentifier("half"), Color({.5, .5, .5, .5}));
    EXPECT_EQ(CVColorManager::instance()->colorWithIdentifier("other"), std::nullopt);

    CVColorManager::setInstance(std::make_shared<CVColorManager>());
    CVColorManager::instance()->addColorWithIdentifier("half", 0.5, 0.5, 0.5, 0.5);
    EXPECT_EQ(CVColorManager::instance()->colorWithIdentifier("half"), std::nullopt);
    CVColorManager::setInstance(nullptr);
    EXPECT_EQ(CVColorManager::instance(), nullptr);
    EXPECT_EQ(CVImageManager().imageWithIdentifier("any"), nullptr);
}

}  // namespace
}  // namespace corvane
