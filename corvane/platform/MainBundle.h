// Where the program's own files lie.
#pragma once

#include <optional>
#include <string>

namespace corvane::platform {

/// The override in force, else the directory of the executable; none where the system does not tell
/// it.
std::optional<std::string> mainBundleDirectory();

/// Puts a directory in force for as long as it lives; for tests, and for programs that are started
/// by way of another one. On one thread, before others ask. Scopes nest.
class ScopedMainBundle {
  public:
    explicit ScopedMainBundle(std::string directory);
    ~ScopedMainBundle();
    ScopedMainBundle(const ScopedMainBundle&) = delete;
    ScopedMainBundle& operator=(const ScopedMainBundle&) = delete;

  private:
    std::optional<std::string> previous_;
};

}  // namespace corvane::platform
