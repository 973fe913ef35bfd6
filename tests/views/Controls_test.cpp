#include "corvane/platform/Locale.h"
#include "corvane/views/Button.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Menu.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/TextView.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include "tests/support/TextCanvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

using namespace corvane::views;

namespace {

void click(Window& window, Point from, Point to) {
    window.mouseDown(MouseEvent(from));
    window.mouseDragged(MouseEvent(to));
    window.mouseUp(MouseEvent(to));
}

}  // namespace

TEST(Button, SendsItsActionWhenItIsReleasedInside) {
    Window window({100, 100});
    const auto button = std::make_shared<Button>(Rect{0, 0, 50, 20});
    window.root().addSubview(button);
    int sent = 0;
    button->setAction([&](Control& sender) {
        ++sent;
        sender.setAction([&](Control& other) {  // another one from then on
            sent += 10;
            other.removeFromSuperview();
        });
    });
    button->setToggles(true);
    click(window, {5, 5}, {60, 5});
    EXPECT_EQ(sent, 0);
    button->setEnabled(false);
    click(window, {5, 5}, {5, 5});
    EXPECT_EQ(sent, 0);
    button->setEnabled(true);
    click(window, {5, 5}, {6, 5});
    EXPECT_EQ(sent, 1);
    EXPECT_TRUE(button->isOn());
    window.makeFirstResponder(button);
    window.keyDown(KeyEvent(std::string(" ")));
    EXPECT_EQ(sent, 11);
    EXPECT_FALSE(button->isOn());
    EXPECT_EQ(window.firstResponder(), nullptr);
}

TEST(Controls, LookReleasedWhenTheyAreShownAgain) {
    Window window({50, 20});
    const auto button = std::make_shared<Button>(Rect{0, 0, 50, 20});
    button->setTitle("Cancel");
    const auto segments = std::make_shared<SegmentedControl>(Rect{0, 0, 50, 20});
    segments->setSegments({{"Day"}});
    const auto ground = [](View& view) {
        corvane::tests::TextCanvas canvas;
        view.drawTree(canvas, view.bounds());
        return canvas.texts().at(0).ground;
    };
    for (const std::shared_ptr<Control>& control :
         {std::shared_ptr<Control>(button), std::shared_ptr<Control>(segments)}) {
        window.root().addSubview(control);
        const auto released = ground(*control);
        control->setAction([](Control&) { FAIL(); });
        window.mouseDown(MouseEvent({5, 5}));
        EXPECT_NE(ground(*control), released);
        control->setHidden(true);
        control->setHidden(false);
        EXPECT_EQ(ground(*control), released);
        window.mouseUp(MouseEvent({5, 5}));
    }
}

TEST(SegmentedControl, SelectsOneOrNone) {
    Window window({90, 20});
    const auto control = std::make_shared<SegmentedControl>(Rect{0, 0, 90, 20});
    window.root().addSubview(control);
    std::string sent;
    control->setAction([&](Control&) { sent += std::to_string(control->selectedSegment()); });
    control->setSegments({{"a", {}}, {"b", {}}, {"c", {}}});
    EXPECT_EQ(control->selectedSegment(), -1);
    click(window, {1, 1}, {89.5, 1});
    window.makeFirstResponder(control);
    for (const char32_t key : {kKeyRightArrow, kKeyLeftArrow, kKeyLeftArrow, kKeyLeftArrow})
        window.keyDown(KeyEvent(key));
    EXPECT_EQ(sent, "210");
    control->setSelectedSegment(3);
    EXPECT_EQ(control->selectedSegment(), -1);
    EXPECT_EQ(control->accessibilityValue(), "");
}

TEST(SegmentedControl, PassesOverWhatIsDisabled) {
    struct : WindowHost {
        void accessibilityDidChange(View& view, AccessibilityChange change) override {
            const char* names[] = {"name", "value", "checked", "selected", "enabled"};
            log += view.accessibilityName() + ":" + names[static_cast<int>(change)] + " ";
        }
        std::string log;
    } host;
    Window window({90, 20});
    window.setHost(&host);
    const auto control = std::make_shared<SegmentedControl>(Rect{0, 0, 90, 20});
    window.root().addSubview(control);
    control->setSegments({{"a"}, {"b"}, {"c", {}, "Sea"}, {"d", {}, "", false}});
    host.log.clear();
    control->setSegmentEnabled(0, false);
    control->setSegmentEnabled(4, false);
    window.makeFirstResponder(control);
    for (const auto& [keys, selected] :
         std::vector<std::pair<std::vector<char32_t>, int>>{{{U' '}, 1},
                                                            {{kKeyRightArrow, kKeyRightArrow}, 2},
                                                            {{kKeyLeftArrow, kKeyLeftArrow}, 1},
                                                            {{kKeyEnd}, 2},
                                                            {{kKeyHome}, 1}}) {
        for (const char32_t key : keys)
            window.keyDown(KeyEvent(key));
        EXPECT_EQ(control->selectedSegment(), selected);
    }
    click(window, {85, 5}, {85, 5});
    EXPECT_EQ(control->selectedSegment(), 1);
    EXPECT_TRUE(host.log.starts_with("a:enabled b:checked :value b:checked Sea:checked :value "));
    const auto sea = window.viewAt({60, 5});
    EXPECT_EQ(sea->toolTip(), "Sea");
    control->setAction(
        [](Control& sender) { static_cast<SegmentedControl&>(sender).setSegments({}); });
    sea->accessibilityPress();
    sea->accessibilityPress();  // of no control any more
    EXPECT_EQ(sea->accessibilityChecked(), false);
    EXPECT_EQ(control->selectedSegment(), -1);
}

TEST(SegmentedControl, GivesRoomToWhatNeedsIt) {
    const auto control = std::make_shared<SegmentedControl>(Rect{0, 0, 200, 20});
    control->setSegments({{"a"}, {"as long as it gets"}});
    const auto size = control->preferredSizeThatFits({});
    control->layoutIfNeeded();
    const auto& longOne = *control->subviews()[1];
    EXPECT_GT(longOne.frame().width, 130);
    EXPECT_EQ(longOne.toolTip(), "");
    control->setFrameSize(size);
    control->layoutIfNeeded();
    EXPECT_EQ(longOne.frame().width * 2, size.width);
    {
        corvane::platform::ScopedLocale arabic{corvane::platform::Locale("ar")};
        control->layoutIfNeeded();
        EXPECT_EQ(longOne.frame().x, 0);
    }
    control->setFrameSize({100, 20});
    control->layoutIfNeeded();
    EXPECT_EQ(longOne.toolTip(), "as long as it gets");
}

TEST(Button, SaysWhatItCutsOff) {
    Button button;
    button.setTitle("Title");
    const auto size = button.preferredSizeThatFits({});
    for (const auto& [width, tip] :
         std::map<double, std::string>{{size.width, ""}, {size.width - 12, ""}, {30, "Title"}}) {
        button.setFrameSize({width, size.height});
        EXPECT_EQ(button.toolTip(), tip) << width;
    }
    button.setToolTip("Tip");
    EXPECT_EQ(button.toolTip(), "Tip");
}

TEST(IconAndText, LeavesTheDetailWhatTheTextDoesNotNeed) {
    const IconAndText content{.icon = {}, .text = "Rain", .centred = false, .detail = "2 mm"};
    EXPECT_EQ(sizeOf(content).width, 26 + 10 + 26);
    for (const auto& [width, expected] :
         std::map<double, std::string>{{80, "Rain 5+26, 2 mm 41+26, "},
                                       {40, "Rain 5+26, 2 mm 41+4, "},
                                       {30, "Rain 5+26, "},
                                       {20, "Rain 5+20, "}}) {
        corvane::tests::TextCanvas canvas;
        drawIconAndText(canvas, content, {5, 0, width, 20}, theme().text);
        std::string drawn;
        for (const auto& [text, rect, alignment, color, ground] : canvas.texts())
            drawn += text + " " + std::to_string(std::lround(rect.x)) + "+" +
                     std::to_string(std::lround(rect.width)) + ", ";
        EXPECT_EQ(drawn, expected);
        EXPECT_EQ(isTextCut(content, width), width < 62);
    }
}

TEST(Menu, PerformsWhatIsValid) {
    int performed = 0;
    bool valid = false;
    Menu menu;
    MenuItem& item = menu.addItem("Open", [&](MenuItem&) { ++performed; });
    item.setValidation([&] { return valid; });
    item.perform();
    valid = true;
    item.perform();
    item.setEnabled(false);
    item.perform();
    EXPECT_EQ(performed, 1);
    menu.addSeparator();
    EXPECT_FALSE(menu.items()[1]->isValid());
    EXPECT_FALSE(menu.addItem("Nothing to do").isValid());
}

TEST(TextView, GrowsWithItsText) {
    TextView view(Rect{0, 0, 73, 20});  // 65 for letters of 6.5
    view.setStringValue("one two");
    EXPECT_EQ(view.preferredHeightForWidth(73), 17 + 4);
    view.setStringValue("one two three");
    EXPECT_EQ(view.preferredHeightForWidth(73), 2 * 17 + 4);
    EXPECT_EQ(view.preferredHeightForWidth(0), 3 * 17 + 4);
}
