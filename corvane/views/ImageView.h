// Shows a picture.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/views/View.h"

namespace corvane::views {

/// The platform's codes.
enum class ImageScaling { ProportionallyDown = 0, AxesIndependently = 1, None = 2 };

class ImageView : public View {
  public:
    using View::View;

    const platform::ImagePtr& image() const { return image_; }  ///< null for none
    void setImage(platform::ImagePtr image);
    ImageScaling imageScaling() const { return scaling_; }
    void setImageScaling(ImageScaling scaling);

    Size preferredSizeThatFits(Size available) override;
    void draw(Canvas& canvas, const Rect& dirty) override;
    Role accessibilityRole() const override { return Role::Image; }

  private:
    platform::ImagePtr image_;
    ImageScaling scaling_ = ImageScaling::ProportionallyDown;
};

}  // namespace corvane::views
