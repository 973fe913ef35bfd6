#include "corvane/platform/Clock.h"

namespace corvane::platform {

namespace {

class SystemClock final : public Clock {
  public:
    Instant now() const override {
        return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
    }
};

}  // namespace

std::atomic<const Clock*>& clockInForce() {
    // Never destroyed: objects that end after everything else may still ask.
    static std::atomic<const Clock*> clock{new SystemClock};
    return clock;
}

const Clock& currentClock() {
    return *clockInForce();
}

}  // namespace corvane::platform
