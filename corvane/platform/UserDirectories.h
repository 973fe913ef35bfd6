// Where the user's own files belong by the environment, and the environment's variables. Functions
// without state, for the seams of this layer; any thread, as long as none changes the environment.
#pragma once

#include "corvane/platform/URL.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// None where the variable is not set or empty, which mean the same to all those asked for here.
std::optional<std::string> environmentVariable(const char* name);

/// The variable's value where it is an absolute path, else `belowHome` in the home directory; none
/// for a user without one.
///
///     userDirectory("XDG_STATE_HOME", ".local/state")  // "/home/ann/.local/state"
std::optional<std::string> userDirectory(const char* variable, std::string_view belowHome);

/// The file URL of a path, which counts from the working directory where it is relative.
std::optional<URL> fileURLFromWorkingDirectory(const std::string& path);

}  // namespace corvane::platform
