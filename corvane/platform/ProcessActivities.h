// The seam to the system's activity service: work during which the system must neither sleep nor
// shut down.
#pragma once

#include "corvane/platform/ScopedOverride.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace corvane::platform {

/// Bits that say what an activity asks of the system. One that asks for neither kind of termination
/// to be disabled holds nothing back.
using ActivityOptions = std::uint64_t;
inline constexpr ActivityOptions kBackgroundActivity = 0xFF;
inline constexpr ActivityOptions kSuddenTerminationDisabled = 0x4000;
inline constexpr ActivityOptions kAutomaticTerminationDisabled = 0x8000;

/// An activity that has begun. It ends with end() or with the last holder of this object, whichever
/// comes first; ending again does nothing. Any thread.
class ProcessActivity {
  public:
    virtual ~ProcessActivity() = default;
    virtual void end() = 0;
};

/// Implementations must be safe to call from any thread, and must not wait for long: that the
/// system cannot be held back is no reason not to do the work.
class ProcessActivities {
  public:
    virtual ~ProcessActivities() = default;

    /// Never null. The reason is a text for the user.
    virtual std::shared_ptr<ProcessActivity> beginActivity(ActivityOptions options,
                                                           const std::string& reason) = 0;
};

/// The service in force: LoginActivities, unless ScopedProcessActivities stand in for it. Any
/// thread.
ProcessActivities& processActivities();

std::atomic<ProcessActivities*>& activitiesInForce();

/// For tests.
using ScopedProcessActivities = ScopedOverride<ProcessActivities, activitiesInForce>;

}  // namespace corvane::platform
