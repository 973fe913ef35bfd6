#include "corvane/qt/QtCanvas.h"

#include "corvane/qt/Colors.h"
#include "corvane/qt/Fonts.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/QtImage.h"
#include "corvane/qt/ShapedLines.h"
#include "corvane/qt/TextLines.h"
#include "corvane/views/Mirroring.h"

#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace corvane::qt {

using platform::Color;
using platform::ImagePtr;
using platform::Point;
using platform::Rect;
using views::TextAlignment;
using views::TextStyle;

namespace {

/// On a document, which has no pixels of its own: what a printer shows of a picture.
constexpr double kPaperScale = 4;

/// How far a text of that width stands from the left.
double indent(TextAlignment wanted, double room, double width) {
    const TextAlignment alignment = views::resolved(wanted);
    if (alignment == TextAlignment::Left) return 0;
    return alignment == TextAlignment::Right ? room - width : (room - width) / 2;
}

}  // namespace

QtCanvas::QtCanvas(QPainter& painter, platform::Appearance appearance)
    : painter_(painter),
      appearance_(appearance),
      hasPixels_(painter.paintEngine()->type() == QPaintEngine::Raster),
      scale_(painter.device()->devicePixelRatio()) {
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                            QPainter::SmoothPixmapTransform);
}

void QtCanvas::save() {
    painter_.save();
}

void QtCanvas::restore() {
    painter_.restore();
}

void QtCanvas::translate(double dx, double dy) {
    painter_.translate(dx, dy);
}

void QtCanvas::clip(const Rect& rect) {
    painter_.setClipRect(qRect(rect), Qt::IntersectClip);
}

double QtCanvas::imageScale() const {
    return hasPixels_ ? scale_ : kPaperScale;
}

double QtCanvas::pixels(double points) const {
    return std::round(points * scale_) / scale_;
}

void QtCanvas::fillRect(const Rect& rect, const Color& color) {
    painter_.fillRect(qRect(rect), qColor(color, appearance_));
}

void QtCanvas::fillRoundedRect(const Rect& rect, double radius, const Color& color) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(qColor(color, appearance_));
    painter_.drawRoundedRect(qRect(rect), radius, radius);
}

void QtCanvas::strokeRoundedRect(const Rect& rect, double radius, const Color& color,
                                 double width) {
    painter_.setPen(QPen(qColor(color, appearance_), width));
    painter_.setBrush(Qt::NoBrush);
    const double inside = std::max(0.0, radius - width / 2);
    painter_.drawRoundedRect(qRect(rect.insetBy(width / 2, width / 2)), inside, inside);
}

void QtCanvas::drawLine(Point from, Point to, const Color& color, double width) {
    painter_.setPen(QPen(qColor(color, appearance_), width, Qt::SolidLine, Qt::FlatCap));
    painter_.drawLine(qPoint(from), qPoint(to));
}

void QtCanvas::drawImage(const ImagePtr& image, const Rect& rect) {
    const QImage pixels = renderedImage(image, imageScale(), appearance_);
    if (!pixels.isNull()) painter_.drawImage(qRect(rect), pixels);
}

void QtCanvas::drawTiledImage(const ImagePtr& image, const Rect& rect, Point phase) {
    const QImage tile = renderedImage(image, imageScale(), appearance_);
    if (tile.isNull() || rect.isEmpty()) return;
    const auto size = image->size();
    const auto firstFrom = [](double start, double begin, double step) {
        return begin + std::floor((start - begin) / step) * step;
    };
    const views::CanvasState state(*this);
    clip(rect);
    for (double y = firstFrom(rect.y, phase.y, size.height); y < rect.bottom(); y += size.height)
        for (double x = firstFrom(rect.x, phase.x, size.width); x < rect.right(); x += size.width)
            painter_.drawImage(QRectF(x, y, size.width, size.height), tile);
}

void QtCanvas::drawText(std::string_view text, const Rect& rect, const TextStyle& style) {
    if (text.empty() || rect.isEmpty()) return;
    painter_.setPen(qColor(style.color, appearance_));
    if (style.wraps) {
        drawParagraphs(text, rect, style);
    } else {
        drawLineOfText(text, rect, style);
    }
}

void QtCanvas::drawLineOfText(std::string_view text, const Rect& rect, const TextStyle& style) {
    const double lineHeight = fontFace(style.font).lineHeight;
    const double ascent = fontFace(style.font).metrics.ascent();
    const ShapedLine& line = shapedLine(text, style.font, rect.width);
    const double top = rect.y + (rect.height - lineHeight) / 2;
    const QPointF start(pixels(rect.x + indent(style.alignment, rect.width, line.width)),
                        pixels(top + ascent));
    if (hasPixels_) {
        for (const QGlyphRun& glyphs : line.glyphs)
            painter_.drawGlyphRun(start - QPointF(0, line.ascent), glyphs);
        return;
    }
    // A document keeps letters, not shapes, so that its text can be searched.
    painter_.setFont(line.font);
    painter_.drawText(start, line.text);
}

void QtCanvas::drawParagraphs(std::string_view text, const Rect& rect, const TextStyle& style) {
    const TextLines lines(text, fontFace(style.font), rect.width, qAlignment(style.alignment));
    const views::CanvasState state(*this);
    clip(rect);
    lines.draw(painter_, {rect.x, rect.y});
}

}  // namespace corvane::qt
