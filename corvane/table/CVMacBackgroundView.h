// Fills the room behind a row.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/View.h"

#include <optional>

namespace corvane {

class CVMacBackgroundView : public views::View {
  public:
    using View::View;

    const std::optional<platform::Color>& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const std::optional<platform::Color>& color) {
        backgroundColor_ = color;
        setNeedsDisplay();
    }
    void draw(views::Canvas& canvas, const views::Rect&) override {
        if (backgroundColor_) canvas.fillRect(bounds(), *backgroundColor_);
    }

  private:
    std::optional<platform::Color> backgroundColor_;
};

}  // namespace corvane
