#include "corvane/qt/ShapedLines.h"

#include "corvane/qt/QtCanvas.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <cmath>

namespace corvane::qt {
namespace {

constexpr platform::Rect kPlace{5, 5, 150, 30};

QImage paper(double scale) {
    QImage image(QSize(160, 40) * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    return image;
}

QImage drawn(const char* text, const views::Font& font, double scale) {
    QImage image = paper(scale);
    QPainter painter(&image);
    QtCanvas canvas(painter, platform::Appearance::Light);
    canvas.drawText(text, kPlace, {font, platform::Color({0, 0, 0})});
    return image;
}

/// As Qt draws a text that nobody keeps.
QImage drawnByQt(const char* text, const views::Font& font, double scale) {
    QImage image = paper(scale);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const FontFace& face = fontFace(font);
    const double base = kPlace.y + (kPlace.height - face.lineHeight) / 2 + face.metrics.ascent();
    painter.setFont(face.qFont);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(kPlace.x, std::round(base * scale) / scale),
                     face.metrics.elidedText(text, Qt::ElideRight, kPlace.width));
    return image;
}

TEST(ShapedLines, LookAsIfTheyWereShapedAnew) {
    for (const char* text : {"Tomatoes", "A title that is much too long for its place",
                             "\u05e9\u05dc\u05d5\u05dd", "caf\u00e9 \u2713", "o\u0308ffi", " "})
        for (const views::Font& font : {views::Font{13, false, false}, views::Font{17, true, true}})
            for (const double scale : {1.0, 2.0}) {
                const QImage expected = drawnByQt(text, font, scale);
                EXPECT_EQ(drawn(text, font, scale), expected) << text << " at " << scale;
                EXPECT_EQ(drawn(text, font, scale), expected) << text << " again";
            }
}

TEST(ShapedLines, FollowTheWidthAndTheFontOfTheApplication) {
    const views::Font font{13, false, false};
    EXPECT_EQ(shapedLine("long enough", font, 1000).text, "long enough");
    EXPECT_TRUE(shapedLine("long enough", font, 40).text.endsWith(QChar(0x2026)));
    const double before = shapedLine("long enough", font, 1000).width;
    const QFont usual = QApplication::font();
    QFont wide = usual;
    wide.setStretch(QFont::Expanded);
    QApplication::setFont(wide);
    EXPECT_GT(shapedLine("long enough", font, 1000).width, before);
    QApplication::setFont(usual);
    EXPECT_EQ(shapedLine("long enough", font, 1000).width, before);
}

}  // namespace
}  // namespace corvane::qt
