#include "corvane/platform/Image.h"

namespace corvane::platform {

namespace {

class NoImages final : public ImageService {
  public:
    ImagePtr imageNamed(std::string_view) override { return nullptr; }
    ImagePtr tintedImage(const ImagePtr& image, const Color&) override { return image; }
    ImagePtr compositedImage(const ImagePtr& image, const ImagePtr&) override { return image; }
};

}  // namespace

std::atomic<ImageService*>& serviceInForce() {
    static NoImages none;
    static std::atomic<ImageService*> service{&none};
    return service;
}

ImageService& imageService() {
    return *serviceInForce();
}

}  // namespace corvane::platform
