// Backup documents as files. Functions without state; any thread.
#pragma once

#include "corvane/platform/Error.h"

#include "apps/document/BackupDocument.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane::backup {

/// Whether the name's ending says that the file is a document: ".cvbx".
bool isBackupPath(std::string_view path);

/// None where the file cannot be read or is no document; `error` then has one line that says why,
/// for a document with the place: "tasks.cvbx:12:34: …".
std::optional<BackupDocument> loadBackupDocument(const std::string& path, platform::Error* error);

/// The same for the content of a file of that name.
std::optional<BackupDocument> parseBackupDocument(std::string_view content, const std::string& name,
                                                  platform::Error* error);

/// The whole document as text; none, with an error, for what cannot be written.
std::optional<std::string> textOfBackupDocument(const BackupDocument& document,
                                                platform::Error* error);

/// Replaces the file whole, on the disk before success is reported.
[[nodiscard]] std::optional<platform::Error> saveBackupDocument(const BackupDocument& document,
                                                                const std::string& path);

}  // namespace corvane::backup
