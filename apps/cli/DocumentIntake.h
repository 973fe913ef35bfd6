// Queued tasks on their way into a document.
#pragma once

#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/platform/Error.h"

#include "apps/cli/TaskFormat.h"
#include "apps/document/BackupDocument.h"

#include <span>
#include <string>

namespace corvane::cli {

/// An entry is a small document of its own: a task, with the records that it refers to by name.
Intake documentIntakeOf(const HGInsertQueue::Batch& batch,
                        const GeneralProjectNames& generalProjectNames);

/// Adds the tasks of the entries, but none that is there. What they refer to is found by name, or
/// made. False for an entry that cannot be read.
bool addEntries(backup::BackupDocument& document, std::span<const std::string> entries,
                platform::Error& error);

/// The task of an entry as a line of a list.
std::string shownDocumentEntry(const std::string& entry);

}  // namespace corvane::cli
