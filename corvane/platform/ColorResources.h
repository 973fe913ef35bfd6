// The seam to the application's colours, which it has under names.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/ScopedOverride.h"

#include <atomic>
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

std::atomic<ColorResources*>& resourcesInForce();

using ScopedColorResources = ScopedOverride<ColorResources, resourcesInForce>;

}  // namespace corvane::platform
