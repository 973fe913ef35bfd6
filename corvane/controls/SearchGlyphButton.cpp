#include "corvane/controls/SearchGlyphButton.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"

#include <utility>

namespace corvane {

using platform::Color;
using views::Canvas;
using views::Point;
using views::Rect;

namespace {

constexpr double kGlyph = 14;
constexpr double kMargin = 5;
constexpr double kArrow = 6;

void drawMagnifier(Canvas& canvas, Point at, const Color& color) {
    canvas.strokeRoundedRect({at.x + 1, at.y + 1, 9, 9}, 4.5, color, 1.5);
    canvas.drawLine({at.x + 8.5, at.y + 8.5}, {at.x + 13, at.y + 13}, color, 1.75);
}

void drawCross(Canvas& canvas, Point at, const Color& color) {
    canvas.fillRoundedRect({at.x, at.y, kGlyph, kGlyph}, kGlyph / 2, color);
    const Color ground = views::theme().background;
    canvas.drawLine({at.x + 4.5, at.y + 4.5}, {at.x + 9.5, at.y + 9.5}, ground, 1.5);
    canvas.drawLine({at.x + 9.5, at.y + 4.5}, {at.x + 4.5, at.y + 9.5}, ground, 1.5);
}

/// Lines that grow shorter.
void drawFilter(Canvas& canvas, Point at, const Color& color) {
    for (int line = 0; line < 3; ++line)
        canvas.drawLine({at.x + 0.5 + 2.5 * line, at.y + 3 + 4.0 * line},
                        {at.x + 13.5 - 2.5 * line, at.y + 3 + 4.0 * line}, color, 1.5);
}

}  // namespace

void SearchGlyphButton::setHighlighted(bool highlighted) {
    if (highlighted == highlighted_) return;
    highlighted_ = highlighted;
    setNeedsDisplay();
}

void SearchGlyphButton::setValue(std::string value) {
    if (value == value_) return;
    value_ = std::move(value);
    accessibilityDidChange(views::AccessibilityChange::Value);
}

bool SearchGlyphButton::mouseDown(const views::MouseEvent& event) {
    return isEnabled() && PressableControl::mouseDown(event);
}

bool SearchGlyphButton::keyDown(const views::KeyEvent& event) {
    if (PressableControl::keyDown(event)) return true;
    const auto command = views::commandForKey(event);
    if (command != views::Command::InsertNewline && command != views::Command::MoveDown)
        return false;
    performClick();
    return true;
}

views::Size SearchGlyphButton::preferredSizeThatFits(views::Size) {
    const double arrow = opensMenu_ && isEnabled() ? kArrow + 2 : 0;
    return {kGlyph + arrow + 2 * kMargin, kGlyph + 2 * kMargin};
}

void SearchGlyphButton::draw(Canvas& canvas, const Rect&) {
    if (isPressed()) canvas.fillRoundedRect(bounds(), 5, views::theme().pressedBackground);
    const Color color = highlighted_ ? views::theme().accent : views::theme().secondaryText;
    const bool hasArrow = opensMenu_ && isEnabled();
    const double width = kGlyph + (hasArrow ? kArrow + 2 : 0);
    const double x = (frame().width - width) / 2;
    const double y = (frame().height - kGlyph) / 2;
    const Rect glyph = views::mirrored({x, y, kGlyph, kGlyph}, frame().width);
    switch (glyph_) {
        case SearchGlyph::Magnifier:
            drawMagnifier(canvas, glyph.origin(), color);
            break;
        case SearchGlyph::Clear:
            drawCross(canvas, glyph.origin(), color);
            break;
        case SearchGlyph::Filter:
            drawFilter(canvas, glyph.origin(), color);
            break;
    }
    if (hasArrow) {
        const Rect arrow =
            views::mirrored({x + kGlyph + 2, frame().height / 2 - 1.5, kArrow, 3}, frame().width);
        const Point tip{arrow.x + arrow.width / 2, arrow.bottom()};
        canvas.drawLine(arrow.origin(), tip, color, 1.25);
        canvas.drawLine(tip, {arrow.right(), arrow.y}, color, 1.25);
    }
    drawFocusRing(canvas, *this, bounds(), 5);
}

views::Role SearchGlyphButton::accessibilityRole() const {
    if (!isEnabled()) return views::Role::None;
    return opensMenu_ ? views::Role::PopUpButton : views::Role::Button;
}

}  // namespace corvane
