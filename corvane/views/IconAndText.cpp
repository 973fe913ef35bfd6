#include "corvane/views/IconAndText.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <cmath>

namespace corvane::views {

using platform::Rect;
using platform::Size;

namespace {

constexpr double kGap = 5;
constexpr double kGapBeforeDetail = 10;

double gapOf(const IconAndText& both) {
    return both.icon && !both.text.empty() ? kGap : 0;
}

/// Rounded up, so that rounding cuts no text off.
double widthOf(std::string_view text, const Font& font) {
    return text.empty() ? 0 : std::ceil(textMeasurer().sizeOfText(text, font).width);
}

double widthOfTexts(const IconAndText& both) {
    const double detail = widthOf(both.detail, both.font);
    return widthOf(both.text, both.font) + (detail > 0 ? kGapBeforeDetail + detail : 0);
}

Size iconSize(const IconAndText& both, Size room) {
    if (!both.icon) return {};
    const Size size = both.icon->size();
    if (size.width <= 0 || size.height <= 0) return {};
    const double scale =
        std::clamp(std::min(room.width / size.width, room.height / size.height), 0.0, 1.0);
    return {size.width * scale, size.height * scale};
}

}  // namespace

Size sizeOf(const IconAndText& both) {
    const Size icon = both.icon ? both.icon->size() : Size{};
    return {icon.width + gapOf(both) + widthOfTexts(both),
            std::max(textMeasurer().lineHeight(both.font), icon.height)};
}

bool isTextCut(const IconAndText& both, double width) {
    const double icon = both.icon ? both.icon->size().width : 0;
    return widthOfTexts(both) > 0 && icon + gapOf(both) + widthOfTexts(both) > width;
}

void drawIconAndText(Canvas& canvas, const IconAndText& both, const Rect& rect,
                     const platform::Color& textColor, const platform::Color* dimmedBy) {
    const Size icon = iconSize(both, rect.size());
    const double before = icon.width + gapOf(both);
    const double texts = std::min(widthOfTexts(both), std::max(0.0, rect.width - before));
    const double start = both.centred ? std::max(0.0, (rect.width - before - texts) / 2) : 0;
    const auto placed = [&](double x, double width, double height) {
        return mirrored({x, (rect.height - height) / 2, width, height}, rect.width)
            .movedBy(rect.x, rect.y);
    };
    if (icon.width > 0) {
        const Rect place = placed(start, icon.width, icon.height);
        canvas.drawImage(both.icon, place);
        if (dimmedBy) canvas.fillRect(place, dimmedBy->withAlpha(0.5));
    }
    const auto drawText = [&](std::string_view text, double x, double width,
                              const platform::Color& color) {
        if (!text.empty() && width > 0)
            canvas.drawText(text, placed(x, width, rect.height), {both.font, color});
    };
    const double text = std::min(texts, widthOf(both.text, both.font));
    drawText(both.text, start + before, text, textColor);
    drawText(both.detail, start + before + text + kGapBeforeDetail, texts - text - kGapBeforeDetail,
             theme().secondaryText);
}

}  // namespace corvane::views
