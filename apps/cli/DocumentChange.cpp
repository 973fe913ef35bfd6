#include "apps/cli/DocumentChange.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/Files.h"

#include "apps/cli/Activity.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Publisher.h"
#include "apps/cli/RecordsByName.h"
#include "apps/cli/Recurrence.h"
#include "apps/cli/TaskCodes.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace corvane::cli {

namespace {

/// Where the document is published to; none where there is nobody to publish for.
std::optional<std::string> containerInUse() {
    std::string path = containerPath();
    return platform::isDirectory(path) ? std::optional(path) : std::nullopt;
}

}  // namespace

void changeDocument(const std::string& file, const DocumentChange& change) {
    platform::Error error;
    const auto path = platform::resolvedPath(file, &error);
    if (!path) throw Failure(error);
    const auto container = containerInUse();
    std::vector<std::string> directories{directoryOf(*path)};
    if (container) directories.push_back(*container);
    const auto locks = lockDirectories(std::move(directories));
    runInActivity("Changing the tasks", [&] {
        auto document = backup::loadBackupDocument(*path, &error);
        if (!document) throw Failure(error);
        const auto report = change(*document);
        if (!report) return;
        failOn(backup::saveBackupDocument(*document, *path));
        print(*report);
        if (container) publishAgain(*document);
    });
}

std::optional<std::string> completeTask(backup::BackupDocument& document, const backup::URL& uri) {
    auto task = std::find_if(document.tasks.begin(), document.tasks.end(),
                             [&](const auto& candidate) { return candidate.uri == uri; });
    if (task == document.tasks.end()) {
        throw Failure(fmt::format("there is no task '{}'", uri.absoluteString()));
    }
    const std::string title = onOneLine(task->titleRaw.value_or(""));
    if (task->statusRaw == kCompletedStatus) {
        print(fmt::format("'{}' was completed before\n", title));
        return std::nullopt;
    }
    task->statusRaw = kCompletedStatus;
    task->statusChanged = task->userModified = nowInSeconds();
    if (task->repeatRaw.value_or(0) != 0 && !task->dueRaw) {
        platform::currentConsole().writeLine(fmt::format(
            "corvane: '{}' repeats, but without a due day it does not come again", title));
    }
    std::string report = fmt::format("Completed '{}'\n", title);
    if (const auto due = nextDueDay(*task)) {
        const backup::Task again = taskAgain(*task, *due);
        report += fmt::format("It is due again on {}: {}\n", due->isoString(),
                              again.uri.absoluteString());
        // A task that was reopened, and is completed a second time, came again the first time.
        if (!RecordsByName(document).knows(again.uri)) document.tasks.insert(task + 1, again);
    }
    return report;
}

backup::Instant nowInSeconds() {
    return std::chrono::floor<std::chrono::seconds>(platform::currentClock().now());
}

}  // namespace corvane::cli
