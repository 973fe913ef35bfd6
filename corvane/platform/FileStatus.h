// What the file system says of an entry, at the moment of asking.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::platform {

/// A value.
struct FileStatus {
    bool isRegularFile = false;
    std::int64_t size = 0;           ///< in bytes
    std::optional<Instant> created;  ///< none where the file system keeps no such time
    Instant modified;                ///< of the content
};

/// Of the entry itself, where it is a link. None where there is no such entry or it cannot be asked
/// for.
std::optional<FileStatus> fileStatus(const std::string& path, Error* error = nullptr);

}  // namespace corvane::platform
