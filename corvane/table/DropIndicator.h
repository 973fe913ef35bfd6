// Shows where a drop would land: the application's picture, or else a line or a frame.
#pragma once

#include "corvane/views/Canvas.h"
#include "corvane/views/ImageView.h"
#include "corvane/views/Theme.h"

namespace corvane {

class DropIndicator : public views::ImageView {
  public:
    /// The thickness of a line where nobody has a picture for it.
    static constexpr double kLineHeight = 2;

    DropIndicator() {
        setImageScaling(views::ImageScaling::AxesIndependently);
        setHidden(true);
    }
    /// How high it is between two rows.
    double lineHeight() const { return image() ? image()->size().height : kLineHeight; }

    void draw(views::Canvas& canvas, const views::Rect& dirty) override {
        if (image()) return ImageView::draw(canvas, dirty);
        if (frame().height <= kLineHeight) {
            canvas.fillRoundedRect(bounds(), 1, views::theme().accent);
        } else {
            canvas.strokeRoundedRect(bounds(), 4, views::theme().accent, 2);
        }
    }
};

}  // namespace corvane
