#include "corvane/qt/ShapedLines.h"

#include "corvane/qt/Geometry.h"

#include <QCache>
#include <QCoreApplication>
#include <QTextLayout>
#include <QTextOption>

namespace corvane::qt {

namespace {

/// Several screens full.
constexpr int kKeptLines = 1000;
/// A text that just fits must not lose its end to the arithmetic.
constexpr double kTolerance = 0.01;

template <class Value>
void append(QByteArray& key, const Value& value) {
    key.append(reinterpret_cast<const char*>(&value), sizeof value);
}

QByteArray keyOf(std::string_view text, const views::Font& font, double width) {
    QByteArray key;
    key.reserve(static_cast<qsizetype>(text.size() + 2 * sizeof(double) + 2));
    append(key, width);
    append(key, font.size);
    key.append(font.bold ? 'b' : '-').append(font.italic ? 'i' : '-');
    key.append(text.data(), static_cast<qsizetype>(text.size()));
    return key;
}

ShapedLine shaped(std::string_view text, const FontFace& face, double width) {
    ShapedLine line;
    line.font = face.qFont;
    line.text = qString(text);
    for (const char separator : {'\n', '\t'})
        line.text.replace(QLatin1Char(separator), QLatin1Char(' '));
    line.width = face.metrics.horizontalAdvance(line.text);
    if (line.width > width + kTolerance) {
        line.text = face.metrics.elidedText(line.text, Qt::ElideRight, width);
        line.width = face.metrics.horizontalAdvance(line.text);
    }
    QTextLayout layout(line.text, face.qFont);
    // From the left in any script: who draws knows where the line stands.
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    // By what it says, not by the language of the program: a full stop follows its sentence.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout.setTextOption(option);
    layout.beginLayout();
    if (QTextLine only = layout.createLine(); only.isValid()) {
        only.setLineWidth(line.width + 1);
        line.ascent = only.ascent();
    }
    layout.endLayout();
    line.glyphs = layout.glyphRuns();
    return line;
}

using Lines = QCache<QByteArray, ShapedLine>;

Lines& keptLines() {
    static Lines lines(kKeptLines);
    // Fonts must not outlive the application, which ends before this does.
    static const bool isRegistered = [] {
        qAddPostRoutine([] { lines.clear(); });
        return true;
    }();
    static_cast<void>(isRegistered);
    return lines;
}

}  // namespace

const ShapedLine& shapedLine(std::string_view text, const views::Font& font, double width) {
    Lines& lines = keptLines();
    const FontFace& face = fontFace(font);
    const QByteArray key = keyOf(text, font, width);
    // The application may have got another font since.
    if (const ShapedLine* known = lines.object(key); known && known->font == face.qFont)
        return *known;
    auto* line = new ShapedLine(shaped(text, face, width));
    lines.insert(key, line);  // takes it over
    return *line;
}

}  // namespace corvane::qt
