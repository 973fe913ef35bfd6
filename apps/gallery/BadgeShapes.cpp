#include "apps/gallery/Pens.h"
#include "apps/gallery/Shapes.h"

#include <QPainterPath>

namespace corvane::gallery {

using platform::Appearance;

namespace {

void drawCategoryBase(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.drawEllipse(QRectF(0.5, 0.5, 23, 23));
}

void drawProjectBase(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.drawRoundedRect(QRectF(1, 1, 22, 22), 5.5, 5.5);
}

/// No indicator: not nothing, or its badge would look like a mere color.
void drawDefault(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.drawEllipse(QRectF(9, 9, 6, 6));
}

void drawFitness(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.translate(12, 12);
    painter.rotate(-35);
    painter.drawRect(QRectF(-4, -1, 8, 2));
    for (int side : {-1, 1}) {
        painter.drawRoundedRect(QRectF(side * 4.6 - 1.1, -4, 2.2, 8), 0.9, 0.9);
        painter.drawRoundedRect(QRectF(side * 7.1 - 0.9, -2.5, 1.8, 5), 0.8, 0.8);
    }
}

/// Two halves with their folds.
void drawBrain(QPainter& painter, Appearance) {
    QPainterPath half;
    half.addEllipse(QPointF(9.4, 8.6), 2.7, 2.7);
    half.addEllipse(QPointF(7.5, 11.6), 2.6, 2.6);
    half.addEllipse(QPointF(8.2, 14.6), 2.5, 2.5);
    half.addEllipse(QPointF(10.1, 16), 1.8, 2.2);
    half.addRect(QRectF(8.6, 7, 2.9, 9.6));
    half.setFillRule(Qt::WindingFill);
    for (int side : {1, -1}) {
        painter.save();
        painter.translate(12, 0);
        painter.scale(side, 1);
        painter.translate(-12, 0);
        fillWith(painter);
        painter.drawPath(half);
        cutOutWith(painter, 0.9);
        painter.drawArc(QRectF(7.4, 8.3, 3.6, 3.6), 250 * 16, -110 * 16);
        painter.drawArc(QRectF(7.2, 12.6, 3.4, 3.4), 120 * 16, -120 * 16);
        painter.restore();
    }
}

/// A hand from either side, the nearer one with its fingers.
void drawHandshake(QPainter& painter, Appearance) {
    QPainterPath hands;
    hands.moveTo(6.8, 8.2);
    hands.lineTo(10, 7.4);
    hands.lineTo(12, 8.1);
    hands.lineTo(14, 7.4);
    hands.lineTo(17.2, 8.2);
    hands.lineTo(18.2, 13);
    hands.lineTo(12.9, 17.4);
    hands.quadTo(12, 18, 11.1, 17.4);
    hands.lineTo(5.8, 13);
    hands.closeSubpath();
    fillWith(painter);
    painter.drawPath(hands);
    painter.drawPolygon(QPolygonF{{3.2, 7.4}, {5.7, 7.4}, {4.7, 13.6}, {2.4, 13.2}});
    painter.drawPolygon(QPolygonF{{20.8, 7.4}, {18.3, 7.4}, {19.3, 13.6}, {21.6, 13.2}});
    cutOutWith(painter, 0.9);
    painter.drawPolyline(QPolygonF{{12.2, 8.4}, {9.6, 11}, {11.4, 12}, {13.4, 10.6}, {16.8, 13.8}});
    painter.drawLine(QPointF(12.6, 12.6), QPointF(14.8, 15));
    painter.drawLine(QPointF(10.8, 13.6), QPointF(12.8, 16));
}

}  // namespace

const Shapes& badgeShapes() {
    static const Shapes shapes{
        {"category-base", drawCategoryBase},
        {"project-base", drawProjectBase},
        {"default", drawDefault},
        {"fitness", drawFitness},
        {"brain", drawBrain},
        {"handshake", drawHandshake},
    };
    return shapes;
}

void drawLetter(QPainter& painter, char letter) {
    QFont font;
    font.setPixelSize(14);
    font.setBold(true);
    fillWith(painter);
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(QRectF(0, 0, kShapeSide, kShapeSide), Qt::AlignCenter,
                     QString(QChar::fromLatin1(letter)).toUpper());
}

}  // namespace corvane::gallery
