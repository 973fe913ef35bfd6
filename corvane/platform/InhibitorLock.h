// A lock of the system's login service that keeps the system from sleep and shutdown.
#pragma once

#include "corvane/platform/FileDescriptor.h"

#include <chrono>
#include <string>

namespace corvane::platform {

struct Inhibition {
    enum class Outcome {
        Held,
        Unavailable,  ///< no bus, no service, or refused
        NoAnswer,     ///< the bus or the service was not done in time
    };

    Outcome outcome = Outcome::Unavailable;
    FileDescriptor lock;  ///< closing it releases the lock
};

/// Asks the service on the system bus, over a connection that ends with the call: a lock does not
/// need it, and what is kept open would have to be watched. Shutdown is blocked where the user may
/// do that, else delayed for as long as the service is set up to wait. The reason is shown to the
/// user. Any thread.
Inhibition takeInhibitorLock(const std::string& reason, std::chrono::microseconds timeout);

}  // namespace corvane::platform
