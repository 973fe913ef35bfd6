#include "corvane/platform/SteadyClock.h"

#include <algorithm>

namespace corvane::platform {

namespace {

constexpr double kCentury = 100 * 365.25 * 86400;

class SystemSteadyClock final : public SteadyClock {
  public:
    Time now() const override { return std::chrono::steady_clock::now(); }
};

}  // namespace

const SteadyClock& systemSteadyClock() {
    static const SystemSteadyClock system;
    return system;
}

SteadyClock::Time timeAfter(SteadyClock::Time time, double seconds) {
    if (!(seconds > 0)) return time;
    const std::chrono::duration<double> delay(std::min(seconds, kCentury));
    return time + std::chrono::duration_cast<SteadyClock::Time::duration>(delay);
}

}  // namespace corvane::platform
