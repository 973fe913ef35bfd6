// The seam to the application's colours, which it has under names.
#pragma once

#include "corvane/platform/Color.h"

#include <optional>
#include <string_view>

namespace corvane::platform {

/// One thread: the one that draws.
class ColorResources {
  public:
    virtual ~ColorResources() = default;
    virtual std::optional<Color> colorNamed(std::string_view name) = 0;  ///< none: unknown
};

/// The resources in force; a process without them has no colours (every name is unknown).
ColorResources& colorResources();

/// Puts resources in force for as long as it lives. They must outlive it. Scopes nest, on one
/// thread.
class ScopedColorResources {
  public:
    explicit ScopedColorResources(ColorResources& resources);
    ~ScopedColorResources();
    ScopedColorResources(const ScopedColorResources&) = delete;
    ScopedColorResources& operator=(const ScopedColorResources&) = delete;

  private:
    ColorResources* previous_;
};

}  // namespace corvane::platform
