// A push button, or with a state one that stays on.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/views/PressableControl.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane::views {

/// The platform's codes.
enum class BezelStyle { Rounded = 1, TexturedRounded = 11 };

class Button : public PressableControl {
  public:
    using PressableControl::PressableControl;

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    const platform::ImagePtr& image() const { return image_; }  ///< null where there is none
    void setImage(platform::ImagePtr image);
    /// Unless one was set, the title where it does not fit.
    std::string toolTip() const override;
    BezelStyle bezelStyle() const { return bezelStyle_; }
    void setBezelStyle(BezelStyle style) { bezelStyle_ = style; }

    /// Whether each click turns it on or off, as with a check box.
    bool toggles() const { return toggles_; }
    void setToggles(bool toggles) { toggles_ = toggles; }
    bool isOn() const { return on_; }
    void setOn(bool on);

    Size preferredSizeThatFits(Size available) override;
    void draw(Canvas& canvas, const Rect& dirty) override;
    Role accessibilityRole() const override { return toggles_ ? Role::CheckBox : Role::Button; }
    std::string accessibilityName() const override;
    std::optional<bool> accessibilityChecked() const override {
        return toggles_ ? std::optional(on_) : std::nullopt;
    }

  protected:
    void wasClicked() override;

  private:
    /// What is there for picture and title.
    Rect contentRect() const;

    std::string title_;
    platform::ImagePtr image_;
    BezelStyle bezelStyle_ = BezelStyle::Rounded;
    bool toggles_ = false;
    bool on_ = false;
};

}  // namespace corvane::views
