// The seam to the cloud that the application keeps its data in. There is none unless the
// application brings one.
#pragma once

#include "corvane/platform/Value.h"

#include <functional>

namespace corvane::platform {

/// Tells the environment that the identifier of the cloud's container names: a number, or whatever
/// else the cloud has to say. Called on any thread.
using CloudContainerEnvironment = std::function<Value()>;

/// Sets how the environment is found out; none lifts it. Any thread.
void setCloudContainerEnvironment(CloudContainerEnvironment environment);

/// Null where nothing is set, and where the function throws, which it must not (a line on the
/// console says so). Any thread.
Value cloudContainerEnvironment();

}  // namespace corvane::platform
