// A window that nobody sees, with a field before and one behind what is tested, and the menus that
// it would have shown.
#pragma once

#include "corvane/platform/ManualRunLoop.h"
#include "corvane/views/Event.h"
#include "corvane/views/Menu.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace corvane::test {

struct BarsFixture : ::testing::Test, views::WindowHost {
    BarsFixture() { window.setHost(this); }

    void show(const std::shared_ptr<views::View>& view, const platform::Rect& frame) {
        shown = view;
        window.root().addSubview(before);
        window.root().addSubview(view);
        window.root().addSubview(behind);
        view->setFrame(frame);
        before->setNextKeyView(view);
        view->setNextKeyView(behind);
        loop.runTurn();
    }
    void click(const views::View& view, int count = 1) {
        const auto place = view.convertToWindow(view.bounds());
        const views::MouseEvent event(
            views::Point{place.x + place.width / 2, place.y + place.height / 2}, count);
        window.mouseDown(event);
        window.mouseUp(event);
        loop.runTurn();
    }
    void press(char32_t key, std::uint64_t modifiers = 0) {
        window.keyDown(views::KeyEvent(key, modifiers));
        loop.runTurn();
    }
    void type(const char* text) { window.keyDown(views::KeyEvent(std::string(text))); }
    std::shared_ptr<views::View> focus() const { return window.firstResponder(); }
    /// Whom Tab leads to from the field before, up to the one behind.
    std::vector<views::View*> tabStops(char32_t key = views::kKeyTab) {
        std::vector<views::View*> stops;
        window.makeFirstResponder(key == views::kKeyTab ? before : behind);
        for (press(key); focus() != behind && focus() != before && stops.size() < 20; press(key))
            stops.push_back(focus().get());
        return stops;
    }
    /// The parts with the role, from the leading side.
    static std::vector<views::View*> partsOf(const views::View& view, views::Role role) {
        std::vector<views::View*> parts;
        for (const auto& part : view.subviews())
            if (part->accessibilityRole() == role && !part->isHidden()) parts.push_back(part.get());
        std::sort(parts.begin(), parts.end(),
                  [](const auto* a, const auto* b) { return a->frame().x < b->frame().x; });
        return parts;
    }

    void showMenu(const std::shared_ptr<views::Menu>& shownMenu, platform::Point) override {
        menu = shownMenu;
    }
    /// "One, *Two" for a second one that is on, "-" for a line, "(Three)" for one that is not
    /// valid.
    std::string menuText() const {
        std::string text;
        for (const auto& item : menu->items()) {
            if (!text.empty()) text += ", ";
            if (item->isSeparator()) {
                text += "-";
                continue;
            }
            const std::string title = (item->isOn() ? "*" : "") + item->title();
            text += item->isValid() ? title : "(" + title + ")";
        }
        return text;
    }

    platform::ManualRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    views::Window window{{800, 400}};
    std::shared_ptr<views::TextField> before = std::make_shared<views::TextField>();
    std::shared_ptr<views::TextField> behind = std::make_shared<views::TextField>();
    std::shared_ptr<views::View> shown;
    std::shared_ptr<views::Menu> menu;
};

}  // namespace corvane::test
