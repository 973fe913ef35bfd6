#include "corvane/qt/Colors.h"
#include "corvane/vocabulary/NamedColors.h"

#include "apps/gallery/Pens.h"
#include "apps/gallery/Shapes.h"

#include <QPainterPath>

namespace corvane::gallery {

using platform::Appearance;

namespace {

constexpr int kFrames = 12;

void drawCylinder(QPainter& painter, const QColor& color) {
    const QRectF lid(7.5, 7, 9, 3.6);
    QPainterPath body;
    body.moveTo(7.5, 8.8);
    body.lineTo(7.5, 15.2);
    body.arcTo(QRectF(7.5, 13.4, 9, 3.6), 180, 180);
    body.lineTo(16.5, 8.8);
    body.closeSubpath();
    body.addEllipse(lid);
    body.setFillRule(Qt::WindingFill);
    fillWith(painter, color);
    painter.drawPath(body);
    cutOutWith(painter, 0.9);
    painter.drawArc(lid, 180 * 16, 180 * 16);
    painter.drawArc(lid.translated(0, 3.2), 180 * 16, 180 * 16);
}

}  // namespace

/// A store, with a ring of dots whose brightest runs around it.
void drawRepository(QPainter& painter, Appearance appearance, int frame) {
    QColor color = qt::qColor(NamedColors::tintColor(), appearance);
    drawCylinder(painter, color);
    painter.translate(12, 12);
    for (int dot = 0; dot < kFrames; ++dot) {
        const int age = (frame - dot + kFrames) % kFrames;
        color.setAlphaF(1.0F - 0.85F * static_cast<float>(age) / (kFrames - 1));
        fillWith(painter, color);
        painter.drawEllipse(QPointF(0, -9.8), 1.35, 1.35);
        painter.rotate(360.0 / kFrames);
    }
}

/// Two arrows that chase each other: half a turn brings each to the other's place.
void drawSyncing(QPainter& painter, Appearance appearance, int frame) {
    const QColor color = qt::qColor(NamedColors::tintColor(), appearance);
    painter.translate(12, 12);
    painter.rotate(frame * 180.0 / kFrames);
    for (int arrow = 0; arrow < 2; ++arrow) {
        strokeWith(painter, 2.2, color);
        painter.drawArc(QRectF(-8, -8, 16, 16), 165 * 16, -110 * 16);
        fillWith(painter, color);
        // At the front end of the arc, 55 degrees up from the right.
        painter.save();
        painter.rotate(-55);
        painter.drawPolygon(QPolygonF{{4.2, -0.6}, {11.8, -0.6}, {8, 4.8}});
        painter.restore();
        painter.rotate(180);
    }
}

}  // namespace corvane::gallery
