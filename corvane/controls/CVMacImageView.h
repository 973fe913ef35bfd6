// A picture of an image map, in its tint, that may be clicked. One thread, the window's.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"
#include "corvane/views/PressableControl.h"
#include "corvane/vocabulary/EXImageMap.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

/// Shows nothing for an index outside of the map. Where it is clickable it is a button: a click and
/// Space send its action.
class CVMacImageView final : public views::PressableControl {
  public:
    using views::PressableControl::PressableControl;

    const std::shared_ptr<const EXImageMap>& imageMap() const { return imageMap_; }
    void setImageMap(std::shared_ptr<const EXImageMap> map);  ///< null for none
    std::int64_t imageIndex() const { return imageIndex_; }
    void setImageIndex(std::int64_t index);  ///< -1 for none
    /// In the place of the map's tint; none for that one.
    void setTintColor(const std::optional<platform::Color>& color);
    /// As it is shown; null for none.
    const platform::ImagePtr& image() const { return image_; }

    bool isClickable() const { return clickable_; }
    void setClickable(bool clickable);

    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent& event) override;
    views::Cursor cursorAt(views::Point point) const override;
    views::Role accessibilityRole() const override;
    /// Unless one was set, the tool tip.
    std::string accessibilityName() const override;
    bool accessibilityCanPress() const override { return clickable_; }

  protected:
    bool canBeClicked() const override { return clickable_ && isEnabled(); }

  private:
    void imageDidChange();

    std::shared_ptr<const EXImageMap> imageMap_;
    std::int64_t imageIndex_ = -1;
    std::optional<platform::Color> tintColor_;
    platform::ImagePtr image_;
    bool clickable_ = false;
};

}  // namespace corvane
