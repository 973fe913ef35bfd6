// A rectangle of the screen or of a window. A value.
#pragma once

namespace corvane::platform {

/// In points, from whichever corner its owner counts.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace corvane::platform
