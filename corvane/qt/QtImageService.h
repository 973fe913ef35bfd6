// The image service on Qt's pictures. It needs no display. One thread: the one that draws.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/qt/ImageSource.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::qt {

/// Asks its sources in their order, and keeps what it found for as long as it lives: images of one
/// name share their pixels. Images outlive the service. Those of other services are left as they
/// are.
class QtImageService final : public platform::ImageService {
  public:
    explicit QtImageService(std::vector<std::shared_ptr<ImageSource>> sources);

    platform::ImagePtr imageNamed(std::string_view name) override;
    platform::ImagePtr tintedImage(const platform::ImagePtr& image,
                                   const platform::Color& color) override;
    platform::ImagePtr compositedImage(const platform::ImagePtr& image,
                                       const platform::ImagePtr& background) override;

  private:
    std::vector<std::shared_ptr<ImageSource>> sources_;
    std::map<std::string, platform::ImagePtr, std::less<>> images_;
};

}  // namespace corvane::qt
