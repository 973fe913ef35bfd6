#include "apps/cli/Publisher.h"

#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/GroupContainer.h"
#include "corvane/platform/TimeZone.h"

#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/SharedInfoBuilder.h"
#include "apps/cli/TodoDocument.h"

#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace corvane::cli {
namespace {

constexpr const char* kList =
    "(A) Pay +bills due:2024-03-05 @phone\n"
    "Wait +house/bath @waiting\n"
    "Star +house/bath star:1 due:2024-03-04\n"
    "Late @home due:2023-12-31\n"
    "x Done +garden star:1 due:2024-03-05 @home\n"
    "Soon +garden due:2024-03-06 @errands\n"
    "Later +house/roof due:2024-03-07 @odd\n"
    "Note\n"
    "Tomorrow's star star:1 due:2024-03-06\n"
    "Second +bills\n";

std::shared_ptr<HGSharedRepository> repositoryOfList(const char* list) {
    const auto document = documentOf(TodoFile(list));
    return repositoryOf(document, taskProxiesOf(document));
}

/// "Pay,Star": the titles, of which the first word is enough.
std::string titles(const TaskProxies& tasks) {
    std::string words;
    for (const auto& task : tasks)
        words.append(words.empty() ? "" : ",").append(*task->title(), 0, task->title()->find(' '));
    return words;
}

std::string names(const auto& records, const HGSharedRepository::URIs& uris) {
    std::string names;
    for (const auto& uri : uris)
        names.append(names.empty() ? "" : ",").append(*records.at(uri)->name());
    return names;
}

/// "inbox: Note"
std::string sections(const HGTaskProxyModel& model) {
    std::string text;
    for (const auto& list : *model.taskProxyLists())
        text += std::string(*list->identifier()) + ": " + titles(*list->taskProxies()) + "; ";
    return text;
}

TEST(Publisher, PutsOpenTasksIntoTheirViews) {
    HGTaskProxyManager manager;
    manager.reloadDataFromSharedInfo(
        sharedInfoOf(taskProxiesOf(documentOf(TodoFile(kList))), EXDateOnly(2024, 3, 5)));
    EXPECT_EQ(sections(*manager.inboxModel()), "inbox: Note; ");
    EXPECT_EQ(sections(*manager.todayModel()),
              "today.starred: Star,Tomorrow's; today.due: Pay,Late; ");
    EXPECT_EQ(sections(*manager.nextModel()),
              "next.actions: Pay,Star,Soon,Later; next.due-tomorrow: Soon,Tomorrow's; ");
    EXPECT_EQ(sections(*manager.waitingForModel()), "waiting-for: Wait; ");
    EXPECT_EQ(manager.inboxBadgeValue(), 1);
    EXPECT_EQ(manager.todayBadgeValue(), 4);
    EXPECT_EQ(manager.todayBadgeValueForTomorrow(), 5);
    EXPECT_EQ(manager.nextBadgeValue(), 5);
    EXPECT_EQ(manager.waitingForBadgeValue(), 1);
    EXPECT_EQ(dayAfter(EXDateOnly(2024, 12, 31)), EXDateOnly(2025, 1, 1));
}

TEST(Publisher, BuildsProjectsPortfoliosAndCategoriesInTheOrderOfTheList) {
    const auto repository = repositoryOfList(kList);
    const auto& projects = *repository->projectProxies();
    EXPECT_EQ(names(projects, *repository->topLevelProjectProxyURIs()), "bills,garden");
    EXPECT_EQ(names(*repository->portfolioProxies(), *repository->portfolioProxyURIs()), "house");
    const auto& house = *repository->portfolioProxies()->begin()->second;
    EXPECT_EQ(names(projects, *house.projectProxyURIs()), "house/bath,house/roof");
    EXPECT_EQ(names(*repository->categoryProxies(), *repository->categoryProxyURIs()),
              "phone,home,errands,odd");

    auto tasksOf = [&](const HGProjectProxy& project) {
        return titles(repository->taskProxiesForURIRepresentations(*project.taskProxyURIs()));
    };
    const auto garden = repository->projectProxyNamed("garden");
    EXPECT_EQ(tasksOf(*garden), "Done,Soon");
    EXPECT_EQ(tasksOf(*repository->generalProjectProxy()), "Late,Note,Tomorrow's");

    // Icons and colors are stable, and a project has those of its first category.
    EXPECT_EQ(repository->categoryProxyNamed("phone")->indicator(), 1);
    EXPECT_EQ(repository->categoryProxyNamed("odd")->indicator(), 0);
    EXPECT_EQ(repository->categoryProxyNamed("phone")->color(), 7);
    EXPECT_EQ(garden->categoryIconIndex(), repository->categoryProxyNamed("home")->iconIndex());
    EXPECT_EQ(repository->projectProxyNamed("house/bath")->categoryName(), std::nullopt);
}

TEST(Publisher, MakesPortfoliosOnlyOfNamesWithTwoParts) {
    const auto repository = repositoryOfList("a +p/\nb +/p\nc +p\nd +p/q/r\ne +P\n");
    EXPECT_EQ(names(*repository->projectProxies(), *repository->topLevelProjectProxyURIs()),
              "p/,/p,p,P");
    EXPECT_EQ(names(*repository->portfolioProxies(), *repository->portfolioProxyURIs()), "p");
}

TEST(Publisher, KeepsTheURIsOfLinesThatStay) {
    auto urisOf = [](const char* content) {
        std::vector<std::string> uris;
        for (const auto& task : documentOf(TodoFile(content)).tasks)
            uris.emplace_back(task.uri.absoluteString());
        return uris;
    };
    const auto before = urisOf("a\nb\na\nb +p\n");
    EXPECT_EQ(std::set<std::string>(before.begin(), before.end()).size(), 4u);
    const auto after = urisOf("new\r\na\r\na\r\nb +p");
    EXPECT_THAT(after, testing::ElementsAre(after[0], before[0], before[2], before[3]));
}

TEST(Publisher, PublishesForTheDayOfTheTimeZone) {
    tests::TemporaryDirectory directory;
    platform::ScopedGroupContainer container(directory.path());
    // Late on March 5 in New York, when it is March 6 already in UTC.
    platform::FixedClock clock{platform::Instant(
        std::chrono::sys_days(std::chrono::year(2024) / 3 / 6) + std::chrono::hours(3))};
    platform::ScopedClock scopedClock(clock);
    platform::ScopedTimeZone zone("America/New_York");
    const Publication publication = publish(documentOf(TodoFile(kList)));
    EXPECT_EQ(publication.badges.at(std::string(HGSharedInfoBadgeValueTodayKey)), 4);
}

}  // namespace
}  // namespace corvane::cli
