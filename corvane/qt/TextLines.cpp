#include "corvane/qt/TextLines.h"

#include "corvane/qt/Geometry.h"

#include <QTextOption>
#include <algorithm>

namespace corvane::qt {

namespace {

/// Wider than any screen, and little enough for the layout's own arithmetic.
constexpr double kWithoutEnd = 1e6;

}  // namespace

TextLines::TextLines(std::string_view text, const FontFace& face, double width,
                     Qt::Alignment alignment)
    : layout_(qString(text)
                  .replace(QLatin1String("\r\n"), QLatin1String("\n"))
                  .replace(QLatin1Char('\n'), QChar::LineSeparator),
              face.qFont) {
    QTextOption option(width > 0 ? alignment : Qt::AlignLeft);
    option.setWrapMode(width > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    // By what the text says, not by the language of the program: a full stop follows its sentence.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(false);
    layout_.beginLayout();
    double y = 0;
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width > 0 ? width : kWithoutEnd);
        line.setPosition({0, y});
        y += face.lineHeight;
        widest_ = std::max(widest_, line.naturalTextWidth());
    }
    layout_.endLayout();
}

}  // namespace corvane::qt
