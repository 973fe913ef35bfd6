#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/platform/TimeZone.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <cerrno>

namespace corvane::cli {

namespace {

std::size_t taskCount(const std::string& batchPath) {
    const auto root = platform::KeyedUnarchiver::unarchiveFile(batchPath, sharedArchiveClasses());
    std::size_t count = 0;
    if (!root.list()) return count;
    for (const auto& item : root.list()->items)
        if (item.objectAs<HGTaskProxy>()) ++count;
    return count;
}

/// Looks into the queue directory itself, because the queue's own listing makes a missing one.
void countQueue(Status& status) {
    const auto url = HGSharedContainer::defaultContainer().insertQueueDirectoryURL();
    const auto path = url ? url->path() : std::nullopt;
    platform::Error error;
    const auto entries = path ? platform::listDirectory(*path, &error) : std::nullopt;
    if (!entries && error.code != ENOENT) throw Failure(error);
    if (!entries) return;
    status.queuedBatches = entries->size();
    for (const auto& entry : *entries)
        status.queuedTasks += taskCount(*path + "/" + entry.name);
}

std::string localText(platform::Instant instant) {
    const auto time = platform::TimeZone::current().civilFromInstant(instant);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", time.year, time.month, time.day,
                       time.hour, time.minute, time.second);
}

std::string textOf(const Status& status) {
    return fmt::format("Container  {}\nUpdated    {}\nBadges     {}\nQueue      {}\n",
                       status.container, status.updated ? localText(*status.updated) : "never",
                       status.badges ? badgesText(*status.badges) : "nothing was published yet",
                       status.queuedBatches == 0
                           ? "empty"
                           : fmt::format("{} in {}", counted(status.queuedTasks, "task"),
                                         status.queuedBatches == 1
                                             ? "1 batch"
                                             : fmt::format("{} batches", status.queuedBatches)));
}

}  // namespace

void runStatus(Format format) {
    Status status;
    status.container = existingContainerPath();
    const auto& container = HGSharedContainer::defaultContainer();
    status.updated = container.readUpdatedTimestamp();
    if (!status.updated) requireMissing(*container.updatedFilePath());
    status.badges = publishedBadges();
    if (!status.badges) requireMissing(*container.sharedInfoFilePath());
    countQueue(status);
    print(format == Format::JSON ? statusJson(status) : textOf(status));
}

}  // namespace corvane::cli
