#include "corvane/qt/QtImage.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::qt {

namespace {

/// A window on a light and a dark screen of different scales.
constexpr std::size_t kKeptRenderings = 4;
constexpr double kLargestSide = 8192;

class DrawnImage final : public QtImage {
  public:
    DrawnImage(platform::Size size, Painting painting)
        : QtImage(size), painting_(std::move(painting)) {}

  protected:
    void paint(QPainter& painter, double, platform::Appearance appearance) const override {
        painting_(painter, appearance);
    }

  private:
    Painting painting_;
};

}  // namespace

QImage QtImage::rendered(double scale, platform::Appearance appearance) const {
    auto kept = std::find_if(renderings_.begin(), renderings_.end(), [&](const Rendering& each) {
        return each.scale == scale && each.appearance == appearance;
    });
    if (kept != renderings_.end()) return kept->image;

    const double width = std::ceil(size_.width * scale);
    const double height = std::ceil(size_.height * scale);
    const bool drawable =
        width >= 1 && height >= 1 && width <= kLargestSide && height <= kLargestSide;
    if (!drawable) return {};
    QImage image(static_cast<int>(width), static_cast<int>(height),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        paint(painter, scale, appearance);
    }
    if (renderings_.size() == kKeptRenderings) renderings_.erase(renderings_.begin());
    renderings_.push_back({scale, appearance, image});
    return image;
}

QImage renderedImage(const platform::ImagePtr& image, double scale,
                     platform::Appearance appearance) {
    auto* ours = dynamic_cast<const QtImage*>(image.get());
    return ours ? ours->rendered(scale, appearance) : QImage();
}

platform::ImagePtr drawnImage(platform::Size size, Painting painting) {
    return std::make_shared<DrawnImage>(size, std::move(painting));
}

}  // namespace corvane::qt
