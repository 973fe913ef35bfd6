// The library's rectangles, texts and sides in Qt's terms. Functions without state; the sides are
// known to the main thread, the others to any.
#pragma once

#include "corvane/platform/Point.h"
#include "corvane/platform/Rect.h"
#include "corvane/views/Mirroring.h"

#include <QRect>
#include <QRectF>
#include <QString>
#include <string>
#include <string_view>

namespace corvane::qt {

inline QString qString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Of a menu item or a button, where an ampersand would be lost to a mnemonic.
inline QString titleWithoutMnemonic(std::string_view title) {
    return qString(title).replace(QLatin1Char('&'), QLatin1String("&&"));
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

/// Absolute: the column of a text does not depend on its script.
inline Qt::Alignment qAlignment(views::TextAlignment alignment) {
    switch (views::resolved(alignment)) {
        case views::TextAlignment::Center:
            return Qt::AlignHCenter;
        case views::TextAlignment::Right:
            return Qt::AlignRight | Qt::AlignAbsolute;
        default:
            return Qt::AlignLeft | Qt::AlignAbsolute;
    }
}

/// Of what the desktop lays out by itself.
inline Qt::LayoutDirection layoutDirection() {
    return views::isMirrored() ? Qt::RightToLeft : Qt::LeftToRight;
}

}  // namespace corvane::qt
