// The string tables that are built into the library. Only the localization and its tests use this.
#pragma once

#include <span>
#include <string_view>

namespace corvane {

struct ShippedStrings {
    std::string_view language;
    std::string_view text;  ///< In the format of platform::StringTable.
};

/// One table a language. Their texts live as long as the process.
std::span<const ShippedStrings> shippedStrings();

}  // namespace corvane
