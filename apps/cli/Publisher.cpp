#include "apps/cli/Publisher.h"

#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/KeyedArchiver.h"

#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/SharedInfoBuilder.h"

#include <fmt/format.h>

#include <algorithm>

namespace corvane::cli {

namespace {

using platform::KeyedArchiver;

void reportProblems(const TodoFile& list, const std::string& listName) {
    for (const TodoFile::Problem& problem : list.problems()) {
        platform::currentConsole().writeLine(
            fmt::format("corvane: {}:{}: {}; the line stays, but is not published", listName,
                        problem.lineNumber, problem.reason));
    }
}

/// The bridge's own operations only tell that a file could not be written. Where they do, the
/// archiver is asked once more, because it tells why.
void writeAll(const HGSharedRepository& repository, const HGSharedInfo& info) {
    const auto& container = HGSharedContainer::defaultContainer();
    if (!repository.saveInSharedContainer()) {
        failOn(KeyedArchiver::archiveToFile(repository, *container.sharedRepositoryFilePath()));
    }
    if (!info.writeToSharedContainer()) {
        failOn(KeyedArchiver::archiveToFile(*info.dictionary(), *container.sharedInfoFilePath()));
    }
    // Last, because it tells the companions that the other two are there.
    if (!container.touchUpdatedTimestamp()) {
        failOn(KeyedArchiver::archiveToFile(platform::currentClock().now(),
                                            *container.updatedFilePath()));
    }
}

}  // namespace

Publication publish(const TodoFile& list, const std::string& listName) {
    reportProblems(list, listName);
    const TaskProxies tasks = taskProxiesOf(list);
    const auto repository = repositoryOf(tasks);
    const HGSharedInfo info = sharedInfoOf(tasks, today());
    prepareQueue();
    writeAll(*repository, info);

    const auto& container = HGSharedContainer::defaultContainer();
    Publication publication;
    publication.tasks = tasks.size();
    publication.completedTasks =
        static_cast<std::size_t>(std::count_if(tasks.begin(), tasks.end(), [](const auto& task) {
            return task->status() == kCompletedStatus;
        }));
    publication.projects = repository->projectProxies()->size();
    publication.portfolios = repository->portfolioProxies()->size();
    publication.categories = repository->categoryProxies()->size();
    publication.badges = info.badgeValues().value_or(HGBadgeValues());
    publication.files = {*container.sharedRepositoryFilePath(), *container.sharedInfoFilePath(),
                         *container.updatedFilePath()};
    return publication;
}

}  // namespace corvane::cli
