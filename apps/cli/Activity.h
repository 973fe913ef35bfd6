// Work of a command during which the system must not sleep or shut down.
#pragma once

#include <functional>
#include <string>

namespace corvane::cli {

/// Does the work as a background activity and returns when the process manager knows that it has
/// ended. What the work throws passes through. The reason is a text for the user.
void runInActivity(const std::string& reason, const std::function<void()>& work);

}  // namespace corvane::cli
