// How the drawings draw: solid shapes, round strokes, and what is cut out of either.
#pragma once

#include <QPainter>
#include <QPen>

namespace corvane::gallery {

inline void fillWith(QPainter& painter, const QColor& color = Qt::black) {
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
}

inline void strokeWith(QPainter& painter, double width, const QColor& color = Qt::black) {
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
}

/// What is drawn next becomes transparent.
inline void cutOutWith(QPainter& painter, double width) {
    strokeWith(painter, width);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
}

}  // namespace corvane::gallery
