#include "corvane/platform/ProcessActivities.h"

#include "corvane/platform/LoginActivities.h"

#include <atomic>

namespace corvane::platform {

namespace {

// Atomic, because other threads begin activities at any moment; never destroyed for the same
// reason.
}  // namespace

std::atomic<ProcessActivities*>& activitiesInForce() {
    static std::atomic<ProcessActivities*> activities{new LoginActivities};
    return activities;
}

ProcessActivities& processActivities() {
    return *activitiesInForce();
}

}  // namespace corvane::platform
