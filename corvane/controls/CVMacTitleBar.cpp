#include "corvane/controls/CVMacTitleBar.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

using views::AccessibilityChange;
using views::Rect;
using views::Size;

namespace {

constexpr double kMargin = 10;
constexpr double kGap = 8;
constexpr double kVerticalMargin = 5;
constexpr double kShareOfTexts = 1.0 / 3;
constexpr double kLargestIcon = 24;

views::Font titleFont() {
    views::Font font;
    font.bold = true;
    return font;
}

double widthOf(const std::string& text, const views::Font& font) {
    return text.empty() ? 0 : std::ceil(views::textMeasurer().sizeOfText(text, font).width);
}

Size iconSize(const platform::Image& icon) {
    const Size size = icon.size();
    return {std::min(size.width, kLargestIcon), std::min(size.height, kLargestIcon)};
}

Rect centered(double x, Size size, double heightOfBar) {
    return {x, (heightOfBar - size.height) / 2, size.width, size.height};
}

}  // namespace

/// As for a language written from left to right.
struct CVMacTitleBar::Places {
    Rect icon, title, subtitle, accessory;
    bool textsFit = true;
};

void CVMacTitleBar::setTitle(std::string title) {
    if (title == title_) return;
    title_ = std::move(title);
    preferredSizeDidChange();
    accessibilityDidChange(AccessibilityChange::Name);
}

void CVMacTitleBar::setSubtitle(std::string subtitle) {
    if (subtitle == subtitle_) return;
    subtitle_ = std::move(subtitle);
    preferredSizeDidChange();
    accessibilityDidChange(AccessibilityChange::Value);
}

void CVMacTitleBar::setIcon(platform::ImagePtr icon) {
    icon_ = std::move(icon);
    preferredSizeDidChange();
}

void CVMacTitleBar::setAccessoryView(std::shared_ptr<views::View> view) {
    if (!replaceSubview(accessoryView_, view)) return;
    setKeyViewParts({accessoryView_});
    preferredSizeDidChange();
}

CVMacTitleBar::Places CVMacTitleBar::places() const {
    const Rect bounds = this->bounds();
    const double titleWidth = widthOf(title_, titleFont());
    const double subtitleWidth = widthOf(subtitle_, {});
    const double between = titleWidth > 0 && subtitleWidth > 0 ? kGap : 0;
    const double wanted = titleWidth + between + subtitleWidth;

    Places places;
    double start = kMargin;
    double end = bounds.width - kMargin;
    if (icon_) {
        places.icon = centered(start, iconSize(*icon_), bounds.height);
        start = places.icon.right() + kGap;
    }
    if (accessoryView_ && accessoryView_->superview() == this) {
        const double texts = std::min(wanted, bounds.width * kShareOfTexts);
        const double room = std::max(0.0, end - start - texts - (wanted > 0 ? kGap : 0));
        Size size = accessoryView_->preferredSizeThatFits({room, bounds.height});
        size = {std::min(size.width, room), std::min(size.height, bounds.height)};
        places.accessory = centered(end - size.width, size, bounds.height);
        end = places.accessory.x - kGap;
    }
    const double room = std::max(0.0, end - start);
    places.textsFit = wanted <= room;
    const double title = std::min(titleWidth, room);
    places.title = {start, 0, title, bounds.height};
    places.subtitle = {start + title + between, 0,
                       std::clamp(room - title - between, 0.0, subtitleWidth), bounds.height};
    return places;
}

Size CVMacTitleBar::preferredSizeThatFits(Size available) {
    const double titleWidth = widthOf(title_, titleFont());
    const double subtitleWidth = widthOf(subtitle_, {});
    Size size{2 * kMargin + titleWidth + subtitleWidth,
              views::textMeasurer().lineHeight(titleFont())};
    if (titleWidth > 0 && subtitleWidth > 0) size.width += kGap;
    const auto add = [&size](Size part) {
        size = {size.width + kGap + part.width, std::max(size.height, part.height)};
    };
    if (icon_) add(iconSize(*icon_));
    if (accessoryView_ && accessoryView_->superview() == this)
        add(accessoryView_->preferredSizeThatFits(available));
    return {std::min(size.width, available.width), size.height + 2 * kVerticalMargin};
}

void CVMacTitleBar::applyLayout() {
    if (accessoryView_ && accessoryView_->superview() == this)
        accessoryView_->setFrame(views::mirrored(places().accessory, frame().width));
}

void CVMacTitleBar::draw(views::Canvas& canvas, const Rect&) {
    const views::Theme& colors = views::theme();
    const Rect bounds = this->bounds();
    canvas.fillRect(bounds, colors.background);
    canvas.fillRect({0, bounds.height - 1, bounds.width, 1}, colors.separator);
    const Places places = this->places();
    views::drawIconAndText(canvas, {icon_, {}}, views::mirrored(places.icon, bounds.width),
                           colors.text);
    const auto drawText = [&](const std::string& text, const Rect& rect, const views::Font& font,
                              const platform::Color& color) {
        if (!text.empty() && rect.width > 0)
            canvas.drawText(text, views::mirrored(rect, bounds.width), {font, color});
    };
    drawText(title_, places.title, titleFont(), colors.text);
    drawText(subtitle_, places.subtitle, {}, colors.secondaryText);
}

std::string CVMacTitleBar::toolTip() const {
    std::string set = views::CompoundView::toolTip();
    if (!set.empty() || places().textsFit) return set;
    return subtitle_.empty() ? title_ : title_ + " – " + subtitle_;
}

std::string CVMacTitleBar::accessibilityName() const {
    std::string name = views::CompoundView::accessibilityName();
    return name.empty() ? title_ : name;
}

}  // namespace corvane
