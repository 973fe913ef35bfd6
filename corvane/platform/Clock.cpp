#include "corvane/platform/Clock.h"

#include <utility>

namespace corvane::platform {

namespace {

class SystemClock final : public Clock {
  public:
    Instant now() const override {
        return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    }
};

const Clock*& clockInForce() {
    // Never destroyed: objects that end after everything else may still ask.
    static const Clock* clock = new SystemClock;
    return clock;
}

}  // namespace

const Clock& currentClock() {
    return *clockInForce();
}

ScopedClock::ScopedClock(const Clock& clock) : previous_(std::exchange(clockInForce(), &clock)) {}

ScopedClock::~ScopedClock() {
    clockInForce() = previous_;
}

}  // namespace corvane::platform
