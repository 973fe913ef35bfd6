// A control that a click works as a whole.
#pragma once

#include "corvane/views/Control.h"

namespace corvane::views {

/// Pressed while the pointer is held down on it. Released elsewhere, or gone meanwhile, it was not
/// clicked. Space clicks it, and Tab leads on.
class PressableControl : public Control {
  public:
    using Control::Control;

    /// As the user does it. Nothing while it cannot be clicked.
    void performClick();

    bool mouseDown(const MouseEvent& event) override;
    bool mouseDragged(const MouseEvent& event) override;
    bool mouseUp(const MouseEvent& event) override;
    void mouseWasLost() override { setPressed(false); }
    bool keyDown(const KeyEvent& event) override;
    bool acceptsFirstResponder() const override { return canBeClicked(); }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override { performClick(); }

  protected:
    virtual bool canBeClicked() const { return isEnabled(); }
    /// Sends the action.
    virtual void wasClicked() { sendAction(); }
    bool isPressed() const { return pressed_; }

  private:
    void setPressed(bool pressed);

    bool pressed_ = false;
};

}  // namespace corvane::views
