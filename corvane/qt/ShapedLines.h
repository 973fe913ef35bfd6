// Lines of text with their letters chosen and placed, which is most of the work of drawing them.
// The thread that draws; an application object must exist.
#pragma once

#include "corvane/qt/Fonts.h"

#include <QGlyphRun>
#include <QList>
#include <QString>
#include <string_view>

namespace corvane::qt {

struct ShapedLine {
    QFont font;
    QString
        text;  ///< cut off with an ellipsis where it is too long, and without line breaks and tabs
    QList<QGlyphRun> glyphs;
    double width = 0;
    double ascent = 0;  ///< from the glyphs' origin down to the base line
};

/// Of as much of the text as the width has room for. The last few hundred are kept, so that what
/// scrolls by need not be shaped again. Valid until the next call.
const ShapedLine& shapedLine(std::string_view text, const views::Font& font, double width);

}  // namespace corvane::qt
