// On or off, as a knob that slides from side to side. One thread, the window's.
#pragma once

#include "corvane/views/Control.h"

#include <optional>

namespace corvane {

/// A click and Space toggle it, the knob can be dragged, and the arrow keys push the knob to their
/// side. Sends its action when the user has changed it.
class CVMacSwitch final : public views::Control {
  public:
    using views::Control::Control;

    bool isOn() const { return on_; }
    void setOn(bool on);

    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent& event) override;
    bool mouseDragged(const views::MouseEvent& event) override;
    bool mouseUp(const views::MouseEvent& event) override;
    void mouseWasLost() override;
    bool keyDown(const views::KeyEvent& event) override;
    bool acceptsFirstResponder() const override { return isEnabled(); }
    views::Role accessibilityRole() const override { return views::Role::Switch; }
    std::optional<bool> accessibilityChecked() const override { return on_; }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override { change(!on_); }

  private:
    struct Drag {
        double start = 0;     ///< of the pointer, from the leading side
        double position = 0;  ///< of the knob
        bool moved = false;
    };

    views::Rect trackRect() const;
    /// Of the knob: 0 at the leading side, 1 at the trailing one.
    double position() const;
    double fromLeadingSide(const views::MouseEvent& event) const;
    void change(bool on);

    std::optional<Drag> drag_;
    bool on_ = false;
};

}  // namespace corvane
