// Where the process may leave files that are wanted for a while only.
#pragma once

#include <optional>
#include <string>

namespace corvane::platform {

/// A directory of the user's own: $TMPDIR where that is an absolute path, else /tmp, and in it
/// "corvane-" with the user's number where others may write there too. Whoever may do that could
/// put a link where a file is about to be written. Asked for anew on every call; any thread.
///
/// None where there is no such directory, and none can be made.
std::optional<std::string> temporaryDirectory();

/// Puts a directory in the place of $TMPDIR for as long as it lives; for tests, on one thread.
/// Scopes nest.
class ScopedTemporaryDirectory {
  public:
    explicit ScopedTemporaryDirectory(std::string path);
    ~ScopedTemporaryDirectory();
    ScopedTemporaryDirectory(const ScopedTemporaryDirectory&) = delete;
    ScopedTemporaryDirectory& operator=(const ScopedTemporaryDirectory&) = delete;

  private:
    std::string path_;
    const std::string* previous_;
};

}  // namespace corvane::platform
