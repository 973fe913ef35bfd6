#include "corvane/platform/ColorResources.h"

#include <utility>

namespace corvane::platform {

namespace {

class NoColors final : public ColorResources {
  public:
    std::optional<Color> colorNamed(std::string_view) override { return std::nullopt; }
};

ColorResources*& resourcesInForce() {
    static NoColors none;
    static ColorResources* resources = &none;
    return resources;
}

}  // namespace

ColorResources& colorResources() {
    return *resourcesInForce();
}

ScopedColorResources::ScopedColorResources(ColorResources& resources)
    : previous_(std::exchange(resourcesInForce(), &resources)) {}

ScopedColorResources::~ScopedColorResources() {
    resourcesInForce() = previous_;
}

}  // namespace corvane::platform
