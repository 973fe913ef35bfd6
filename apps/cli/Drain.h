// The main application's side of the queue: what companions queued gets into a list.
#pragma once

#include "apps/cli/DrainJournal.h"

#include <string>
#include <vector>

namespace corvane::cli {

/// Entries that were put into the list; for one of todo.txt, its lines.
struct Drained {
    std::vector<std::string> completed;  ///< for a drain that was killed
    std::vector<std::string> added;
};

/// Moves every queued task of the default container into the list at a resolved path. What a list
/// cannot hold, and files of the queue without a task, are reported on the console and dropped. The
/// caller holds the container and the list's directory.
///
/// Throws a Failure where something cannot be written; no task is lost, and none comes twice.
Drained drainQueue(const std::string& list, DrainJournal::StepHook afterStep = {});

}  // namespace corvane::cli
