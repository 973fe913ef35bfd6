#include "corvane/platform/Image.h"

#include <utility>

namespace corvane::platform {

namespace {

class NoImages final : public ImageService {
  public:
    ImagePtr imageNamed(std::string_view) override { return nullptr; }
    ImagePtr tintedImage(const ImagePtr& image, const Color&) override { return image; }
    ImagePtr compositedImage(const ImagePtr& image, const ImagePtr&) override { return image; }
};

ImageService*& serviceInForce() {
    static NoImages none;
    static ImageService* service = &none;
    return service;
}

}  // namespace

ImageService& imageService() {
    return *serviceInForce();
}

ScopedImageService::ScopedImageService(ImageService& service)
    : previous_(std::exchange(serviceInForce(), &service)) {}

ScopedImageService::~ScopedImageService() {
    serviceInForce() = previous_;
}

}  // namespace corvane::platform
