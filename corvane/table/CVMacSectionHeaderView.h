// The line above a section, with its title.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/View.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane {

/// Colours that nobody set are the theme's; the alternative ones are those for a dark screen.
class CVMacSectionHeaderView : public views::View {
  public:
    using Color = std::optional<platform::Color>;

    explicit CVMacSectionHeaderView(const views::Rect& frame = {}) : View(frame) {}

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    void setBackgroundColor(const Color& color) { set(&Colors::background, color); }
    void setBackgroundAlternativeColor(const Color& color) {
        set(&Colors::alternativeBackground, color);
    }
    void setTextColor(const Color& color) { set(&Colors::text, color); }
    void setBorderColor(const Color& color) { set(&Colors::border, color); }
    void setBorderAlternativeColor(const Color& color) { set(&Colors::alternativeBorder, color); }

    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    views::Role accessibilityRole() const override { return views::Role::Header; }
    std::string accessibilityName() const override { return title_; }

  private:
    struct Colors {
        Color background;
        Color alternativeBackground;
        Color text;
        Color border;
        Color alternativeBorder;
    };
    void set(Color Colors::*which, const Color& color);

    std::string title_;
    Colors colors_;
};

}  // namespace corvane
