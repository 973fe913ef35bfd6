// Running a callback for whose result nobody waits. Any thread.
#pragma once

#include <functional>
#include <string_view>

namespace corvane::platform {

/// Runs the call. What it throws has nobody to go to, and must not keep other calls from running:
/// it becomes a line on the console, "ERROR: a call of '<whose>' threw: <what>".
void runGuarded(std::string_view whose, const std::function<void()>& call);

}  // namespace corvane::platform
