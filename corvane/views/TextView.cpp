#include "corvane/views/TextView.h"

#include "corvane/views/TextMeasurer.h"

namespace corvane::views {

double TextView::preferredHeightForWidth(double width) const {
    const Rect text = textRect();
    const double marginX = frame().width - text.width;
    const double marginY = frame().height - text.height;
    // A width of nothing would mean one without end.
    const double inside = width > marginX + 1 ? width - marginX : 1;
    return textMeasurer().sizeOfText(stringValue(), font(), inside).height + marginY;
}

Size TextView::preferredSizeThatFits(Size available) {
    return {available.width, preferredHeightForWidth(available.width)};
}

}  // namespace corvane::views
