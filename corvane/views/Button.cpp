#include "corvane/views/Button.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Theme.h"

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

void Button::wasClicked() {
    if (toggles_) setOn(!on_);
    sendAction();
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

void Button::draw(Canvas& canvas, const Rect&) {
    const Theme& colors = theme();
    const platform::Color ground = isPressed() ? colors.pressedBackground
                                   : on_       ? colors.selection
                                               : colors.controlBackground;
    canvas.fillRoundedRect(bounds(), kRadius, ground);
    const bool focused = showsFocus(*this);
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
