#include "apps/cli/Publisher.h"

#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/KeyedArchiver.h"

#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/SharedInfoBuilder.h"
#include "apps/cli/TaskCodes.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace corvane::cli {

namespace {

using platform::KeyedArchiver;

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

/// "Badges: today 2 -> 3, inbox 0 -> 1"
std::string changesText(const HGBadgeValues& before, const HGBadgeValues& after) {
    const std::array<std::pair<const char*, std::string_view>, 5> kBadges{{
        {"inbox", HGSharedInfoBadgeValueInboxKey},
        {"today", HGSharedInfoBadgeValueTodayKey},
        {"today for tomorrow", HGSharedInfoBadgeValueTodayForTomorrowKey},
        {"next", HGSharedInfoBadgeValueNextKey},
        {"waiting for", HGSharedInfoBadgeValueWaitingForKey},
    }};
    std::string text;
    for (const auto& [name, key] : kBadges) {
        auto valueIn = [key = key](const HGBadgeValues& badges) {
            auto found = badges.find(key);
            return found == badges.end() ? 0 : found->second;
        };
        if (valueIn(before) == valueIn(after)) continue;
        text += fmt::format("{}{} {} -> {}", text.empty() ? "" : ", ", name, valueIn(before),
                            valueIn(after));
    }
    return text.empty() ? "no change" : text;
}

}  // namespace

Publication publish(const backup::BackupDocument& document) {
    const TaskProxies tasks = taskProxiesOf(document);
    const auto repository = repositoryOf(document, tasks);
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

void publishAgain(const backup::BackupDocument& document) {
    const auto badges = publishedBadges().value_or(HGBadgeValues());
    const Publication published = publish(document);
    print(fmt::format("Published {}; badges: {}\n", counted(published.tasks, "task"),
                      changesText(badges, published.badges)));
}

}  // namespace corvane::cli
