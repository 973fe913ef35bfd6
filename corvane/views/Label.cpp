#include "corvane/views/Label.h"

#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <cmath>

namespace corvane::views {

void Label::setText(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Name);
}

void Label::setFont(const Font& font) {
    font_ = font;
    setNeedsDisplay();
}

void Label::setAlignment(TextAlignment alignment) {
    alignment_ = alignment;
    setNeedsDisplay();
}

void Label::setWraps(bool wraps) {
    wraps_ = wraps;
    setNeedsDisplay();
}

platform::Color Label::textColor() const {
    return textColor_ ? *textColor_ : theme().text;
}

void Label::setTextColor(const platform::Color& color) {
    textColor_ = std::make_unique<platform::Color>(color);
    setNeedsDisplay();
}

Size Label::preferredSizeThatFits(Size available) {
    const Size size = textMeasurer().sizeOfText(text_, font_, wraps_ ? available.width : 0);
    return {std::min(available.width, std::ceil(size.width)), size.height};
}

void Label::draw(Canvas& canvas, const Rect&) {
    canvas.drawText(text_, bounds(), {font_, textColor(), alignment_, wraps_});
}

}  // namespace corvane::views
