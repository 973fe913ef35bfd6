// Changing a document that the main application keeps.
#pragma once

#include "apps/document/BackupDocument.h"

#include <functional>
#include <optional>
#include <string>

namespace corvane::cli {

/// Changes a document, and gives what to print once that is saved; none where there is nothing to
/// save.
using DocumentChange = std::function<std::optional<std::string>(backup::BackupDocument&)>;

/// Reads the document, lets it be changed, saves it and publishes it again if there is a container.
/// Holds both meanwhile. Throws a Failure where the file is no document or cannot be saved.
void changeDocument(const std::string& file, const DocumentChange& change);

/// Completes a task, unless it was completed before. A repeating one comes again as another task,
/// right behind it. Throws a Failure where the document has no such task.
std::optional<std::string> completeTask(backup::BackupDocument& document, const backup::URL& uri);

/// A moment as a document can hold it.
backup::Instant nowInSeconds();

}  // namespace corvane::cli
