// The names under which the application keeps its backups. Constants and a function without state;
// any thread. docs/formats/backup-document.md describes what is in them.
#pragma once

#include "corvane/bridge/BackupFileType.h"

#include <string>
#include <string_view>

namespace corvane {

/// The directory of backups, among the user's files of the application.
inline constexpr std::string_view HGCorvaneBackupManagerDirectoryName = "Backups";

inline constexpr std::string_view HGCorvaneBackupManagerFilePrefix = "Corvane-Backup-";

/// The name of a backup, given what tells it from others.
///
///     backupFileName("2024-03-05")     // "Corvane-Backup-2024-03-05.cvbx"
std::string backupFileName(std::string_view distinction);

}  // namespace corvane
