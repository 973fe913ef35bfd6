// A place on the screen, or in a view. A value.
#pragma once

namespace corvane::platform {

/// In points, from whichever corner its owner counts.
struct Point {
    double x = 0;
    double y = 0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
    friend constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
};

}  // namespace corvane::platform
