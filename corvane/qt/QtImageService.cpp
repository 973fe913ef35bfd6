#include "corvane/qt/QtImageService.h"

#include "corvane/qt/Colors.h"
#include "corvane/qt/QtImage.h"

#include <QPainter>
#include <cmath>
#include <utility>

namespace corvane::qt {

using platform::Appearance;
using platform::Color;
using platform::ImagePtr;

namespace {

using QtImagePtr = std::shared_ptr<const QtImage>;

QRectF bounds(const platform::Image& image) {
    return {0, 0, image.size().width, image.size().height};
}

class TintedImage final : public QtImage {
  public:
    TintedImage(QtImagePtr image, const Color& color)
        : QtImage(image->size()), image_(std::move(image)), color_(color) {}

  protected:
    void paint(QPainter& painter, double scale, Appearance appearance) const override {
        painter.drawImage(QPointF(0, 0), image_->rendered(scale, appearance));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(bounds(*image_), qColor(color_, appearance));
    }

  private:
    QtImagePtr image_;
    Color color_;
};

class CompositeImage final : public QtImage {
  public:
    CompositeImage(QtImagePtr image, QtImagePtr background)
        : QtImage(background->size()),
          image_(std::move(image)),
          background_(std::move(background)) {}

  protected:
    void paint(QPainter& painter, double scale, Appearance appearance) const override {
        painter.drawImage(QPointF(0, 0), background_->rendered(scale, appearance));
        // On whole pixels, or it would blur.
        const auto inset = [&](double outer, double inner) {
            return std::round((outer - inner) / 2 * scale) / scale;
        };
        painter.drawImage(QPointF(inset(size().width, image_->size().width),
                                  inset(size().height, image_->size().height)),
                          image_->rendered(scale, appearance));
    }

  private:
    QtImagePtr image_;
    QtImagePtr background_;
};

}  // namespace

QtImageService::QtImageService(std::vector<std::shared_ptr<ImageSource>> sources)
    : sources_(std::move(sources)) {}

ImagePtr QtImageService::imageNamed(std::string_view name) {
    auto found = images_.find(name);
    if (found != images_.end()) return found->second;
    for (const auto& source : sources_)
        if (auto image = source->imageNamed(name))
            return images_.emplace(name, std::move(image)).first->second;
    return nullptr;
}

ImagePtr QtImageService::tintedImage(const ImagePtr& image, const Color& color) {
    auto ours = std::dynamic_pointer_cast<const QtImage>(image);
    if (!ours) return image;
    return std::make_shared<TintedImage>(std::move(ours), color);
}

ImagePtr QtImageService::compositedImage(const ImagePtr& image, const ImagePtr& background) {
    auto front = std::dynamic_pointer_cast<const QtImage>(image);
    auto back = std::dynamic_pointer_cast<const QtImage>(background);
    if (!front || !back) return image ? image : background;
    return std::make_shared<CompositeImage>(std::move(front), std::move(back));
}

}  // namespace corvane::qt
