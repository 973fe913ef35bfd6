// Finding a file that was moved or whose directory was renamed.
#pragma once

#include "corvane/platform/FileIdentity.h"

#include <optional>
#include <string>

namespace corvane::platform {

/// Where the file is now that once was at the absolute path `formerPath`: first in what is left of
/// its directories and below, then in and below the one above those, and so on outwards. Links are
/// not followed, other file systems not entered, and what cannot be read is passed over. None after
/// 20,000 entries, which are some hundredths of a second.
std::optional<std::string> findNearby(const std::string& formerPath, const FileIdentity& file);

}  // namespace corvane::platform
