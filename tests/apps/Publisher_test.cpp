#include "apps/cli/Publisher.h"

#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/GroupContainer.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/TimeZone.h"

#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/SharedInfoBuilder.h"

#include "tests/support/TemporaryDirectory.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace corvane::cli {
namespace {

using testing::ElementsAre;
using URIs = HGSharedRepository::URIs;

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

std::string joined(const std::vector<std::string_view>& texts) {
    return fmt::format("{}", fmt::join(texts, ","));
}

/// "Pay,Star": the titles, of which the first word is enough.
std::string titles(const TaskProxies& tasks) {
    std::vector<std::string_view> words;
    for (const auto& task : tasks)
        words.push_back(task->title()->substr(0, task->title()->find(' ')));
    return joined(words);
}

std::string names(const auto& records, const URIs& uris) {
    std::vector<std::string_view> names;
    for (const auto& uri : uris)
        names.push_back(*records.at(uri)->name());
    return joined(names);
}

std::vector<std::string> sections(const HGTaskProxyModel& model) {
    std::vector<std::string> texts;
    for (const auto& list : *model.taskProxyLists())
        texts.push_back(fmt::format("{} {}: {}", *list->identifier(), *list->title(),
                                    titles(*list->taskProxies())));
    return texts;
}

TEST(Publisher, PutsOpenTasksIntoTheirViews) {
    HGTaskProxyManager manager;
    manager.reloadDataFromSharedInfo(
        sharedInfoOf(taskProxiesOf(TodoFile(kList)), EXDateOnly(2024, 3, 5)));
    EXPECT_THAT(sections(*manager.inboxModel()), ElementsAre("inbox Inbox: Note"));
    EXPECT_THAT(
        sections(*manager.todayModel()),
        ElementsAre("today.starred Starred: Star,Tomorrow's", "today.due Due Today: Pay,Late"));
    EXPECT_THAT(sections(*manager.nextModel()),
                ElementsAre("next.actions Next in Each Project: Pay,Star,Soon,Later",
                            "next.due-tomorrow Due Tomorrow: Soon,Tomorrow's"));
    EXPECT_THAT(sections(*manager.waitingForModel()), ElementsAre("waiting-for Waiting For: Wait"));
    EXPECT_EQ(manager.inboxBadgeValue(), 1);
    EXPECT_EQ(manager.todayBadgeValue(), 4);
    EXPECT_EQ(manager.todayBadgeValueForTomorrow(), 5);
    EXPECT_EQ(manager.nextBadgeValue(), 5);
    EXPECT_EQ(manager.waitingForBadgeValue(), 1);
}

TEST(Publisher, BuildsProjectsPortfoliosAndCategoriesInTheOrderOfTheList) {
    platform::ScopedLanguages english({"en"});
    const auto repository = repositoryOf(taskProxiesOf(TodoFile(kList)));
    const auto& projects = *repository->projectProxies();
    EXPECT_EQ(names(projects, *repository->topLevelProjectProxyURIs()), "bills,garden");
    EXPECT_EQ(names(*repository->portfolioProxies(), *repository->portfolioProxyURIs()), "house");
    const auto& house = *repository->portfolioProxies()->begin()->second;
    EXPECT_EQ(names(projects, *house.projectProxyURIs()), "house/bath,house/roof");
    EXPECT_EQ(house.projectProxyURIs()->front().absoluteString(),
              "x-corvane-todo://project/house%2Fbath");
    EXPECT_EQ(names(*repository->categoryProxies(), *repository->categoryProxyURIs()),
              "phone,home,errands,odd");

    auto tasksOf = [&](const HGProjectProxy& project) {
        return titles(repository->taskProxiesForURIRepresentations(*project.taskProxyURIs()));
    };
    EXPECT_EQ(tasksOf(*repository->projectProxyNamed("bills")), "Pay,Second");
    EXPECT_EQ(tasksOf(*repository->projectProxyNamed("garden")), "Done,Soon");
    EXPECT_EQ(repository->generalProjectProxy()->name(), "No Project");
    EXPECT_EQ(tasksOf(*repository->generalProjectProxy()), "Late,Note,Tomorrow's");
    EXPECT_EQ(repository->taskProxies()->size(), 10u);
}

TEST(Publisher, GivesCategoriesStableIconsAndProjectsTheirFirstOne) {
    const auto repository = repositoryOf(taskProxiesOf(TodoFile(kList)));
    const struct {
        const char* category;
        int indicator;
    } cases[] = {{"phone", 1}, {"home", 9}, {"errands", 7}, {"odd", 0}};
    for (const auto& c : cases)
        EXPECT_EQ(repository->categoryProxyNamed(c.category)->indicator(), c.indicator);
    // What is published keeps its color.
    EXPECT_EQ(repository->categoryProxyNamed("phone")->color(), 7);
    const auto garden = repository->projectProxyNamed("garden");
    EXPECT_EQ(garden->categoryName(), "home");
    EXPECT_EQ(garden->categoryIconIndex(), repository->categoryProxyNamed("home")->iconIndex());
    EXPECT_EQ(repository->projectProxyNamed("house/bath")->categoryName(), std::nullopt);
}

TEST(Publisher, MakesPortfoliosOnlyOfNamesWithTwoParts) {
    const auto repository =
        repositoryOf(taskProxiesOf(TodoFile("a +p/\nb +/p\nc +p\nd +p/q/r\ne +P\n")));
    EXPECT_EQ(names(*repository->projectProxies(), *repository->topLevelProjectProxyURIs()),
              "p/,/p,p,P");
    EXPECT_EQ(names(*repository->portfolioProxies(), *repository->portfolioProxyURIs()), "p");
}

TEST(Publisher, KeepsTheURIsOfLinesThatStay) {
    auto urisOf = [](const char* content) {
        std::vector<std::string> uris;
        for (const auto& task : taskProxiesOf(TodoFile(content)))
            uris.emplace_back(task->uriRepresentation()->absoluteString());
        return uris;
    };
    const auto before = urisOf("a\nb\na\nb +p\n");
    EXPECT_EQ(std::set<std::string>(before.begin(), before.end()).size(), 4u);
    EXPECT_THAT(before[0], testing::MatchesRegex("x-corvane-todo://task/[0-9a-f]{16}"));
    const auto after = urisOf("new\r\na\r\na\r\nb +p");
    EXPECT_THAT(after, ElementsAre(after[0], before[0], before[2], before[3]));
}

TEST(Publisher, WritesTheContainerAndReportsLinesThatAreNoTasks) {
    tests::TemporaryDirectory directory;
    platform::ScopedGroupContainer container(directory.path());
    platform::RecordingConsole console;
    platform::ScopedConsole scopedConsole(console);
    // Late on March 5 in New York, when it is March 6 already in UTC.
    platform::FixedClock clock{platform::Instant(
        std::chrono::sys_days(std::chrono::year(2024) / 3 / 6) + std::chrono::hours(3))};
    platform::ScopedClock scopedClock(clock);
    platform::ScopedTimeZone zone("America/New_York");

    const Publication publication = publish(TodoFile(std::string(kList) + "+p\n"), "my list");
    EXPECT_THAT(console.lines(), ElementsAre("corvane: my list:11: no title; the line stays, but "
                                             "is not published"));
    EXPECT_EQ(publication.tasks, 10u);
    EXPECT_EQ(publication.completedTasks, 1u);
    EXPECT_EQ(publication.badges.at(std::string(HGSharedInfoBadgeValueTodayKey)), 4);
    auto content = directory.content();
    EXPECT_EQ(content.size(), 4u);
    EXPECT_EQ(content["insert-queue"], "/");
    for (const std::string& file : publication.files)
        EXPECT_TRUE(content[file.substr(directory.path().size() + 1)].starts_with("bplist00"));
}

TEST(Publisher, CountsOverTheEndsOfMonthsAndYears) {
    EXPECT_EQ(dayAfter(EXDateOnly(2024, 2, 28)), EXDateOnly(2024, 2, 29));
    EXPECT_EQ(dayAfter(EXDateOnly(2023, 2, 28)), EXDateOnly(2023, 3, 1));
    EXPECT_EQ(dayAfter(EXDateOnly(2024, 12, 31)), EXDateOnly(2025, 1, 1));
}

}  // namespace
}  // namespace corvane::cli
