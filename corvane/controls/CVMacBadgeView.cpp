#include "corvane/controls/CVMacBadgeView.h"

#include "corvane/controls/Contrast.h"
#include "corvane/platform/NumberText.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/vocabulary/NamedColors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr std::int64_t kMost = 999;
constexpr double kMarginX = 6;
constexpr double kMarginY = 2;
constexpr views::Font kFont{.size = 11, .bold = true};

}  // namespace

CVMacBadgeView::CVMacBadgeView(const views::Rect& frame) : View(frame) {
    setHidden(true);
}

void CVMacBadgeView::setCount(std::int64_t count) {
    if (std::exchange(count_, count) == count) return;
    setHidden(count <= 0);
    setNeedsDisplay();
    using Change = views::AccessibilityChange;
    accessibilityDidChange(hasName() ? Change::Value : Change::Name);
}

std::string CVMacBadgeView::text() const {
    return count_ > kMost ? platform::numberText(kMost) + "+" : exactText();
}

std::string CVMacBadgeView::exactText() const {
    return count_ > 0 ? platform::numberText(count_) : std::string();
}

std::string CVMacBadgeView::accessibilityName() const {
    return hasName() ? views::View::accessibilityName() : exactText();
}

std::string CVMacBadgeView::accessibilityValue() const {
    return hasName() ? exactText() : std::string();
}

platform::Color CVMacBadgeView::color() const {
    return color_ ? *color_ : NamedColors::tintColor();
}

void CVMacBadgeView::setColor(const std::optional<platform::Color>& color) {
    color_ = color;
    setNeedsDisplay();
}

views::Size CVMacBadgeView::preferredSizeThatFits(views::Size) {
    if (count_ <= 0) return {};
    const double height = views::textMeasurer().lineHeight(kFont) + 2 * kMarginY;
    const double width = std::ceil(views::textMeasurer().sizeOfText(text(), kFont).width);
    return {std::max(height, width + 2 * kMarginX), height};
}

void CVMacBadgeView::draw(views::Canvas& canvas, const views::Rect&) {
    canvas.fillRoundedRect(bounds(), frame().height / 2, color());
    canvas.drawText(text(), bounds(),
                    {kFont, readableTextOn(color()), views::TextAlignment::Center});
}

}  // namespace corvane
