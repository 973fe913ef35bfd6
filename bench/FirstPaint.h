// For programs that are started to see how long that takes: writes when their window was painted
// first, and ends them.
#pragma once

#include <QApplication>
#include <QEvent>
#include <chrono>
#include <cstdio>

namespace corvane::bench {

/// On the clock that whoever started the program reads, too, in nanoseconds.
inline long long nanosecondsNow() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

class FirstPaint final : public QObject {
  public:
    FirstPaint() { qApp->installEventFilter(this); }

    /// Of any widget: one that covers its window is all that is painted of it.
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        qApp->removeEventFilter(this);
        // When the whole window is painted, with what is in it.
        QMetaObject::invokeMethod(
            this,
            [] {
                std::printf("%lld\n", nanosecondsNow());
                std::fflush(stdout);
                QApplication::exit();
            },
            Qt::QueuedConnection);
        return false;
    }
};

}  // namespace corvane::bench
