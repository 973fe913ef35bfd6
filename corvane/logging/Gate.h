// Lets many threads through at once, until one closes it. For the log itself.
#pragma once

#include <atomic>

namespace corvane::logging {

/// Passing costs no lock and never makes the closing thread wait for threads that came later.
class Gate {
  public:
    /// Waits for as long as the gate is closed.
    void enter() {
        for (;;) {
            ++inside_;
            if (!closed_) return;
            leave();
            closed_.wait(1);
        }
    }

    void leave() {
        if (--inside_ == 0 && closed_) inside_.notify_all();
    }

    /// Returns when nobody is inside any more. REQUIRES: the caller is not, and nobody else closes.
    void close() {
        closed_ = 1;
        for (int count = inside_; count != 0; count = inside_)
            inside_.wait(count);
    }

    void open() {
        closed_ = 0;
        closed_.notify_all();
    }

  private:
    std::atomic<int> inside_{0};
    std::atomic<int> closed_{0};
};

}  // namespace corvane::logging
