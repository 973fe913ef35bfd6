// Which file something is, whatever its name and content: for telling a file that was moved or
// written again from another one in its place.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::platform {

/// A value. Holds across restarts, on which the numbers of devices change: those are no part of it.
struct FileIdentity {
    std::uint64_t inode = 0;
    bool isDirectory = false;
    /// When the file came into being, in nanoseconds since 1970; none where the file system keeps
    /// no such time.
    std::optional<std::int64_t> birthTime;
    /// The file system's own name for the file, which no later file gets even where it takes over
    /// the inode; empty where it has none.
    Bytes handle;
};

/// The file that the path leads to, through links too.
std::optional<FileIdentity> fileIdentity(const std::string& path, Error* error = nullptr);

/// Whether both are one file, as far as both know.
bool isSameFile(const FileIdentity& a, const FileIdentity& b);

}  // namespace corvane::platform
