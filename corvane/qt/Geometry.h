// The library's rectangles and texts in Qt's terms. Functions without state; any thread.
#pragma once

#include "corvane/platform/Point.h"
#include "corvane/platform/Rect.h"

#include <QRect>
#include <QRectF>
#include <QString>
#include <string>
#include <string_view>

namespace corvane::qt {

inline QString qString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline QPointF qPoint(platform::Point point) {
    return {point.x, point.y};
}

inline platform::Point pointOf(QPointF point) {
    return {point.x(), point.y()};
}

inline QRectF qRect(const platform::Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

inline platform::Rect rectOf(const QRectF& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

/// Of whole points, so that nothing of it is left out.
inline QRect qRectAround(const platform::Rect& rect) {
    return qRect(rect).toAlignedRect();
}

}  // namespace corvane::qt
