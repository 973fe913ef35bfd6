// Where the directory is that the programs of one application group share.
#pragma once

#include "corvane/platform/URL.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// The shared directory of the group, looked for anew on every call, in this order:
/// 1. the override in force;
/// 2. the environment variable CORVANE_CONTAINER, unless empty;
/// 3. <identifier> in $XDG_DATA_HOME where that is an absolute path, else in ~/.local/share.
/// The first two are taken as they stand (a relative path from the working directory) and are never
/// created. The third is created when missing, readable by the user alone.
///
/// None when the user has no home directory, when the directory cannot be created, or when the
/// identifier cannot be the name of one.
std::optional<URL> containerURLForSecurityApplicationGroupIdentifier(std::string_view identifier);

/// Puts a directory in force for every group; none lifts it. To be called before other threads
/// ask for the container.
void setGroupContainerOverride(std::optional<std::string> path);

/// Puts an override in force for as long as it lives; for tests, and for programs that play two
/// devices. On one thread. Scopes nest.
class ScopedGroupContainer {
  public:
    explicit ScopedGroupContainer(std::optional<std::string> path);
    ~ScopedGroupContainer();
    ScopedGroupContainer(const ScopedGroupContainer&) = delete;
    ScopedGroupContainer& operator=(const ScopedGroupContainer&) = delete;

  private:
    std::optional<std::string> previous_;
};

}  // namespace corvane::platform
