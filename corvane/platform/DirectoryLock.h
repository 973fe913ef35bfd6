// An exclusive hold on a directory among the programs (and threads) that ask for one, so that two
// of them never work through it at once. It keeps nobody else from the directory.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/FileDescriptor.h"

#include <optional>
#include <string>

namespace corvane::platform {

/// Held from acquire() to the end of the object, or of the process, however it ends. Movable.
class DirectoryLock {
  public:
    /// Waits for as long as another holder lives. None when the directory cannot be opened or its
    /// file system knows no such locks; `error`, where given, then tells why.
    static std::optional<DirectoryLock> acquire(const std::string& path, Error* error = nullptr);

  private:
    explicit DirectoryLock(FileDescriptor directory) : directory_(std::move(directory)) {}

    FileDescriptor directory_;
};

}  // namespace corvane::platform
