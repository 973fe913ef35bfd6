// Copying a file so that no reader ever sees half of the copy. A function without state; call it
// from any thread.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/FileReplacement.h"

#include <optional>
#include <string>

namespace corvane::platform {

/// Makes `to` a regular file with the content of the one at `from` (a link there is followed); none
/// means success. A regular file at `to` is replaced in one step and stays on an error, even where
/// both are the same file. Anything else there is removed first, a directory with all in it.
[[nodiscard]] std::optional<Error> copyFile(const std::string& from, const std::string& to,
                                            Durability durability);

}  // namespace corvane::platform
