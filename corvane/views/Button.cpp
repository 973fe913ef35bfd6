#include "corvane/views/Button.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>

namespace corvane::views {

namespace {

constexpr double kMargin = 10;
constexpr double kGap = 4;

}  // namespace

void Button::setTitle(std::string title) {
    title_ = std::move(title);
    setNeedsDisplay();
}

void Button::setImage(platform::ImagePtr image) {
    image_ = std::move(image);
    setNeedsDisplay();
}

void Button::setOn(bool on) {
    if (on == on_) return;
    on_ = on;
    setNeedsDisplay();
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

Size Button::preferredSizeThatFits(Size) {
    const Font font;
    const Size title = title_.empty() ? Size{} : textMeasurer().sizeOfText(title_, font);
    const Size image = image_ ? image_->size() : Size{};
    const double gap = image_ && !title_.empty() ? kGap : 0;
    return {title.width + gap + image.width + 2 * kMargin,
            std::max(textMeasurer().lineHeight(font), image.height) + 8};
}

void Button::draw(Canvas& canvas, const Rect&) {
    const Theme& colors = theme();
    const Rect bounds = this->bounds();
    canvas.fillRoundedRect(bounds, 5,
                           pressed_ || on_ ? colors.pressedBackground : colors.controlBackground);
    const bool focused = isFirstResponder() && window()->isActive();
    canvas.strokeRoundedRect(bounds, 5, focused ? colors.accent : colors.border, focused ? 2 : 1);
    const Size image = image_ ? image_->size() : Size{};
    const double gap = image_ && !title_.empty() ? kGap : 0;
    const Font font;
    const double text = title_.empty() ? 0 : textMeasurer().sizeOfText(title_, font).width;
    const double x = std::max(0.0, (bounds.width - image.width - gap - text) / 2);
    if (image_)
        canvas.drawImage(image_,
                         {x, (bounds.height - image.height) / 2, image.width, image.height});
    if (title_.empty()) return;
    const double start = x + image.width + gap;
    canvas.drawText(title_, {start, 0, bounds.width - start, bounds.height},
                    {font, isEnabled() ? colors.text : colors.secondaryText});
}

std::string Button::accessibilityName() const {
    std::string name = View::accessibilityName();
    return name.empty() ? title_ : name;
}

}  // namespace corvane::views
