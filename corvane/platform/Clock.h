// The seam through which everything asks for the present moment.
#pragma once

#include "corvane/platform/Instant.h"
#include "corvane/platform/ScopedOverride.h"

#include <atomic>

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

std::atomic<const Clock*>& clockInForce();

/// For tests, and for programs that answer as if it were another day.
using ScopedClock = ScopedOverride<const Clock, clockInForce>;

}  // namespace corvane::platform
