// Text to read.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/View.h"

#include <memory>
#include <string>

namespace corvane::views {

/// In one line, or broken at its width.
class Label : public View {
  public:
    explicit Label(std::string text = {}) : text_(std::move(text)) {}

    const std::string& text() const { return text_; }
    void setText(std::string text);
    const Font& font() const { return font_; }
    void setFont(const Font& font);
    TextAlignment alignment() const { return alignment_; }
    void setAlignment(TextAlignment alignment);
    bool wraps() const { return wraps_; }
    void setWraps(bool wraps);
    /// The theme's, unless one was set.
    platform::Color textColor() const;
    void setTextColor(const platform::Color& color);

    Size preferredSizeThatFits(Size available) override;
    void draw(Canvas& canvas, const Rect& dirty) override;
    Role accessibilityRole() const override { return Role::Text; }
    std::string accessibilityName() const override { return text_; }

  private:
    std::string text_;
    std::unique_ptr<platform::Color> textColor_;
    Font font_;
    TextAlignment alignment_ = TextAlignment::Leading;
    bool wraps_ = false;
};

}  // namespace corvane::views
