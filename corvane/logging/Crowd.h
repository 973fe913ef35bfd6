// How many messages wait in a queue, and the callers who wait for that to get better. For the log
// itself; any thread.
#pragma once

#include <atomic>

namespace corvane::logging {

/// A full queue that let in one caller for each message written would switch threads for each. So
/// callers wait from the upper number of messages on until no more than the lower one is left.
class Crowd {
  public:
    Crowd(int upper, int lower) : upper_(upper), lower_(lower) {}

    /// Before a message goes into the queue. Callers that come at the same time may all pass, so
    /// the queue needs room for some more than the upper number.
    void enter() {
        while (crowded_)
            crowded_.wait(1);
        if (++count_ < upper_) return;
        crowded_ = 1;
        if (count_ <= lower_) ease();  // all have left in between, and nobody else would notice
    }

    /// When a message has left it. How many are left.
    int leave() {
        const int left = --count_;
        if (left <= lower_ && crowded_) ease();
        return left;
    }

    int count() const { return count_; }

  private:
    void ease() {
        crowded_ = 0;
        crowded_.notify_all();
    }

    const int upper_, lower_;
    std::atomic<int> count_{0};
    std::atomic<int> crowded_{0};
};

}  // namespace corvane::logging
