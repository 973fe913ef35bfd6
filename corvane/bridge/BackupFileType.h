// How backup documents are known to the system. Other programs know these: they must not change.
#pragma once

#include <string_view>

namespace corvane {

/// The type identifier of a backup document.
inline constexpr std::string_view HGCorvaneBackupManagerFileUTI = "org.corvane.backup";

/// Without its dot.
inline constexpr std::string_view HGCorvaneBackupManagerFileExtension = "cvbx";

}  // namespace corvane
