#include "corvane/controls/CVMacToolbarButton.h"

#include "corvane/controls/ActionMenu.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

using views::Command;
using views::Point;
using views::Rect;
using views::Size;

namespace {

constexpr double kMarginX = 7;
constexpr double kMarginY = 4;
constexpr double kGap = 5;
constexpr double kGapAboveTitle = 2;
constexpr double kArrowWidth = 7;
constexpr double kWidestTitle = 180;
constexpr Size kSmallIcon{18, 18};
constexpr Size kLargeIcon{28, 28};

views::Font titleFont(bool large) {
    views::Font font;
    if (large) font.size = 11;
    return font;
}

Size fittedInto(Size size, Size room) {
    if (size.width <= 0 || size.height <= 0) return room;
    const double scale = std::min(room.width / size.width, room.height / size.height);
    return {size.width * scale, size.height * scale};
}

}  // namespace

/// As for a language written from left to right.
struct CVMacToolbarButton::Places {
    Rect icon, title, arrow;
};

CVMacToolbarButton::CVMacToolbarButton(std::shared_ptr<CVAction> action)
    : action_(std::move(action)) {
    if (!action_) return;
    title_ = action_->title().value_or("");
    image_ = action_->icon();
    if (action_->tooltip()) setToolTip(*action_->tooltip());
}

void CVMacToolbarButton::setTitle(std::string title) {
    if (title == title_) return;
    title_ = std::move(title);
    setNeedsDisplay();
    accessibilityDidChange(views::AccessibilityChange::Name);
}

void CVMacToolbarButton::setImage(platform::ImagePtr image) {
    image_ = std::move(image);
    setNeedsDisplay();
}

void CVMacToolbarButton::setShowsTitle(bool shows) {
    showsTitle_ = shows;
    setNeedsDisplay();
}

void CVMacToolbarButton::setUsesLargeIcon(bool large) {
    usesLargeIcon_ = large;
    setNeedsDisplay();
}

bool CVMacToolbarButton::hasMenu() const {
    return action_ && !action_->subActions().empty();
}

// Invoking.

void CVMacToolbarButton::wasClicked() {
    const auto keepAlive = shared_from_this();
    if (hasMenu()) return openMenu();
    invokeAction(action_, CVAction::Sender(this), didInvokeAction);
    sendAction();
}

void CVMacToolbarButton::openMenu() {
    const auto willOpen = menuWillOpen;
    if (willOpen) willOpen();
    views::Window* window = this->window();
    if (!window || !isEnabled()) return;
    const auto weak =
        std::weak_ptr(std::static_pointer_cast<CVMacToolbarButton>(shared_from_this()));
    auto menu = menuOfSubActions(*action_, [weak](CVAction& chosen) {
        const auto self = weak.lock();
        const auto tell = self ? self->didInvokeAction : nullptr;
        if (tell) tell(chosen);
    });
    window->host().showMenu(menu, convertToWindow(Point{0, frame().height}));
}

bool CVMacToolbarButton::keyDown(const views::KeyEvent& event) {
    if (PressableControl::keyDown(event)) return true;
    const auto command = views::commandForKey(event);
    const bool opens = command == Command::MoveDown && hasMenu();
    if (command != Command::InsertNewline && !opens) return false;
    performClick();
    return true;
}

// Looks.

Size CVMacToolbarButton::iconSize() const {
    if (!image_) return {};
    const Size wanted = !action_         ? Size{}
                        : usesLargeIcon_ ? action_->largeIconSize()
                                         : action_->smallIconSize();
    if (wanted.width > 0 && wanted.height > 0) return wanted;
    return fittedInto(image_->size(), usesLargeIcon_ ? kLargeIcon : kSmallIcon);
}

double CVMacToolbarButton::titleWidth() const {
    if (!titleShows()) return 0;
    if (action_ && action_->titleWidth() > 0) return action_->titleWidth();
    const double width = views::textMeasurer().sizeOfText(title_, titleFont(usesLargeIcon_)).width;
    return std::min(std::ceil(width), kWidestTitle);
}

Size CVMacToolbarButton::preferredSizeThatFits(Size) {
    const Size icon = iconSize();
    const double title = titleWidth();
    const double line = views::textMeasurer().lineHeight(titleFont(usesLargeIcon_));
    const double arrow = hasMenu() ? kGap + kArrowWidth : 0;
    if (usesLargeIcon_ && image_) {
        const double below = titleShows() ? kGapAboveTitle + line : 0;
        return {std::max(icon.width + arrow, title) + 2 * kMarginX,
                icon.height + below + 2 * kMarginY};
    }
    const double gap = image_ && titleShows() ? kGap : 0;
    return {icon.width + gap + title + arrow + 2 * kMarginX,
            std::max(icon.height, line) + 2 * kMarginY};
}

CVMacToolbarButton::Places CVMacToolbarButton::places() const {
    const Rect inside = bounds().insetBy(kMarginX, kMarginY);
    const Size icon = iconSize();
    const double arrow = hasMenu() ? kGap + kArrowWidth : 0;
    Places places;
    // Without an icon, the arrow would lie on the title.
    if (usesLargeIcon_ && image_) {
        const double line = views::textMeasurer().lineHeight(titleFont(true));
        const double x = inside.x + (inside.width - icon.width - arrow) / 2;
        places.icon = {x, inside.y, icon.width, icon.height};
        places.title = {inside.x, inside.bottom() - line, std::max(0.0, inside.width), line};
        const double middle = places.icon.y + icon.height / 2;
        places.arrow = {places.icon.right() + kGap, middle - 2, kArrowWidth, 4};
        return places;
    }
    const double gap = image_ && titleShows() ? kGap : 0;
    const double room = std::max(0.0, inside.width - icon.width - gap - arrow);
    const double title = std::min(titleWidth(), room);
    const double x = inside.x + std::max(0.0, (room - title) / 2);
    const double middle = frame().height / 2;
    places.icon = {x, middle - icon.height / 2, icon.width, icon.height};
    places.title = {x + icon.width + gap, 0, title, frame().height};
    places.arrow = {places.title.right() + kGap, middle - 2, kArrowWidth, 4};
    return places;
}

void CVMacToolbarButton::draw(views::Canvas& canvas, const Rect&) {
    const views::Theme& colors = views::theme();
    const double width = frame().width;
    const Places places = this->places();
    const platform::Color ink = isEnabled() ? colors.text : colors.secondaryText;
    if (isPressed()) canvas.fillRoundedRect(bounds(), 5, colors.pressedBackground);
    drawFocusRing(canvas, *this, bounds(), 5);
    if (image_) {
        // Grey where it cannot be had; the icon itself where nobody can tint it.
        auto grey = isEnabled()
                        ? nullptr
                        : platform::imageService().tintedImage(image_, colors.placeholderText);
        canvas.drawImage(grey ? grey : image_, views::mirrored(places.icon, width));
    }
    if (titleShows()) {
        views::TextStyle style{titleFont(usesLargeIcon_), ink};
        if (usesLargeIcon_) style.alignment = views::TextAlignment::Center;
        canvas.drawText(title_, views::mirrored(places.title, width), style);
    }
    if (!hasMenu()) return;
    const Rect arrow = views::mirrored(places.arrow, width);
    const Point tip{arrow.x + arrow.width / 2, arrow.bottom()};
    canvas.drawLine(arrow.origin(), tip, ink, 1.5);
    canvas.drawLine(tip, {arrow.right(), arrow.y}, ink, 1.5);
}

std::string CVMacToolbarButton::toolTip() const {
    std::string set = Control::toolTip();
    if (!set.empty()) return set;
    const double wanted = views::textMeasurer().sizeOfText(title_, titleFont(usesLargeIcon_)).width;
    return titleShows() && places().title.width >= wanted ? "" : title_;
}

views::Role CVMacToolbarButton::accessibilityRole() const {
    return hasMenu() ? views::Role::PopUpButton : views::Role::Button;
}

std::string CVMacToolbarButton::accessibilityName() const {
    std::string name = Control::accessibilityName();
    if (name.empty()) name = title_;
    return name.empty() ? Control::toolTip() : name;
}

}  // namespace corvane
