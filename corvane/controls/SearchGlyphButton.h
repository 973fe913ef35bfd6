// The small buttons of a search bar, which draw what they show.
#pragma once

#include "corvane/views/PressableControl.h"

#include <string>

namespace corvane {

enum class SearchGlyph { Magnifier, Clear, Filter };

/// Disabled, it only shows, and leaves clicks to whatever is around it. The arrow of a menu stands
/// beside the glyph while there is one.
class SearchGlyphButton : public views::PressableControl {
  public:
    SearchGlyphButton(SearchGlyph glyph, bool opensMenu) : glyph_(glyph), opensMenu_(opensMenu) {}

    /// Drawn in the accent colour.
    void setHighlighted(bool highlighted);
    void setValue(std::string value);

    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent& event) override;
    bool keyDown(const views::KeyEvent& event) override;
    /// What clears is the matter of a key in the field.
    bool acceptsFirstResponder() const override { return opensMenu_ && isEnabled(); }
    std::string toolTip() const override { return isEnabled() ? accessibilityName() : ""; }
    views::Role accessibilityRole() const override;
    std::string accessibilityValue() const override { return value_; }
    bool accessibilityCanPress() const override { return isEnabled(); }

  private:
    SearchGlyph glyph_;
    bool opensMenu_;
    bool highlighted_ = false;
    std::string value_;
};

}  // namespace corvane
