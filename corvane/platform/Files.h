// Plain operations on files and directories by path. Functions without state; call them from any
// thread. Where an error is returned, none means success.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"

#include <sys/types.h>

#include <optional>
#include <string>

namespace corvane::platform {

/// The whole content of a regular file; none where MappedFile::open gives none.
std::optional<Bytes> readFile(const std::string& path, Error* error = nullptr);
std::optional<std::string> readTextFile(const std::string& path, Error* error = nullptr);

/// Removes an entry of any kind, a directory with everything in it. A link is removed itself and
/// what it leads to stays. A missing entry is an error (ENOENT).
[[nodiscard]] std::optional<Error> removeFile(const std::string& path);

/// Makes one directory, whose parent must exist. A directory that stands there already is success.
/// `permissions` are reduced by the umask.
[[nodiscard]] std::optional<Error> createDirectory(const std::string& path,
                                                   mode_t permissions = 0777);

/// The same with the missing parents, which get the same permissions.
[[nodiscard]] std::optional<Error> createDirectories(const std::string& path,
                                                     mode_t permissions = 0777);

/// Why the directory's entries cannot be listed, or none made or removed; none where all can.
[[nodiscard]] std::optional<Error> checkDirectoryAccess(const std::string& path);

/// Whether the path leads to a directory, through links too.
bool isDirectory(const std::string& path);

}  // namespace corvane::platform
