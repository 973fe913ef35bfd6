// A named bundle of colors and a font. Held by shared pointers; the user-interface thread builds
// and changes it.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/Font.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Nothing is set at first, and whatever is not set is left to the one who draws.
struct EXStyle {
    std::optional<std::string> name;
    std::optional<platform::Color> backgroundColor;
    std::optional<platform::Color> color;
    std::optional<platform::Color> highlightedColor;
    std::optional<views::Font> font;
    std::optional<platform::Color> tintColor;

    /// That of the default collection; null where there is none.
    static std::shared_ptr<EXStyle> styleNamed(std::string_view name);
};

}  // namespace corvane
