// The clock that waits are measured on: it never jumps when the time of day is set.
#pragma once

#include <atomic>
#include <chrono>

namespace corvane::platform {

/// Tells time since some moment in the past. Implementations must be safe to call from any thread,
/// and never go back.
class SteadyClock {
  public:
    using Time = std::chrono::steady_clock::time_point;

    virtual ~SteadyClock() = default;
    virtual Time now() const = 0;
};

const SteadyClock& systemSteadyClock();

/// The time that many seconds later. Negative numbers and NaN count as 0, and what is more than a
/// century as a century, so that no sum overflows.
SteadyClock::Time timeAfter(SteadyClock::Time time, double seconds);

/// Goes on only when it is told to; for tests.
class ManualSteadyClock final : public SteadyClock {
  public:
    Time now() const override { return now_.load(); }
    void set(Time time) { now_.store(time); }

  private:
    std::atomic<Time> now_{Time()};
};

}  // namespace corvane::platform
