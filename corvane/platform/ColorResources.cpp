#include "corvane/platform/ColorResources.h"

namespace corvane::platform {

namespace {

class NoColors final : public ColorResources {
  public:
    std::optional<Color> colorNamed(std::string_view) override { return std::nullopt; }
};

}  // namespace

std::atomic<ColorResources*>& resourcesInForce() {
    static NoColors none;
    static std::atomic<ColorResources*> resources{&none};
    return resources;
}

ColorResources& colorResources() {
    return *resourcesInForce();
}

}  // namespace corvane::platform
