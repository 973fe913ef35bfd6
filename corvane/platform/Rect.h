// A rectangle of the screen, of a window or of a view. A value.
#pragma once

#include "corvane/platform/Point.h"
#include "corvane/platform/Size.h"

namespace corvane::platform {

/// In points, from whichever corner its owner counts.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    constexpr Point origin() const { return {x, y}; }
    constexpr Size size() const { return {width, height}; }
    constexpr double right() const { return x + width; }
    constexpr double bottom() const { return y + height; }
    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }

    /// The left and the upper edge belong to the rectangle, the right and the lower one do not: of
    /// rectangles side by side, one has each point.
    constexpr bool contains(Point point) const {
        return point.x >= x && point.x < right() && point.y >= y && point.y < bottom();
    }
    constexpr bool intersects(const Rect& other) const {
        return x < other.right() && other.x < right() && y < other.bottom() && other.y < bottom();
    }
    constexpr Rect movedBy(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
    /// Smaller by the amount on each side; larger where it is negative.
    constexpr Rect insetBy(double dx, double dy) const {
        return {x + dx, y + dy, width - 2 * dx, height - 2 * dy};
    }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace corvane::platform
