// An image service whose images tell how they were made: "email-t*white over category-base-t*red".
#pragma once

#include "corvane/platform/Image.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace corvane::tests {

struct DescribedImage final : platform::Image {
    explicit DescribedImage(std::string text) : description(std::move(text)) {}
    platform::Size size() const override { return {24, 24}; }

    std::string description;
};

inline std::string descriptionOf(const platform::ImagePtr& image) {
    auto* ours = dynamic_cast<const DescribedImage*>(image.get());
    return ours ? ours->description : "none";
}

class RecordingImageService final : public platform::ImageService {
  public:
    /// How a color is called; "?" by default.
    std::function<std::string(const platform::Color&)> nameOfColor;
    std::set<std::string, std::less<>> missing;
    std::vector<std::string> asked;

    platform::ImagePtr imageNamed(std::string_view name) override {
        asked.emplace_back(name);
        if (missing.contains(name)) return nullptr;
        return std::make_shared<DescribedImage>(std::string(name));
    }

    platform::ImagePtr tintedImage(const platform::ImagePtr& image,
                                   const platform::Color& color) override {
        return std::make_shared<DescribedImage>(descriptionOf(image) + "*" +
                                                (nameOfColor ? nameOfColor(color) : "?"));
    }

    platform::ImagePtr compositedImage(const platform::ImagePtr& image,
                                       const platform::ImagePtr& background) override {
        return std::make_shared<DescribedImage>(descriptionOf(image) + " over " +
                                                descriptionOf(background));
    }

  private:
    platform::ScopedImageService scope_{*this};
};

}  // namespace corvane::tests
