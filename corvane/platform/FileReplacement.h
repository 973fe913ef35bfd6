// Writing a file by putting a new one in its place, so that no reader ever sees half of it and a
// failure leaves the old content. Functions without state; call them from any thread.
#pragma once

#include "corvane/platform/ByteSink.h"
#include "corvane/platform/Error.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace corvane::platform {

enum class Durability {
    Rename,  ///< Whole for every reader; a power cut may bring the old content back.
    Synced,  ///< On the disk, together with its name, before success is reported.
};

/// Makes `content` the whole content of the file at `path`; none means success.
///
/// The content is prepared as a file without a name, which a killed process takes with it. It then
/// gets its name in one step: directly where `path` is free, else by a rename from a hidden name in
/// `stagingDirectory` (default: the file's own directory). Name one on the same file system where
/// other processes list the file's directory. File systems without nameless files get a hidden
/// name there from the start.
///
/// A new file has the permissions 0666 less the umask, a replaced one keeps its permission bits.
/// A link at `path` stays and the file it leads to is replaced; one that leads nowhere is itself
/// replaced. Anything else that is not a regular file is refused.
///
/// On an error the old file is untouched and nothing is left behind, with one exception: Synced
/// may find only after the exchange that the directory cannot be written to the disk.
[[nodiscard]] std::optional<Error> replaceFile(
    const std::string& path, std::span<const std::byte> content, Durability durability,
    const std::optional<std::string>& stagingDirectory = std::nullopt);

/// The same for a content that is made while it is written. Its writer runs at least once, and
/// again where a nameless file could be written but not named.
[[nodiscard]] std::optional<Error> replaceFileInPieces(
    const std::string& path, const ContentWriter& content, Durability durability,
    const std::optional<std::string>& stagingDirectory = std::nullopt);

/// The same without nameless files: what replaceFile resorts to where there are none.
[[nodiscard]] std::optional<Error> replaceFileThroughHiddenName(
    const std::string& path, std::span<const std::byte> content, Durability durability,
    const std::optional<std::string>& stagingDirectory = std::nullopt);

/// Removes what killed processes left under hidden names in a staging directory: the files that are
/// older than ten minutes and whose process does not live. The age spares those of a process that
/// this one cannot see, such as one in a container. What cannot be removed stays.
void removeAbandonedFiles(const std::string& stagingDirectory);

}  // namespace corvane::platform
