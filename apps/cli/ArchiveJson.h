// Any keyed archive as JSON, whatever classes it names. docs/cli.md tells the form.
#pragma once

#include "corvane/platform/Value.h"

#include <cstddef>
#include <optional>
#include <string>

namespace corvane::cli {

/// The document for the root of an archive that was read with ArchivedRecord::anyClass(). What the
/// archive holds once stands in it once, and is referred to by number elsewhere.
///
/// None where it would nevertheless be out of proportion to the archive, which is `archiveSize`
/// bytes long: only a file made for that purpose repeats a name of its classes or keys so often.
std::optional<std::string> archiveJson(const platform::Value& root, std::size_t archiveSize);

}  // namespace corvane::cli
