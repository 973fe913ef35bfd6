#include "corvane/controls/CVMacActivityProgress.h"
#include "corvane/controls/CVMacBadgeView.h"
#include "corvane/controls/CVMacImageView.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/controls/Contrast.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/ManualRunLoop.h"
#include "corvane/platform/NotificationCenter.h"
#include "corvane/views/Event.h"
#include "corvane/views/Window.h"

#include "tests/support/RecordingImageService.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

using namespace corvane;
using views::KeyEvent;
using views::MouseEvent;

namespace {

struct SmallControls : testing::Test {
    void drag(views::Point from, views::Point to) {
        window.mouseDown(MouseEvent(from));
        window.mouseDragged(MouseEvent(to));
        window.mouseUp(MouseEvent(to));
    }
    void press(char32_t key) { window.keyDown(KeyEvent(key)); }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    platform::ManualRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    views::Window window{{300, 100}};
};

struct ActivityProgress : SmallControls {
    ActivityProgress() {
        window.root().addSubview(view);
        progress->didEnd = [this](bool cancelled) { log += cancelled ? "cancelled" : "done"; };
    }
    static bool isHeldBack() {
        return EXProcessManager::defaultManager().backgroundActivitiesPending();
    }

    std::shared_ptr<CVMacProgressView> view =
        std::make_shared<CVMacProgressView>(views::Rect{0, 0, 300, 60});
    std::shared_ptr<CVMacActivityProgress> progress = std::make_shared<CVMacActivityProgress>(view);
    std::string log;
};

}  // namespace

TEST_F(SmallControls, SwitchIsClickedDraggedAndPushed) {
    const auto knob = std::make_shared<CVMacSwitch>(views::Rect{0, 0, 42, 26});
    window.root().addSubview(knob);
    window.makeFirstResponder(knob);
    std::string sent;
    knob->setAction([&](views::Control&) { sent += knob->isOn() ? "1" : "0"; });
    const auto after = [&](auto&&... act) {
        (act(), ...);
        return std::exchange(sent, "");
    };
    const auto dragged = [&](double from, double to) {
        return [=, this] { drag({from, 10}, {to, 10}); };
    };
    const auto pressed = [&](char32_t key) { return [=, this] { press(key); }; };
    EXPECT_EQ(after(dragged(5, 6), dragged(5, 6), dragged(5, 60)), "101");
    EXPECT_EQ(after(dragged(30, 27), dragged(5, 10), dragged(5, 15)),
              "01");  // a click, too short, on
    knob->setOn(true);
    EXPECT_EQ(after(pressed(U' '), pressed(views::kKeyRightArrow), pressed(views::kKeyRightArrow)),
              "01");
    {
        platform::ScopedLocale arabic{platform::Locale("ar")};
        EXPECT_EQ(after(pressed(views::kKeyRightArrow), dragged(30, 5), dragged(5, 30)), "010");
    }
    knob->setEnabled(false);
    EXPECT_EQ(after(dragged(5, 6), pressed(U' '), [&] { knob->accessibilityPress(); }), "");
    EXPECT_EQ(knob->accessibilityChecked(), false);
}

TEST_F(SmallControls, BadgeTextReadsOnEveryColor) {
    const auto badge = std::make_shared<CVMacBadgeView>();
    for (const auto& [count, text] : std::map<std::int64_t, std::string>{
             {-1, ""}, {0, ""}, {1, "1"}, {999, "999"}, {1000, "999+"}}) {
        badge->setCount(count);
        EXPECT_EQ(badge->text(), text);
        EXPECT_EQ(badge->isHidden(), count <= 0);
    }
    for (const auto& [locale, exact, shown] :
         std::vector<std::tuple<const char*, const char*, const char*>>{
             {"en_US", "1,000", "999+"}, {"de_DE", "1.000", "999+"}, {"ar_EG", "١٬٠٠٠", "٩٩٩+"}}) {
        const platform::ScopedLocale scope{platform::Locale(locale)};
        EXPECT_EQ(badge->accessibilityName(), exact);
        EXPECT_EQ(badge->text(), shown);
    }
    badge->setAccessibilityName("Inbox");
    EXPECT_EQ(badge->accessibilityName(), "Inbox");
    for (int red = 0; red <= 255; red += 15)
        for (int green = 0; green <= 255; green += 15)
            for (int blue = 0; blue <= 255; blue += 15) {
                const auto color = platform::Color::ofBytes(red, green, blue);
                const auto light = platform::Appearance::Light;
                ASSERT_GE(contrastBetween(readableTextOn(color).in(light), color.in(light)), 4.5);
            }
    EXPECT_NEAR(contrastBetween({0, 0, 0}, {1, 1, 1}), 21, 1e-9);
}

TEST_F(SmallControls, ImageViewShowsTheMapsImageInItsTint) {
    tests::RecordingImageService images;
    images.nameOfColor = [](const platform::Color& color) {
        return color == platform::Color::ofBytes(255, 0, 0) ? "red" : "own";
    };
    const auto map = std::make_shared<EXImageMap>();
    map->setImageNames({"plain", "shape-t"});
    const auto view = std::make_shared<CVMacImageView>(views::Rect{0, 0, 30, 30});
    window.root().addSubview(view);
    const auto shown = [&](std::int64_t index) {
        view->setImageIndex(index);
        return tests::descriptionOf(view->image());
    };
    EXPECT_EQ(shown(0), "none");
    view->setImageMap(map);
    EXPECT_EQ(shown(0) + shown(1) + shown(2), "plainshape-t*ownnone");
    map->setTintColor(platform::Color::ofBytes(255, 0, 0));
    EXPECT_EQ(shown(1), "shape-t*red");

    int clicks = 0;
    view->setAction([&](views::Control& sender) {
        ++clicks;
        sender.removeFromSuperview();
    });
    EXPECT_FALSE(window.mouseDown(MouseEvent({5, 5})));
    EXPECT_EQ(view->accessibilityRole(), views::Role::Image);
    view->setClickable(true);
    drag({5, 5}, {50, 5});
    EXPECT_EQ(clicks, 0);
    drag({5, 5}, {6, 5});
    window.root().addSubview(view);
    window.makeFirstResponder(view);
    press(U' ');
    view->setEnabled(false);
    view->accessibilityPress();
    EXPECT_EQ(clicks, 2);
    view->setToolTip("Starred");
    EXPECT_EQ(view->accessibilityName(), "Starred");
}

TEST_F(SmallControls, ProgressViewTakesAnyFraction) {
    CVMacProgressView view;
    for (const auto& [given, value] :
         std::vector<std::pair<std::optional<double>, std::string>>{{0.0, "0%"},
                                                                    {0.29, "29%"},
                                                                    {0.999, "99%"},
                                                                    {7.0, "100%"},
                                                                    {-1.0, "0%"},
                                                                    {NAN, ""},
                                                                    {{}, ""}}) {
        view.setFraction(given);
        EXPECT_EQ(view.accessibilityValue(), value);
    }
    view.setFraction(0.42);
    for (const auto& [locale, value] : std::map<std::string, std::string>{
             {"de_DE", "42\u00A0%"}, {"tr_TR", "%42"}, {"fa_IR", "۴۲٪"}}) {
        const platform::ScopedLocale scope{platform::Locale(locale)};
        EXPECT_EQ(view.accessibilityValue(), value);
    }
}

TEST_F(ActivityProgress, RunsOneStepATurn) {
    int steps = 0;
    EXPECT_FALSE(progress->begin("Nothing", {}));
    EXPECT_TRUE(progress->begin("Saving", [&] { return ++steps / 4.0; }));
    EXPECT_FALSE(progress->begin("Other", [] { return 1.0; }));
    EXPECT_TRUE(isHeldBack());
    EXPECT_EQ(view->accessibilityName(), "Saving");
    for (const char* expected : {"25%", "50%", "75%", "100%"}) {
        EXPECT_EQ(log, "");
        loop.runTurn();
        EXPECT_EQ(view->accessibilityValue(), expected);
    }
    EXPECT_EQ(log, "done");
    EXPECT_FALSE(isHeldBack());
    EXPECT_FALSE(view->isCancellable());
    loop.advance(1);
    EXPECT_EQ(steps, 4);
}

TEST_F(ActivityProgress, EndsInEveryCase) {
    int steps = 0;
    const auto endless = [&]() -> std::optional<double> {
        ++steps;
        return std::nullopt;
    };
    const auto step = [&](auto work) {
        log.clear();
        progress->begin("Work", work);
        loop.runTurn();
    };
    step(endless);
    window.keyDown(KeyEvent(views::kKeyTab));  // to the button
    window.keyDown(KeyEvent(views::kKeyEscape));
    EXPECT_EQ(log, "cancelled");
    step(endless);
    const auto bottom = view->subviews()[0]->convertToWindow(views::Point{5, 5});
    drag(bottom, bottom);
    EXPECT_EQ(log, "cancelled");
    loop.runTurn();
    EXPECT_EQ(steps, 2);
    step([&] {
        progress->cancel();
        return 0.5;
    });
    EXPECT_EQ(log, "cancelled");
    {
        // Whoever waits for the last activity, and lets go of everything then.
        auto other = std::make_shared<CVMacActivityProgress>(nullptr);
        other->didEnd = [&](bool) { log += " after all"; };
        const auto observation = platform::defaultNotificationCenter().addObserver(
            EXProcessManagerAllBackgroundActivitiesCompletedNotification, nullptr,
            [&](const auto&) { other.reset(); });
        other->begin("Other", endless);
        other->cancel();
        EXPECT_EQ(log, "cancelled after all");
    }
    step([&]() -> double { throw std::runtime_error("disk is full"); });
    EXPECT_EQ(log, "cancelled");
    EXPECT_NE(console.lines().back().find("disk is full"), std::string::npos);
    EXPECT_FALSE(isHeldBack());
    step(endless);
    EXPECT_TRUE(isHeldBack());
    log.clear();
    progress.reset();
    loop.runTurn();
    EXPECT_EQ(log, "");
    EXPECT_EQ(steps, 3);
    EXPECT_FALSE(isHeldBack());
    EXPECT_FALSE(view->isCancellable());
}
