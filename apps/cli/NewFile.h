// A file that a command is to make.
#pragma once

#include "corvane/platform/DirectoryLock.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::cli {

/// Holds the file's directory against other commands that write there, for as long as it lives.
class NewFile {
  public:
    /// Throws a Failure where the file is there and must not be replaced, or its directory is not.
    /// Holds the other directory, if one is named, as well.
    NewFile(const std::string& name, bool replaces,
            const std::optional<std::string>& otherDirectory = std::nullopt);

    /// Absolute, with every link followed.
    const std::string& path() const { return path_; }

  private:
    std::string path_;
    std::vector<platform::DirectoryLock> locks_;
};

}  // namespace corvane::cli
