#include "corvane/platform/LoginActivities.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/InhibitorLock.h"

#include <utility>

namespace corvane::platform {

namespace {

constexpr double kPauseAfterNoAnswer = 60;

/// Holds a lock, or nothing.
class Activity final : public ProcessActivity {
  public:
    explicit Activity(FileDescriptor lock) : lock_(std::move(lock)) {}

    void end() override {
        std::lock_guard guard(mutex_);
        [[maybe_unused]] const FileDescriptor released = std::move(lock_);
    }

  private:
    std::mutex mutex_;
    FileDescriptor lock_;
};

}  // namespace

LoginActivities::LoginActivities(std::chrono::microseconds timeout, const SteadyClock& clock)
    : timeout_(timeout), clock_(clock) {}

std::shared_ptr<ProcessActivity> LoginActivities::beginActivity(ActivityOptions options,
                                                                const std::string& reason) {
    const bool holds = options & (kSuddenTerminationDisabled | kAutomaticTerminationDisabled);
    Inhibition inhibition;
    if (holds && !isPaused()) {
        inhibition = takeInhibitorLock(reason, timeout_);
        if (inhibition.outcome == Inhibition::Outcome::NoAnswer) pause();
        tell(inhibition.outcome == Inhibition::Outcome::Held);
    }
    return std::make_shared<Activity>(std::move(inhibition.lock));
}

bool LoginActivities::isPaused() const {
    std::lock_guard lock(mutex_);
    return pausedUntil_ && clock_.now() < *pausedUntil_;
}

void LoginActivities::pause() {
    std::lock_guard lock(mutex_);
    pausedUntil_ = timeAfter(clock_.now(), kPauseAfterNoAnswer);
}

void LoginActivities::tell(bool held) {
    std::unique_lock lock(mutex_);
    const auto before = told_;
    if (before && (!*before || held)) return;
    told_ = held;
    lock.unlock();
    if (held)
        currentConsole().writeLine("==> INFO: activities hold the system from sleep and shutdown");
    else if (before)
        currentConsole().writeLine("WARNING: the system can no longer be held during activities");
    else
        currentConsole().writeLine("==> INFO: the system cannot be held during activities");
}

}  // namespace corvane::platform
