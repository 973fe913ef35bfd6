#include "corvane/platform/ProcessActivities.h"

#include "corvane/platform/LoginActivities.h"

#include <atomic>

namespace corvane::platform {

namespace {

// Atomic, because other threads begin activities at any moment; never destroyed for the same
// reason.
std::atomic<ProcessActivities*>& activitiesInForce() {
    static std::atomic<ProcessActivities*> activities{new LoginActivities};
    return activities;
}

}  // namespace

ProcessActivities& processActivities() {
    return *activitiesInForce();
}

ScopedProcessActivities::ScopedProcessActivities(ProcessActivities& activities)
    : previous_(activitiesInForce().exchange(&activities)) {}

ScopedProcessActivities::~ScopedProcessActivities() {
    activitiesInForce() = previous_;
}

}  // namespace corvane::platform
