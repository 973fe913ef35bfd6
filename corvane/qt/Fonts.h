// The fonts of views as fonts of the desktop. The thread that draws; an application must exist.
#pragma once

#include "corvane/views/Font.h"

#include <QFont>
#include <QFontMetricsF>

namespace corvane::qt {

/// A font of the application's family, and what is known of its letters.
struct FontFace {
    views::Font font;
    QFont qFont;
    QFontMetricsF metrics;
    double lineHeight = 0;  ///< whole points, so that lines lie on pixels
};

/// Kept until the application's font is another one; valid until the next call.
const FontFace& fontFace(const views::Font& font);

}  // namespace corvane::qt
