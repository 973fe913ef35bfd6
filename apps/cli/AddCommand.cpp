#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/logging/Log.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/MappedFile.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <chrono>
#include <thread>

namespace corvane::cli {

namespace {

std::shared_ptr<HGTaskProxy> taskProxyOf(const NewTask& newTask,
                                         const HGSharedRepository& repository) {
    auto task = repository.createTaskProxyForInsertion();
    task->setTitle(newTask.title);
    task->setNotes(newTask.notes);
    task->setDue(newTask.due);
    task->setStarred(newTask.starred);
    if (newTask.priority) task->setPriority(*newTask.priority);
    if (newTask.project) task->setProjectName(newTask.project);
    if (!newTask.category) return task;
    task->setCategoryName(newTask.category);
    if (auto category = repository.categoryProxyNamed(*newTask.category)) {
        task->setCategoryColor(category->color());
        task->setCategoryIndicator(category->indicator());
    }
    return task;
}

/// A batch would replace another one of the same millisecond. Nobody else adds meanwhile, because
/// the caller holds the container.
void waitForFreeName(const HGInsertQueue& queue) {
    // In real time, as the clock that names the batches may stand still or have been set back.
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    while (platform::MappedFile::open(queue.taskProxiesFilePath().value_or(""))) {
        if (std::chrono::steady_clock::now() > end)
            throw Failure("another task of this very moment is queued already");
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void requireQueue() {
    const auto url = HGSharedContainer::defaultContainer().insertQueueDirectoryURL();
    const std::string path = url ? url->path().value_or("") : "";
    if (platform::isDirectory(path)) return;
    throw Failure("there is no queue at '" + path +
                  "': it is made when the main application publishes or drains");
}

}  // namespace

void runAdd(const NewTask& newTask) {
    const auto task = taskProxyOf(newTask, *publishedRepository());
    requireQueue();
    const auto locks = lockDirectories({containerPath()});
    const HGInsertQueue queue;
    waitForFreeName(queue);
    platform::Error error;
    if (!queue.addTaskProxies({task}, &error)) throw Failure(error);
    logging::log(logging::Level::Information, "add: 1 task queued");
    // The name of the general project is for the queue, not for people.
    if (!newTask.project) task->setProjectName(std::nullopt);
    print(fmt::format("Queued for the main application:\n{}", taskLines({&task, 1})));
}

}  // namespace corvane::cli
