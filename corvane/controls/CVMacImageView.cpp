#include "corvane/controls/CVMacImageView.h"

#include "corvane/controls/MapImage.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Theme.h"

#include <utility>

namespace corvane {

namespace {

constexpr double kRadius = 4;
/// Around a picture that can have the focus.
constexpr double kRingRoom = 3;

}  // namespace

void CVMacImageView::setImageMap(std::shared_ptr<const EXImageMap> map) {
    imageMap_ = std::move(map);
    imageDidChange();
}

void CVMacImageView::setImageIndex(std::int64_t index) {
    if (std::exchange(imageIndex_, index) != index) imageDidChange();
}

void CVMacImageView::setTintColor(const std::optional<platform::Color>& color) {
    tintColor_ = color;
    imageDidChange();
}

void CVMacImageView::imageDidChange() {
    image_ = mapImage(imageMap_.get(), imageIndex_, tintColor_);
    setNeedsDisplay();
}

void CVMacImageView::setClickable(bool clickable) {
    clickable_ = clickable;
    mouseWasLost();
    setNeedsDisplay();
}

bool CVMacImageView::mouseDown(const views::MouseEvent& event) {
    return clickable_ && PressableControl::mouseDown(event);
}

views::Cursor CVMacImageView::cursorAt(views::Point) const {
    return acceptsFirstResponder() ? views::Cursor::PointingHand : views::Cursor::Arrow;
}

views::Role CVMacImageView::accessibilityRole() const {
    return clickable_ ? views::Role::Button : views::Role::Image;
}

std::string CVMacImageView::accessibilityName() const {
    std::string name = views::Control::accessibilityName();
    return name.empty() ? toolTip() : name;
}

views::Size CVMacImageView::preferredSizeThatFits(views::Size) {
    if (!image_) return {};
    const double room = clickable_ ? 2 * kRingRoom : 0;
    return {image_->size().width + room, image_->size().height + room};
}

void CVMacImageView::draw(views::Canvas& canvas, const views::Rect&) {
    if (isPressed()) canvas.fillRoundedRect(bounds(), kRadius, views::theme().pressedBackground);
    if (image_) {
        const auto& ground = views::theme().background;
        views::drawIconAndText(canvas, {.icon = image_, .text = {}}, bounds(), ground,
                               isEnabled() ? nullptr : &ground);
    }
    drawFocusRing(canvas, *this, bounds(), kRadius);
}

}  // namespace corvane
