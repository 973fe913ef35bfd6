// A task that a companion queued, as the line that the list gets for it.
#pragma once

#include "corvane/bridge/HGTaskProxy.h"

#include "apps/cli/TodoLine.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace corvane::cli {

using GeneralProjectNames = std::set<std::string, std::less<>>;

struct QueuedTask {
    TodoLine line;
    /// What of the task a line has no place for, each in a few words.
    std::vector<std::string> lost;
};

/// Names in `generalProjectNames` mean that the task is in no project.
QueuedTask queuedTaskOf(const HGTaskProxy& task, const GeneralProjectNames& generalProjectNames);

}  // namespace corvane::cli
