#include "corvane/views/PressableControl.h"

#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"

namespace corvane::views {

void PressableControl::performClick() {
    if (canBeClicked()) wasClicked();
}

bool PressableControl::mouseDown(const MouseEvent&) {
    setPressed(canBeClicked());
    return true;
}

bool PressableControl::mouseDragged(const MouseEvent& event) {
    setPressed(canBeClicked() && bounds().contains(convertFromWindow(event.locationInWindow())));
    return true;
}

bool PressableControl::mouseUp(const MouseEvent& event) {
    PressableControl::mouseDragged(event);
    const bool pressed = pressed_;
    setPressed(false);
    if (pressed) performClick();
    return true;
}

bool PressableControl::keyDown(const KeyEvent& event) {
    if (event.characters() != " ") return focusPassedOn(*this, event).value_or(false);
    performClick();
    return true;
}

void PressableControl::setPressed(bool pressed) {
    if (pressed == pressed_) return;
    pressed_ = pressed;
    setNeedsDisplay();
}

}  // namespace corvane::views
