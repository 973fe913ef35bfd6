#include "corvane/bridge/HGInsertQueue.h"

#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/toolkit/EXValue.h"

#include <fmt/format.h>

namespace corvane {

namespace {

// Other programs know these names: they must not change.
constexpr std::string_view kFileNamePrefix = "task-proxies-";
constexpr std::string_view kFileNameExtension = "archive";

// The time in UTC with Western digits, whatever the user's zone and locale, so that the names of
// batches order them.
std::string batchTime(platform::Instant instant) {
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::milliseconds>(instant - day));
    return fmt::format("{:04}-{:02}-{:02}-{:02}h{:02}m{:02}s{:03}", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count(),
                       time.subseconds().count());
}

void removeBatch(const platform::URL& file) {
    auto path = file.path();
    if (path && !platform::removeFile(*path)) return;
    platform::currentConsole().writeLine(fmt::format(
        "WARNING: Could not remove insert-queue file named '{}'", file.lastPathComponent()));
}

HGInsertQueue::TaskProxies readBatch(const platform::URL& file) {
    HGInsertQueue::TaskProxies tasks;
    auto path = file.path();
    if (!path) return tasks;
    const EXValue root = platform::KeyedUnarchiver::unarchiveFile(*path, sharedArchiveClasses());
    if (!root.list()) return tasks;
    for (const EXValue& item : root.list()->items)
        if (auto task = item.objectAs<HGTaskProxy>()) tasks.push_back(std::move(task));
    return tasks;
}

/// What companions left in the container that were killed while they added a batch.
void removeAbandonedBatches() {
    const auto root = HGSharedContainer::defaultContainer().rootURL();
    if (const auto path = root ? root->path() : std::nullopt) platform::removeAbandonedFiles(*path);
}

}  // namespace

HGInsertQueue& HGInsertQueue::shared() {
    static HGInsertQueue queue;
    return queue;
}

HGInsertQueue::HGInsertQueue()
    : directoryUrl_(HGSharedContainer::defaultContainer().insertQueueDirectoryURL()) {}

std::string HGInsertQueue::taskProxiesFileName() const {
    return fmt::format("{}{}.{}", kFileNamePrefix, batchTime(platform::currentClock().now()),
                       kFileNameExtension);
}

std::optional<std::string> HGInsertQueue::taskProxiesFilePath() const {
    auto directory = HGSharedContainer::defaultContainer().insertQueueDirectoryURL();
    if (!directory) return std::nullopt;
    return directory->appendingPathComponent(taskProxiesFileName()).path();
}

bool HGInsertQueue::addTaskProxies(const TaskProxies& taskProxies, platform::Error* error) const {
    auto path = taskProxiesFilePath();
    auto root = HGSharedContainer::defaultContainer().rootURL();
    if (!path || !root) {
        if (error) *error = {"corvane", 0, "there is no container"};
        return false;
    }
    // Prepared in the container, because whatever stands in the queue directory is a batch to be
    // polled.
    auto failure = platform::KeyedArchiver::archiveToFile(
        platform::ValueList{{taskProxies.begin(), taskProxies.end()}, false}, *path,
        platform::Durability::Synced, root->path());
    if (failure && error) *error = std::move(*failure);
    return !failure;
}

std::optional<std::vector<platform::URL>> HGInsertQueue::allTaskProxiesFileURLs() const {
    auto directory = directoryUrl_ ? directoryUrl_->path() : std::nullopt;
    if (!directory || platform::createDirectory(*directory)) {
        platform::currentConsole().writeLine(
            fmt::format("ERROR: Could not auto-create '{}' directory",
                        HGSharedContainerInsertQueueDirectoryName));
        return std::nullopt;
    }
    auto entries = platform::listDirectory(*directory);
    if (!entries || entries->empty()) return std::nullopt;
    platform::sortByCreationTime(*entries);
    std::vector<platform::URL> urls;
    for (const auto& entry : *entries)
        urls.push_back(directoryUrl_->appendingPathComponent(entry.name));
    return urls;
}

HGInsertQueue::TaskProxies HGInsertQueue::pollAllTaskProxies() const {
    removeAbandonedBatches();
    TaskProxies tasks;
    for (const platform::URL& file :
         allTaskProxiesFileURLs().value_or(std::vector<platform::URL>())) {
        for (auto& task : readBatch(file))
            tasks.push_back(std::move(task));
        removeBatch(file);
    }
    return tasks;
}

bool HGInsertQueue::pollAllTaskProxies(
    const std::function<bool(const std::vector<Batch>& batches)>& store) const {
    removeAbandonedBatches();
    auto files = allTaskProxiesFileURLs();
    if (!files) return true;
    std::vector<Batch> batches;
    for (const platform::URL& file : *files)
        batches.push_back({file.lastPathComponent(), readBatch(file)});
    if (!store(batches)) return false;
    for (const platform::URL& file : *files)
        removeBatch(file);
    return true;
}

void HGInsertQueue::clear() const {
    auto directory = directoryUrl_ ? directoryUrl_->path() : std::nullopt;
    if (!directory) return;
    auto entries = platform::listDirectory(*directory);
    if (!entries) return;
    for (const auto& entry : *entries)
        removeBatch(directoryUrl_->appendingPathComponent(entry.name));
}

}  // namespace corvane
