// What holds for the looks of all controls: texts can be read, and layouts are mirrored.

#include "corvane/controls/Contrast.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/Palette.h"
#include "corvane/vocabulary/PaletteTheme.h"

#include "tests/controls/EveryControl.h"
#include "tests/support/TextCanvas.h"

#include <gtest/gtest.h>

namespace corvane::tests {
namespace {

constexpr platform::Size kWindowSize{320, 360};

struct Drawing {
    double width = 0;
    std::vector<DrawnText> texts;
    std::vector<platform::Rect> frames;  ///< of all views, in the window
};

void collectFrames(const views::View& view, std::vector<platform::Rect>& frames) {
    frames.push_back(view.convertToWindow(view.bounds()));
    for (const auto& inside : view.subviews())
        collectFrames(*inside, frames);
}

Drawing drawn(const ViewPtr& view, bool active = true) {
    // Choosers have one size and are shown in that.
    const bool isChooser = dynamic_cast<ChooserView*>(view.get()) != nullptr;
    views::Window window(isChooser ? view->preferredSizeThatFits(kWindowSize) : kWindowSize);
    window.setContentView(view);
    window.setActive(active);
    TextCanvas canvas;
    for (int i = 0; i < 2; ++i) {  // a first drawing may lay out what changes others
        canvas = {};
        window.draw(canvas, window.root().bounds());
    }
    Drawing drawing{window.size().width, canvas.texts(), {}};
    collectFrames(*view, drawing.frames);
    window.setContentView(nullptr);
    return drawing;
}

class LooksTest : public testing::Test {
  protected:
    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
};

void expectReadable(const std::string& theme) {
    const EveryControl controls;
    for (const auto& [name, view] : controls.all())
        for (const bool active : {true, false}) {
            const Drawing drawing = drawn(view, active);
            EXPECT_EQ(drawing.texts.empty(), name.starts_with("switch")) << name;
            for (const auto& text : drawing.texts)
                for (const auto appearance : {Appearance::Light, Appearance::Dark})
                    EXPECT_GE(text.contrastIn(appearance), 4.5)
                        << theme << ", " << name << (active ? "" : " inactive") << ": " << text.text
                        << (appearance == Appearance::Dark ? " in dark" : "");
        }
}

TEST_F(LooksTest, everyTextHasContrastToWhatLiesBehindIt) {
    expectReadable("theme of its own");
    const auto text = platform::readTextFile(CORVANE_PALETTE);
    ASSERT_TRUE(text);
    auto palette = platform::Palette::parse(*text);
    const platform::ScopedColorResources colors(palette);
    const views::ScopedTheme theme(themeOfPalette());
    expectReadable("palette");
    EXPECT_EQ(views::theme().accent, palette.colorNamed("tintColor"));
}

TEST_F(LooksTest, anyTextCanBeReadOnAnyGroundOfATheme) {
    const auto text = platform::readTextFile(CORVANE_PALETTE);
    auto palette = platform::Palette::parse(text.value_or(""));
    const platform::ScopedColorResources colors(palette);
    for (const views::Theme& theme : {views::Theme(), themeOfPalette()})
        for (const auto appearance : {Appearance::Light, Appearance::Dark}) {
            using Member = Color views::Theme::*;
            const std::vector<Member> grounds{
                &views::Theme::background, &views::Theme::controlBackground,
                &views::Theme::pressedBackground, &views::Theme::selection,
                &views::Theme::inactiveSelection};
            const auto expect = [&](Member front, Member ground) {
                EXPECT_GE(
                    contrastBetween((theme.*front).in(appearance), (theme.*ground).in(appearance)),
                    4.5);
            };
            for (const auto ground : grounds)
                for (const Member front : {&views::Theme::text, &views::Theme::secondaryText,
                                           &views::Theme::placeholderText, &views::Theme::accent})
                    expect(front, ground);
            expect(&views::Theme::textOnAccent, &views::Theme::accent);
        }
}

views::TextAlignment opposite(views::TextAlignment alignment) {
    if (alignment == views::TextAlignment::Center) return alignment;
    return alignment == views::TextAlignment::Left ? views::TextAlignment::Right
                                                   : views::TextAlignment::Left;
}

TEST_F(LooksTest, everyLayoutIsMirroredWhereLinesBeginAtTheRight) {
    const auto drawings = [](const char* locale) {
        const platform::ScopedLocale scope{platform::Locale(locale)};
        const EveryControl controls;
        std::vector<Drawing> result;
        for (const auto& [name, view] : controls.all())
            result.push_back(drawn(view));
        return result;
    };
    const auto straight = drawings("en_IL");
    const auto turned = drawings("he_IL");  // which writes the same digits
    const EveryControl controls;
    for (std::size_t i = 0; i < straight.size(); ++i) {
        SCOPED_TRACE(controls.all()[i].first);
        const double width = straight[i].width;
        const auto expectTurned = [&](const platform::Rect& rect, const platform::Rect& other) {
            if (rect.isEmpty() && other.isEmpty()) return;  // not to be seen, wherever it is
            EXPECT_NEAR(other.x, width - rect.right(), 1e-9);
            EXPECT_EQ(other.y, rect.y);
            EXPECT_EQ(other.size(), rect.size());
        };
        ASSERT_EQ(straight[i].frames.size(), turned[i].frames.size());
        for (std::size_t k = 0; k < straight[i].frames.size(); ++k)
            expectTurned(straight[i].frames[k], turned[i].frames[k]);
        ASSERT_EQ(straight[i].texts.size(), turned[i].texts.size());
        for (std::size_t k = 0; k < straight[i].texts.size(); ++k) {
            const auto& text = straight[i].texts[k];
            SCOPED_TRACE(text.text);
            expectTurned(text.rect, turned[i].texts[k].rect);
            EXPECT_EQ(turned[i].texts[k].alignment, opposite(text.alignment));
        }
    }
}

}  // namespace
}  // namespace corvane::tests
