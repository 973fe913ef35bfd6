// Tells a single from a double, a triple and every further click. A value; one thread.
#pragma once

#include <QPointF>
#include <Qt>
#include <algorithm>

namespace corvane::qt {

/// Qt decides what a double click is, and tells no more than that.
class ClickCounter {
  public:
    /// The number of the press in its series: of the same button, at the same place, and each
    /// within the interval after the one before. Milliseconds of any clock that goes on.
    int pressed(bool isDoubleClick, Qt::MouseButton button, QPointF position,
                quint64 milliseconds) {
        const bool goesOn = button == button_ &&
                            milliseconds - time_ <= static_cast<quint64>(interval_) &&
                            (position - position_).manhattanLength() <= distance_;
        if (isDoubleClick) {
            count_ = goesOn ? std::max(count_ + 1, 2) : 2;
        } else {
            count_ = goesOn && count_ > 1 ? count_ + 1 : 1;
        }
        button_ = button;
        position_ = position;
        time_ = milliseconds;
        return count_;
    }

    /// That of the last press; 1 before.
    int count() const { return count_ > 0 ? count_ : 1; }

    void setInterval(int milliseconds) { interval_ = milliseconds; }
    void setDistance(int points) { distance_ = points; }

  private:
    int interval_ = 500;
    int distance_ = 5;
    int count_ = 0;
    Qt::MouseButton button_ = Qt::NoButton;
    QPointF position_;
    quint64 time_ = 0;
};

}  // namespace corvane::qt
