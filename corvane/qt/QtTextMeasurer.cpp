#include "corvane/qt/QtTextMeasurer.h"

#include "corvane/qt/Fonts.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/TextLines.h"

#include <cmath>

namespace corvane::qt {

platform::Size QtTextMeasurer::sizeOfText(std::string_view text, const views::Font& font,
                                          double width) {
    const FontFace& face = fontFace(font);
    if (text.find('\n') == text.npos) {
        // Most texts are one line, for which no layout is needed.
        const double advance = face.metrics.horizontalAdvance(qString(text));
        if (width <= 0 || advance <= width) return {std::ceil(advance), face.lineHeight};
    }
    const TextLines lines(text, face, width);
    return {std::ceil(lines.widest()), lines.count() * face.lineHeight};
}

double QtTextMeasurer::lineHeight(const views::Font& font) {
    return fontFace(font).lineHeight;
}

}  // namespace corvane::qt
