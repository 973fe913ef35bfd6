#include "corvane/qt/Colors.h"
#include "corvane/vocabulary/NamedColors.h"

#include "apps/gallery/Pens.h"
#include "apps/gallery/Shapes.h"

#include <QPainterPath>

namespace corvane::gallery {

using platform::Appearance;

namespace {

void drawPerson(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.drawEllipse(QRectF(8, 3.5, 8, 8));
    QPainterPath body;
    body.moveTo(4, 20.5);
    body.cubicTo(4, 11, 20, 11, 20, 20.5);
    body.closeSubpath();
    painter.drawPath(body);
}

void drawOrganization(QPainter& painter, Appearance) {
    fillWith(painter);
    painter.drawRoundedRect(QRectF(5.5, 3, 13, 18), 1.2, 1.2);
    cutOutWith(painter, 1.8);
    for (double y : {7.0, 11.0, 15.0})
        for (double x : {9.2, 12.0, 14.8})
            painter.drawPoint(QPointF(x, y));
    painter.drawLine(QPointF(12, 18.8), QPointF(12, 21.5));
}

void drawContactLines(QPainter& painter) {
    cutOutWith(painter, 5);
    painter.drawLine(QPointF(18, 9), QPointF(22, 9));
    strokeWith(painter, 1.6);
    for (double y : {6.5, 9.5, 12.5})
        painter.drawLine(QPointF(18.5, y), QPointF(22.5, y));
}

void drawContactPerson(QPainter& painter, Appearance appearance) {
    drawPerson(painter, appearance);
    drawContactLines(painter);
}

void drawContactOrganization(QPainter& painter, Appearance appearance) {
    drawOrganization(painter, appearance);
    drawContactLines(painter);
}

void drawCheckMark(QPainter& painter) {
    const QPolygonF mark{{14.5, 18.5}, {17, 21}, {22, 15.5}};
    cutOutWith(painter, 4.5);
    painter.drawPolyline(mark);
    strokeWith(painter, 2);
    painter.drawPolyline(mark);
}

void drawAssignedPerson(QPainter& painter, Appearance appearance) {
    drawPerson(painter, appearance);
    drawCheckMark(painter);
}

void drawAssignedOrganization(QPainter& painter, Appearance appearance) {
    drawOrganization(painter, appearance);
    drawCheckMark(painter);
}

/// Two links of a chain.
void drawLink(QPainter& painter, Appearance) {
    painter.translate(12, 12);
    painter.rotate(-45);
    strokeWith(painter, 1.9);
    painter.drawRoundedRect(QRectF(-10.5, -3.4, 11, 6.8), 3.4, 3.4);
    painter.drawRoundedRect(QRectF(-0.5, -3.4, 11, 6.8), 3.4, 3.4);
}

void drawStar(QPainter& painter, Appearance) {
    QPolygonF star;
    for (int corner = 0; corner < 10; ++corner) {
        QTransform turn;
        turn.rotate(corner * 36);
        star << turn.map(QPointF(0, corner % 2 == 0 ? -9.5 : -4)) + QPointF(12, 12.6);
    }
    fillWith(painter);
    painter.drawPolygon(star);
}

void drawManyStates(QPainter& painter, Appearance) {
    strokeWith(painter, 1.8);
    painter.drawEllipse(QRectF(8.5, 3, 12.5, 12.5));
    fillWith(painter);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawEllipse(QRectF(1.8, 7.3, 15, 15));
    fillWith(painter);
    painter.drawEllipse(QRectF(3, 8.5, 12.5, 12.5));
    cutOutWith(painter, 1.7);
    painter.drawPolyline(QPolygonF{{6.3, 15}, {8.4, 17.1}, {12.4, 12.6}});
}

void drawManyPriorities(QPainter& painter, Appearance) {
    const QPolygonF flag{{0, 0}, {8.5, 0}, {7, 3.5}, {8.5, 7}, {0, 7}};
    strokeWith(painter, 1.6);
    painter.drawPolygon(flag.translated(12, 3.5));
    painter.drawLine(QPointF(12, 3.5), QPointF(12, 10.5));
    const QPolygonF front = flag.translated(4, 7.5);
    cutOutWith(painter, 4);
    painter.drawPolygon(front);
    strokeWith(painter, 1.6);
    painter.setBrush(Qt::black);
    painter.drawPolygon(front);
    painter.drawLine(QPointF(4, 7.5), QPointF(4, 21));
}

void drawManyCategories(QPainter& painter, Appearance appearance) {
    fillWith(painter, qt::qColor(NamedColors::categoryOrangeColor(), appearance));
    painter.drawEllipse(QRectF(6.5, 2.5, 11, 11));
    fillWith(painter, qt::qColor(NamedColors::categoryBlueColor(), appearance));
    painter.drawEllipse(QRectF(1.5, 10.5, 11, 11));
    fillWith(painter, qt::qColor(NamedColors::categoryGreenColor(), appearance));
    painter.drawEllipse(QRectF(11.5, 10.5, 11, 11));
}

void drawCategoryToAdd(QPainter& painter, Appearance appearance) {
    fillWith(painter, qt::qColor(NamedColors::categoryGrayColor(), appearance));
    painter.drawEllipse(QRectF(1, 1, 22, 22));
    strokeWith(painter, 2.4, Qt::white);
    painter.drawLine(QPointF(12, 7), QPointF(12, 17));
    painter.drawLine(QPointF(7, 12), QPointF(17, 12));
}

}  // namespace

const Shapes& contactShapes() {
    static const Shapes shapes{
        {"accessory-link", drawLink},
        {"contributor-person", drawPerson},
        {"contributor-organization", drawOrganization},
        {"contact-person", drawContactPerson},
        {"contact-organization", drawContactOrganization},
        {"indicator-assigned-person", drawAssignedPerson},
        {"indicator-assigned-organization", drawAssignedOrganization},
        {"indicator-contact-person", drawContactPerson},
        {"indicator-contact-organization", drawContactOrganization},
        {"touch-starred", drawStar},
        {"touch-status-multiple", drawManyStates},
        {"touch-priority-multiple", drawManyPriorities},
        {"touch-category-multiple", drawManyCategories},
        {"touch-category-add", drawCategoryToAdd},
    };
    return shapes;
}

}  // namespace corvane::gallery
