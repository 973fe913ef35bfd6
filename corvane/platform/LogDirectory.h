// Where the programs of this family keep their log files.
#pragma once

#include "corvane/platform/URL.h"

#include <optional>
#include <string>

namespace corvane::platform {

/// The directory, looked for anew on every call, in this order:
/// 1. the override in force;
/// 2. the environment variable CORVANE_LOG_DIRECTORY, unless empty;
/// 3. corvane/log in $XDG_STATE_HOME where that is an absolute path, else in ~/.local/state.
/// A relative path counts from the working directory. Whoever writes a log makes the directory.
/// None where the path is empty, or for a user without a home directory.
std::optional<URL> logDirectoryURL();

/// Puts a directory in force; none lifts it. To be called before other threads ask for it.
void setLogDirectoryOverride(std::optional<std::string> path);

/// Puts an override in force for as long as it lives; for tests, on one thread. Scopes nest.
class ScopedLogDirectory {
  public:
    explicit ScopedLogDirectory(std::optional<std::string> path);
    ~ScopedLogDirectory();
    ScopedLogDirectory(const ScopedLogDirectory&) = delete;
    ScopedLogDirectory& operator=(const ScopedLogDirectory&) = delete;

  private:
    std::optional<std::string> previous_;
};

}  // namespace corvane::platform
