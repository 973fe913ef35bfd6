// A width and a height. A value.
#pragma once

namespace corvane::platform {

/// In points.
struct Size {
    double width = 0;
    double height = 0;

    friend constexpr bool operator==(const Size&, const Size&) = default;
};

}  // namespace corvane::platform
