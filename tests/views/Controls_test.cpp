#include "corvane/views/Button.h"
#include "corvane/views/Event.h"
#include "corvane/views/Menu.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/TextView.h"
#include "corvane/views/Window.h"

#include <gtest/gtest.h>

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
