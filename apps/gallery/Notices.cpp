#include "apps/gallery/Notices.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include "apps/gallery/Texts.h"

namespace corvane::gallery {

namespace {

constexpr std::size_t kMostLines = 60;
constexpr views::Font kFont{11};
constexpr double kMargin = 8;

}  // namespace

Notices::Notices() {
    setAccessibilityName(localized("What the controls tell"));
}

void Notices::add(const std::string& line) {
    lines_.push_back(line);
    if (lines_.size() > kMostLines) lines_.pop_front();
    setNeedsDisplay();
    accessibilityDidChange(views::AccessibilityChange::Value);
}

std::string Notices::accessibilityValue() const {
    return lines_.empty() ? "" : lines_.back();
}

void Notices::draw(views::Canvas& canvas, const views::Rect&) {
    const auto& theme = views::theme();
    const double width = frame().width;
    canvas.drawLine({0, 0.5}, {width, 0.5}, theme.separator, 1);
    const double height = views::textMeasurer().lineHeight(kFont) + 2;
    const views::TextStyle style{kFont, theme.secondaryText, views::leadingAlignment()};
    const views::Rect first{kMargin, kMargin / 2, width - 2 * kMargin, height};
    if (lines_.empty()) return canvas.drawText(accessibilityName(), first, style);
    const auto room = static_cast<std::size_t>((frame().height - kMargin) / height);
    const std::size_t shown = std::min(room, lines_.size());
    for (std::size_t i = 0; i < shown; ++i)
        canvas.drawText(lines_[lines_.size() - shown + i],
                        first.movedBy(0, static_cast<double>(i) * height), style);
}

}  // namespace corvane::gallery
