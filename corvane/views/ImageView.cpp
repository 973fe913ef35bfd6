#include "corvane/views/ImageView.h"

#include "corvane/views/Canvas.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

void ImageView::setImage(platform::ImagePtr image) {
    image_ = std::move(image);
    setNeedsDisplay();
}

void ImageView::setImageScaling(ImageScaling scaling) {
    scaling_ = scaling;
    setNeedsDisplay();
}

Size ImageView::preferredSizeThatFits(Size) {
    return image_ ? image_->size() : Size{};
}

void ImageView::draw(Canvas& canvas, const Rect&) {
    if (!image_) return;
    Size size = image_->size();
    if (size.width <= 0 || size.height <= 0) return;
    const Rect bounds = this->bounds();
    if (scaling_ == ImageScaling::AxesIndependently) return canvas.drawImage(image_, bounds);
    if (scaling_ == ImageScaling::ProportionallyDown) {
        const double scale =
            std::min({1.0, bounds.width / size.width, bounds.height / size.height});
        size = {size.width * scale, size.height * scale};
    }
    canvas.drawImage(image_, {(bounds.width - size.width) / 2, (bounds.height - size.height) / 2,
                              size.width, size.height});
}

}  // namespace corvane::views
