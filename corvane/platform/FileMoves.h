// The single steps of exchanging a file, for programs whose own order of steps matters to them;
// all others call replaceFile. Functions without state; call them from any thread.
#pragma once

#include "corvane/platform/Error.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace corvane::platform {

/// The absolute path of the entry with every link on the way followed, the entry itself included.
/// The entry need not exist, its directory must; a link that leads nowhere is the entry itself.
std::optional<std::string> resolvedPath(const std::string& path, Error* error = nullptr);

/// Writes a file on the disk in place, with the permission bits of the one at `model` (where that
/// is missing, those of any new file). For a file that nobody trusts before it is complete, such as
/// one that is to be moved then: a failure leaves half of it.
[[nodiscard]] std::optional<Error> writeFileLike(const std::string& model, const std::string& path,
                                                 std::span<const std::byte> content);

/// Gives the file at `from` the name `to`, in the place of a file there, in one step. Both names
/// are in one directory, which is on the disk before success is reported.
[[nodiscard]] std::optional<Error> moveFile(const std::string& from, const std::string& to);

/// Puts on the disk which entries the directory has. Success where its file system cannot.
[[nodiscard]] std::optional<Error> syncDirectory(const std::string& path);

}  // namespace corvane::platform
