// The library's colors and screens in Qt's terms. Functions without state; any thread.
#pragma once

#include "corvane/platform/Color.h"

#include <QColor>

namespace corvane::qt {

inline QColor qColor(const platform::Color& color, platform::Appearance appearance) {
    const auto parts = color.in(appearance);
    return QColor::fromRgbF(static_cast<float>(parts.red), static_cast<float>(parts.green),
                            static_cast<float>(parts.blue), static_cast<float>(parts.alpha));
}

}  // namespace corvane::qt
