#include "corvane/toolkit/EXLine.h"

#include <cmath>
#include <limits>
#include <optional>

namespace corvane {

namespace {

using Point = EXLine::Point;

constexpr double kEpsilon = std::numeric_limits<float>::epsilon();

/// Twice the area between the vectors; 0 for parallel ones.
double cross(Point a, Point b) {
    return a.x * b.y - a.y * b.x;
}

/// False for NaN.
bool isOnLine(double position) {
    return position >= 0 && position <= 1;
}

std::optional<Point> commonPoint(const EXLine& line, const EXLine& other) {
    const Point p = line.end() - line.start();
    const Point q = other.end() - other.start();
    const Point between = line.start() - other.start();
    const double d = cross(p, q);
    const double na = cross(q, between);
    const double nb = cross(p, between);

    const bool parallel = std::abs(d) < kEpsilon;
    if (parallel && std::abs(na) < kEpsilon && std::abs(nb) < kEpsilon) {
        return Point{(line.start().x + line.end().x) / 2, (line.start().y + line.end().y) / 2};
    }
    if (parallel || !isOnLine(na / d) || !isOnLine(nb / d)) return std::nullopt;
    const double position = na / d;
    return Point{line.start().x + position * p.x, line.start().y + position * p.y};
}

}  // namespace

bool EXLine::intersectsWithLine(const EXLine& other, Point* point) const {
    const auto common = commonPoint(*this, other);
    if (point) *point = common.value_or(Point());
    return common.has_value();
}

}  // namespace corvane
