#include "corvane/logging/Log.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"

#include "apps/cli/Activity.h"
#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Drain.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Publisher.h"
#include "apps/cli/TaskFormat.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <cerrno>
#include <span>

namespace corvane::cli {

namespace {

void printAdded(std::string_view heading, const std::vector<std::string>& lines,
                const std::string& file) {
    if (lines.empty()) return;
    print(fmt::format("{} {} to {}\n", heading, counted(lines.size(), "task"), file));
    const TaskFormat& format = TaskFormat::of(file);
    for (const std::string& line : lines)
        print(fmt::format("  {}\n", onOneLine(format.shownEntry(line))));
}

void makeList(const std::string& path) {
    platform::Error error;
    if (platform::readTextFile(path, &error)) return;
    if (error.code != ENOENT) throw Failure(error);
    const std::string content = TaskFormat::of(path).emptyContent();
    failOn(platform::replaceFile(path, std::as_bytes(std::span(content)),
                                 platform::Durability::Synced));
    print(fmt::format("Made the list {}\n", path));
}

/// Puts the queued tasks into the list at a resolved path, which the user knows as `file`.
void drainInto(const std::string& path, const std::string& file) {
    prepareQueue();
    makeList(path);

    const Drained drained = drainQueue(path);
    printAdded("Completed a drain that was interrupted: added", drained.completed, file);
    printAdded("Added", drained.added, file);
    if (drained.added.empty() && drained.completed.empty()) print("The queue was empty\n");

    publishAgain(readTasks(path, file));
    logging::log(logging::Level::Information, "drain: {} added to {}",
                 counted(drained.added.size() + drained.completed.size(), "task"), file);
}

}  // namespace

void runDrain(const std::string& file) {
    const std::string container = existingContainerPath();
    platform::Error error;
    const auto path = platform::resolvedPath(file, &error);
    if (!path) throw Failure(error);
    const auto locks = lockDirectories({container, directoryOf(*path)});
    runInActivity("Moving queued tasks into the list", [&] { drainInto(*path, file); });
}

}  // namespace corvane::cli
