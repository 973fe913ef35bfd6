#include "apps/gallery/Pens.h"
#include "apps/gallery/Shapes.h"

#include <QPainterPath>

namespace corvane::gallery {

using platform::Appearance;

namespace {

constexpr double kLine = 1.8;
constexpr QRectF kRing(3, 3, 18, 18);

void drawRing(QPainter& painter) {
    strokeWith(painter, kLine);
    painter.drawEllipse(kRing);
}

void drawActionable(QPainter& painter, Appearance) {
    drawRing(painter);
}

void drawInProgress(QPainter& painter, Appearance) {
    drawRing(painter);
    fillWith(painter);
    painter.drawPie(kRing, 90 * 16, 180 * 16);
}

void drawOnHold(QPainter& painter, Appearance) {
    drawRing(painter);
    painter.drawLine(QPointF(9.8, 8.8), QPointF(9.8, 15.2));
    painter.drawLine(QPointF(14.2, 8.8), QPointF(14.2, 15.2));
}

void drawCompleted(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.drawEllipse(kRing.adjusted(-0.9, -0.9, 0.9, 0.9));
    cutOutWith(painter, 2);
    painter.drawPolyline(QPolygonF{{7.6, 12.4}, {10.6, 15.4}, {16.4, 9}});
}

void drawCanceled(QPainter& painter, Appearance) {
    drawRing(painter);
    painter.drawLine(QPointF(9, 9), QPointF(15, 15));
    painter.drawLine(QPointF(15, 9), QPointF(9, 15));
}

void drawInbox(QPainter& painter, Appearance) {
    strokeWith(painter, kLine);
    painter.drawPolygon(QPolygonF{{6, 5}, {18, 5}, {21, 13}, {21, 19}, {3, 19}, {3, 13}});
    painter.drawPolyline(
        QPolygonF{{3, 13}, {8, 13}, {9.5, 15.5}, {14.5, 15.5}, {16, 13}, {21, 13}});
}

void drawSomeday(QPainter& painter, Appearance) {
    QPainterPath moon;
    moon.addEllipse(QRectF(4, 4, 16, 16));
    QPainterPath shadow;
    shadow.addEllipse(QRectF(9, 1.5, 14, 14));
    fillWith(painter);
    painter.drawPath(moon.subtracted(shadow));
}

void drawScratchpad(QPainter& painter, Appearance) {
    strokeWith(painter, kLine);
    painter.drawRoundedRect(QRectF(5, 3.5, 14, 17), 2, 2);
    for (double y : {8.5, 12.0, 15.5})
        painter.drawLine(QPointF(8.5, y), QPointF(15.5, y));
}

void drawTrash(QPainter& painter, Appearance) {
    strokeWith(painter, kLine);
    painter.drawLine(QPointF(4, 6), QPointF(20, 6));
    painter.drawPolyline(QPolygonF{{9, 6}, {9.5, 3.5}, {14.5, 3.5}, {15, 6}});
    painter.drawPolyline(QPolygonF{{6, 6}, {7, 20.5}, {17, 20.5}, {18, 6}});
    painter.drawLine(QPointF(10, 9.5), QPointF(10.3, 17));
    painter.drawLine(QPointF(14, 9.5), QPointF(13.7, 17));
}

/// A flag that fills as the priority rises, so that it is told without its color too.
void drawFlag(QPainter& painter, const QColor& color, double filled) {
    QPainterPath flag;
    flag.moveTo(6.5, 4);
    flag.cubicTo(10, 2.2, 12.5, 6, 19.5, 4);
    flag.lineTo(17.2, 9);
    flag.lineTo(19.5, 14);
    flag.cubicTo(12.5, 16, 10, 12.2, 6.5, 14);
    flag.closeSubpath();
    painter.save();
    painter.setClipRect(QRectF(0, 15 - 12 * filled, kShapeSide, 12 * filled));
    fillWith(painter, color);
    painter.drawPath(flag);
    painter.restore();
    strokeWith(painter, 1.6, color);
    painter.drawPath(flag);
    painter.drawLine(QPointF(6.5, 3.4), QPointF(6.5, 21));
}

constexpr QColor kTrivial(31, 158, 158), kLow(70, 160, 58), kMedium(132, 136, 146),
    kHigh(232, 138, 28), kCritical(226, 52, 68);

void drawTrivial(QPainter& painter, Appearance) {
    drawFlag(painter, kTrivial, 0);
}

void drawLow(QPainter& painter, Appearance) {
    drawFlag(painter, kLow, 0.35);
}

void drawMedium(QPainter& painter, Appearance) {
    drawFlag(painter, kMedium, 0.6);
}

void drawHigh(QPainter& painter, Appearance) {
    drawFlag(painter, kHigh, 1);
}

void drawCritical(QPainter& painter, Appearance) {
    drawFlag(painter, kCritical, 1);
    strokeWith(painter, 1.8, Qt::white);
    painter.drawLine(QPointF(12, 6.3), QPointF(12, 9));
    painter.drawPoint(QPointF(12, 11.9));
}

}  // namespace

const Shapes& stateShapes() {
    static const Shapes shapes{
        {"status-inbox", drawInbox},
        {"status-someday", drawSomeday},
        {"status-scratchpad", drawScratchpad},
        {"status-actionable", drawActionable},
        {"status-in-progress", drawInProgress},
        {"status-on-hold", drawOnHold},
        {"status-completed", drawCompleted},
        {"status-canceled", drawCanceled},
        {"status-trash", drawTrash},
        {"priority-trivial", drawTrivial},
        {"priority-low", drawLow},
        {"priority-medium", drawMedium},
        {"priority-high", drawHigh},
        {"priority-critical", drawCritical},
    };
    return shapes;
}

}  // namespace corvane::gallery
