// A straight line between two points of the plane. A value.
#pragma once

#include "corvane/platform/Point.h"

namespace corvane {

///     EXLine rising({0, 0}, {2, 2});
///     EXLine::Point point;
///     rising.intersectsWithLine(EXLine({0, 2}, {2, 0}), &point)    // true; the point is (1, 1)
///     rising.intersectsWithLine(EXLine({0, 1}, {2, 3}), &point)    // false; the point is (0, 0)
class EXLine {
  public:
    using Point = platform::Point;

    EXLine() = default;
    EXLine(Point start, Point end) : start_(start), end_(end) {}

    Point start() const { return start_; }
    void setStart(Point start) { start_ = start; }
    Point end() const { return end_; }
    void setEnd(Point end) { end_ = end; }

    /// Whether the lines have a point in common, to single precision. Where one is asked for, it is
    /// set: to (0, 0) if there is none. Two lines on one straight line always count as meeting,
    /// apart or not, and the point is then the middle of this one.
    bool intersectsWithLine(const EXLine& other, Point* point = nullptr) const;

    friend bool operator==(const EXLine&, const EXLine&) = default;

  private:
    Point start_;
    Point end_;
};

}  // namespace corvane
