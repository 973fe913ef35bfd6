// Changing a document that the main application keeps.
#pragma once

#include "apps/document/BackupDocument.h"

#include <functional>
#include <string>

namespace corvane::cli {

/// Reads the document, lets it be changed and, where the change says that there is one, saves it
/// and publishes it again if there is a container. Holds both meanwhile. Throws a Failure where the
/// file is no document or cannot be saved.
void changeDocument(const std::string& file,
                    const std::function<bool(backup::BackupDocument&)>& change);

/// Completes a task, and prints so. False where it was completed before. Throws a Failure where the
/// document has no such task.
bool completeTask(backup::BackupDocument& document, const backup::URL& uri);

/// A moment as a document can hold it.
backup::Instant nowInSeconds();

}  // namespace corvane::cli
