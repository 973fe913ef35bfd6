// A text broken into lines: measured and drawn by the same rules. The thread that draws.
#pragma once

#include "corvane/qt/Fonts.h"

#include <QString>
#include <QTextLayout>
#include <string_view>

namespace corvane::qt {

/// Lines end at line breaks and, with a width above 0, between words, or within one that is too
/// long for a line of its own. Lines stand a line height apart.
class TextLines {
  public:
    TextLines(std::string_view text, const FontFace& face, double width,
              Qt::Alignment alignment = Qt::AlignLeft);

    int count() const { return layout_.lineCount(); }
    double widest() const { return widest_; }
    void draw(QPainter& painter, QPointF origin) const { layout_.draw(&painter, origin); }

  private:
    QTextLayout layout_;
    double widest_ = 0;
};

}  // namespace corvane::qt
