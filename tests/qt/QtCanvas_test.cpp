#include "corvane/qt/QtCanvas.h"

#include "corvane/qt/QtImage.h"
#include "corvane/qt/QtTextMeasurer.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <functional>
#include <string>

using namespace corvane;
using namespace corvane::qt;
using platform::Appearance;
using platform::Color;
using platform::Rect;
using views::TextAlignment;

namespace {

const Color kInk({1, 0, 0}, {0, 0, 1});

QImage drawing(const std::function<void(QtCanvas&)>& draw, double scale = 1,
               Appearance appearance = Appearance::Light) {
    QImage image(QSize(120, 60) * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtCanvas canvas(painter, appearance);
    draw(canvas);
    return image;
}

/// What is not white, in pixels.
QRect inked(const QImage& image) {
    QRect area;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).lightness() < 250) area |= QRect(x, y, 1, 1);
    return area;
}

QImage textDrawing(const char* text, const Rect& rect, bool wraps = false,
                   TextAlignment alignment = TextAlignment::Left) {
    return drawing([&](QtCanvas& canvas) {
        canvas.drawText(text, rect, {{13}, kInk, alignment, wraps});
    });
}

}  // namespace

TEST(QtCanvas, DrawsShapesWhereTheyBelong) {
    const std::pair<void (*)(QtCanvas&), QRect> kCases[] = {
        {[](QtCanvas& c) {
             c.fillRect({10, 10, 20, 5}, kInk);
         },
         {10, 10, 20, 5}},
        {[](QtCanvas& c) {
             c.fillRoundedRect({10, 10, 20, 20}, 4, kInk);
         },
         {10, 10, 20, 20}},
        {[](QtCanvas& c) {
             c.strokeRoundedRect({10, 10, 20, 20}, 4, kInk, 2);
         },
         {10, 10, 20, 20}},
        {[](QtCanvas& c) {
             c.drawLine({10, 10.5}, {20, 10.5}, kInk, 1);
         },
         {10, 10, 10, 1}},
        {[](QtCanvas& c) {
             const views::CanvasState state(c);
             c.translate(5, 6);
             c.clip({0, 0, 10, 10});
             c.clip({5, 5, 10, 10});
             c.fillRect({0, 0, 100, 100}, kInk);
         },
         {10, 11, 5, 5}},
        {[](QtCanvas& c) {
             const auto dot = drawnImage({8, 8}, [](QPainter& painter, Appearance) {
                 painter.fillRect(QRect(0, 0, 2, 2), Qt::black);
             });
             c.drawTiledImage(dot, {10, 10, 20, 20}, {6, 6});
         },
         {14, 14, 10, 10}},
    };
    for (const auto& [draw, expected] : kCases) {
        EXPECT_EQ(inked(drawing(draw)), expected);
        EXPECT_EQ(inked(drawing(draw, 2)), QRect(expected.topLeft() * 2, expected.size() * 2));
    }
    const auto fill = [](QtCanvas& c) { c.fillRect({0, 0, 9, 9}, kInk); };
    EXPECT_EQ(drawing(fill).pixelColor(4, 4), QColor(Qt::red));
    EXPECT_EQ(drawing(fill, 1, Appearance::Dark).pixelColor(4, 4), QColor(Qt::blue));
}

TEST(QtCanvas, DrawsTextAsItIsMeasured) {
    QtTextMeasurer measurer;
    const views::Font font{13};
    const double line = measurer.lineHeight(font);
    for (const char* text : {"Buy milk", "Жук", "Wide W", "fjord, AVA"}) {
        const double width = measurer.sizeOfText(text, font, 0).width;
        const QRect left = inked(textDrawing(text, {10, 10, 100, 30}));
        EXPECT_NEAR(left.right(), 10 + width, 3) << text;
        EXPECT_NEAR(left.center().y(), 25, 4) << text;
        const QRect right =
            inked(textDrawing(text, {10, 10, 100, 30}, false, TextAlignment::Right));
        EXPECT_NEAR(right.right(), 110, 3) << text;
        // In just its room it is whole; with less of it, it is cut off inside of that.
        EXPECT_EQ(inked(textDrawing(text, {10, 10, width, 30})), left) << text;
        EXPECT_LT(inked(textDrawing(text, {10, 10, width - 4, 30})).right(), 10 + width - 3);
    }
    const char* kParagraphs = "one two three\nfour, and five";
    const auto size = measurer.sizeOfText(kParagraphs, font, 60);
    EXPECT_EQ(size.height, 4 * line);
    EXPECT_LE(size.width, 60);
    EXPECT_EQ(measurer.sizeOfText(kParagraphs, font, 0).height, 2 * line);
    EXPECT_EQ(measurer.sizeOfText("", font, 60).height, line);
    EXPECT_GT(measurer.sizeOfText("unbreakable", font, 30).height, line);
    const QRect ink = inked(textDrawing(kParagraphs, {10, 0, 60, 2 * line}, true));
    EXPECT_TRUE(QRect(10, 0, 60, static_cast<int>(2 * line)).contains(ink));
    EXPECT_GT(ink.bottom(), 1.5 * line);
    EXPECT_GT(measurer.sizeOfText("bold", {13, true}, 0).width,
              measurer.sizeOfText("bold", font, 0).width);
}
