#include "corvane/qt/QtImageService.h"

#include "corvane/qt/Colors.h"
#include "corvane/qt/ImageCatalog.h"
#include "corvane/qt/QtImage.h"

#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainter>
#include <cmath>
#include <filesystem>

namespace corvane::qt {
namespace {

using platform::Appearance;
using platform::Color;
using platform::ImagePtr;
using testing::ElementsAre;

constexpr Color kRedOrBlue({1, 0, 0}, {0, 0, 1});

/// A square in the middle of transparent ground.
ImagePtr square(double side, double of, QColor color = Qt::black) {
    return drawnImage({side, side}, [=](QPainter& painter, Appearance) {
        painter.fillRect(QRectF((side - of) / 2, (side - of) / 2, of, of), color);
    });
}

QColor pixel(const QImage& image, double x, double y) {
    return image.pixelColor(static_cast<int>(x * image.devicePixelRatio()),
                            static_cast<int>(y * image.devicePixelRatio()));
}

struct QtImageServiceTest : testing::TestWithParam<double> {
    QtImageService service{{}};
    double scale = GetParam();
    QImage rendered(const ImagePtr& image, Appearance appearance = Appearance::Light) {
        return renderedImage(image, scale, appearance);
    }
};

TEST_P(QtImageServiceTest, makesPixelsForTheScale) {
    const auto image = rendered(square(24, 8));
    EXPECT_EQ(image.width(), std::ceil(24 * scale));
    EXPECT_EQ(image.devicePixelRatio(), scale);
    EXPECT_EQ(pixel(image, 12, 12), QColor(Qt::black));
    EXPECT_EQ(pixel(image, 2, 2).alpha(), 0);
}

TEST_P(QtImageServiceTest, tintsWhatIsOpaqueAsTheAppearanceWantsIt) {
    const auto tinted = service.tintedImage(square(24, 8, Qt::green), kRedOrBlue);
    EXPECT_EQ(pixel(rendered(tinted), 12, 12), QColor(Qt::red));
    EXPECT_EQ(pixel(rendered(tinted, Appearance::Dark), 12, 12), QColor(Qt::blue));
    EXPECT_EQ(pixel(rendered(tinted), 2, 2).alpha(), 0);

    const auto faint = rendered(service.tintedImage(square(24, 8), kRedOrBlue.withAlpha(0.5)));
    EXPECT_NEAR(pixel(faint, 12, 12).alphaF(), 0.5, 0.01);
}

TEST_P(QtImageServiceTest, compositesOverTheMiddleOfTheBackground) {
    for (double side : {8.0, 16.0, 40.0}) {
        const auto badge = service.compositedImage(square(side, 4, Qt::white),
                                                   service.tintedImage(square(24, 20), kRedOrBlue));
        EXPECT_EQ(badge->size(), (platform::Size{24, 24}));
        const auto image = rendered(badge);
        for (double near : {10.5, 13.5})
            EXPECT_EQ(pixel(image, near, near), QColor(Qt::white)) << side;
        for (double far : {9.0, 15.0})
            EXPECT_EQ(pixel(image, far, far), QColor(Qt::red)) << side;
        EXPECT_EQ(pixel(image, 1, 1).alpha(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(AtScale, QtImageServiceTest, testing::Values(1, 2));

TEST(QtImage, keepsRenderingsButNotForever) {
    int paintings = 0;
    auto image = drawnImage({4, 4}, [&](QPainter&, Appearance) { ++paintings; });
    for (int round = 0; round < 3; ++round)
        for (double scale : {1.0, 2.0})
            for (auto appearance : {Appearance::Light, Appearance::Dark})
                renderedImage(image, scale, appearance);
    EXPECT_EQ(paintings, 4);
    renderedImage(image, 3, Appearance::Light);
    renderedImage(image, 1, Appearance::Light);
    EXPECT_EQ(paintings, 6);
    for (double scale : {0.0, -1.0, 1e9, std::nan("")})
        EXPECT_TRUE(renderedImage(image, scale, Appearance::Light).isNull());
    EXPECT_TRUE(renderedImage(nullptr, 1, Appearance::Light).isNull());
}

TEST(ImageCatalog, drawsFilesInTheMiddleAndPassesOverWhatItCannotRead) {
    const tests::TemporaryDirectory directory;
    const char* kWide =
        "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='8' viewBox='0 0 16 8'>"
        "<path d='M0 0h16v8h-16z'/></svg>";
    directory.write("wide.svg", kWide);
    directory.write("broken.svg", "<svg xmlns='http://www.w3.org/2000/svg'><path");
    auto catalog = ImageCatalog::parse(
        "wide = wide.svg 50%\nbroken = broken.svg\nmissing = missing.svg\nbad = x.svg 0%\n"
        "worse = x.svg 50\n=\n");
    catalog.setDirectories({"/nonexistent", directory.path()});
    EXPECT_THAT(catalog.problems(),
                ElementsAre("line 6: no key", "bad: not a file and a percentage",
                            "worse: not a file and a percentage"));
    for (const char* name : {"broken-t", "missing", "unknown"})
        EXPECT_EQ(catalog.imageNamed(name), nullptr) << name;

    for (double scale : {1.0, 2.0}) {
        const auto image = renderedImage(catalog.imageNamed("wide-t"), scale, Appearance::Light);
        EXPECT_EQ(image.width(), 24 * scale);
        EXPECT_EQ(pixel(image, 7, 12).alpha(), 255);
        EXPECT_EQ(pixel(image, 16.5, 14).alpha(), 255);
        EXPECT_EQ(pixel(image, 5, 12).alpha(), 0);
        EXPECT_EQ(pixel(image, 12, 8).alpha(), 0);
        EXPECT_EQ(pixel(image, 12, 15.5).alpha(), 0);
    }
    const auto readOnce = catalog.imageNamed("wide-t");
    std::filesystem::remove(directory.path() + "/wide.svg");
    EXPECT_FALSE(pixel(renderedImage(readOnce, 1, Appearance::Light), 12, 12).alpha() == 0);
    EXPECT_EQ(catalog.imageNamed("wide-t"), nullptr);
    directory.write("wide.svg", kWide);
    EXPECT_EQ(catalog.imageNamed("wide-s-t")->size().width, 16);
    EXPECT_EQ(catalog.imageNamed("wide-us-t")->size().width, 12);
}

}  // namespace
}  // namespace corvane::qt
