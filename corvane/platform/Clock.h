// The seam through which everything asks for the present moment.
#pragma once

#include "corvane/platform/Instant.h"

namespace corvane::platform {

/// Tells the present moment. Implementations must be safe to call from any thread.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual Instant now() const = 0;
};

/// The clock in force: the system's, unless a ScopedClock stands in for it.
const Clock& currentClock();

/// A clock that shows what it was set to.
class FixedClock final : public Clock {
  public:
    explicit FixedClock(Instant instant) : instant_(instant) {}
    Instant now() const override { return instant_; }
    void set(Instant instant) { instant_ = instant; }

  private:
    Instant instant_;
};

/// Puts a clock in force for as long as it lives; for tests, and for programs that answer as if it
/// were another day. On one thread. The clock must outlive it. Scopes nest.
class ScopedClock {
  public:
    explicit ScopedClock(const Clock& clock);
    ~ScopedClock();
    ScopedClock(const ScopedClock&) = delete;
    ScopedClock& operator=(const ScopedClock&) = delete;

  private:
    const Clock* previous_;
};

}  // namespace corvane::platform
