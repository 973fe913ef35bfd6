// Activities held through the inhibitor locks of the session's login service, where there is one.
#pragma once

#include "corvane/platform/ProcessActivities.h"
#include "corvane/platform/SteadyClock.h"

#include <chrono>
#include <mutex>
#include <optional>

namespace corvane::platform {

/// Each activity has a lock of its own, which the service takes back when the activity ends, even
/// where the process is killed. Without the service, or where it refuses, activities are plain
/// tokens and the work goes on unheld. The console is told once which of the two it is
/// ("==> INFO: …"), when the first activity begins, and once where locks are lost later
/// ("WARNING: …"). Any thread.
class LoginActivities final : public ProcessActivities {
  public:
    /// Beginning an activity takes no longer than the timeout. After a service that did not answer
    /// in time, there are plain tokens for a minute of the clock, which must outlive this object.
    explicit LoginActivities(std::chrono::microseconds timeout = std::chrono::seconds(1),
                             const SteadyClock& clock = systemSteadyClock());

    std::shared_ptr<ProcessActivity> beginActivity(ActivityOptions options,
                                                   const std::string& reason) override;

  private:
    bool isPaused() const;
    void pause();
    void tell(bool held);

    const std::chrono::microseconds timeout_;
    const SteadyClock& clock_;
    mutable std::mutex mutex_;
    std::optional<SteadyClock::Time> pausedUntil_;
    std::optional<bool> told_;  ///< whether the console believes that activities are held
};

}  // namespace corvane::platform
