// The entries of a directory with the moments of their creation.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/Instant.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::platform {

struct DirectoryEntry {
    std::string name;
    /// When the file itself came into being, however often it was written or renamed since; the
    /// last modification where the file system keeps no such time.
    Instant creationTime;

    friend bool operator==(const DirectoryEntry&, const DirectoryEntry&) = default;
};

/// All entries, of every kind and hidden ones included, in no order; links are not followed. None
/// when the directory cannot be read. What vanishes while the list is made is not in it.
std::optional<std::vector<DirectoryEntry>> listDirectory(const std::string& path,
                                                         Error* error = nullptr);

/// Oldest first; equal times in the byte order of the names.
void sortByCreationTime(std::vector<DirectoryEntry>& entries);

}  // namespace corvane::platform
