#include "corvane/views/Button.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>

namespace corvane::views {

namespace {

constexpr double kRadius = 5;
constexpr double kMarginX = 10;
constexpr double kLeastMargin = 3;
constexpr double kMarginY = 4;

}  // namespace

void Button::setTitle(std::string title) {
    if (title == title_) return;
    title_ = std::move(title);
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Name);
}

void Button::setImage(platform::ImagePtr image) {
    image_ = std::move(image);
    setNeedsDisplay();
}

void Button::setOn(bool on) {
    if (on == on_) return;
    on_ = on;
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Checked);
}

void Button::setPressed(bool pressed) {
    if (pressed == pressed_) return;
    pressed_ = pressed;
    setNeedsDisplay();
}

void Button::performClick() {
    if (!isEnabled()) return;
    if (toggles_) setOn(!on_);
    sendAction();
}

bool Button::mouseDown(const MouseEvent&) {
    setPressed(isEnabled());
    return true;
}

bool Button::mouseDragged(const MouseEvent& event) {
    setPressed(isEnabled() && bounds().contains(convertFromWindow(event.locationInWindow())));
    return true;
}

bool Button::mouseUp(const MouseEvent& event) {
    mouseDragged(event);
    const bool pressed = pressed_;
    setPressed(false);
    if (pressed) performClick();
    return true;
}

bool Button::keyDown(const KeyEvent& event) {
    Window* window = this->window();
    if (event.characters() == " ") {
        performClick();
        return true;
    }
    const auto command = commandForKey(event);
    if (!window || !command) return false;
    if (*command == Command::InsertTab) return window->selectNextKeyViewOf(*this);
    return *command == Command::InsertBacktab && window->selectPreviousKeyViewOf(*this);
}

// Looks.

Size Button::preferredSizeThatFits(Size) {
    const Size content = sizeOf({image_, title_});
    const double margin = title_.empty() ? kMarginY : kMarginX;
    return {content.width + 2 * margin, content.height + 2 * kMarginY};
}

Rect Button::contentRect() const {
    // A narrow button gives up its margins before its title.
    const double room = (frame().width - sizeOf({image_, title_}).width) / 2;
    return bounds().insetBy(std::clamp(room, kLeastMargin, kMarginX), 0);
}

std::string Button::toolTip() const {
    std::string own = View::toolTip();
    if (!own.empty()) return own;
    return isTextCut({image_, title_}, contentRect().width) ? title_ : own;
}

bool Button::showsFocus() const {
    return isFirstResponder() && window()->isActive();
}

void Button::draw(Canvas& canvas, const Rect&) {
    const Theme& colors = theme();
    const platform::Color ground = pressed_ ? colors.pressedBackground
                                   : on_    ? colors.selection
                                            : colors.controlBackground;
    canvas.fillRoundedRect(bounds(), kRadius, ground);
    const bool focused = showsFocus();
    canvas.strokeRoundedRect(bounds(), kRadius, focused ? colors.accent : colors.border,
                             focused ? 2 : 1);
    drawIconAndText(canvas, {image_, title_}, contentRect(),
                    isEnabled() ? colors.text : colors.secondaryText,
                    isEnabled() ? nullptr : &ground);
}

std::string Button::accessibilityName() const {
    std::string name = View::accessibilityName();
    return name.empty() ? title_ : name;
}

}  // namespace corvane::views
