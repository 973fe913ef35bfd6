// Records with something in every field, and the content of records as text that tests compare.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/bridge/HGSharedRepository.h"
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/GroupContainer.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include "tests/support/ForeignArchive.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::tests {

/// A shared container for one test.
struct ScopedContainer {
    TemporaryDirectory directory;
    platform::ScopedGroupContainer scope{directory.path()};
};

inline platform::URL uri(std::string_view name) {
    return platform::URL("store://7F3A/" + std::string(name));
}

template <class T>
std::shared_ptr<T> named(std::string_view uriName, std::optional<std::string_view> name) {
    auto record = std::make_shared<T>(uri(uriName));
    if (name) record->setName(std::string(*name));
    return record;
}

inline std::shared_ptr<HGTaskProxy> titledTask(std::string_view title) {
    auto task = std::make_shared<HGTaskProxy>();
    task->setTitle(std::string(title));
    return task;
}

inline std::shared_ptr<HGAttachmentProxy> sampleAttachment(int number) {
    auto attachment =
        std::make_shared<HGAttachmentProxy>(uri("Attachment/p" + std::to_string(number)));
    attachment->setUrl("https://example.org/" + std::to_string(number));
    attachment->setType(static_cast<std::int16_t>(number));
    return attachment;
}

inline std::shared_ptr<HGTaskProxy> sampleTask() {
    auto task = std::make_shared<HGTaskProxy>(uri("Task/p1"));
    task->setTitle("Water the \"Füchsia\" 🌱");
    task->setNotes("every\nmorning");
    task->setStatus(4);
    task->setStarred(true);
    task->setPriority(1);
    task->setDue(EXDateOnly(2024, 2, 29));
    task->setRepeat(1);
    task->setProjectName("Garden");
    task->setCategoryName("Home");
    task->setCategoryColor(5);
    task->setCategoryIndicator(44);
    task->setContributorName("Ann");
    task->setAttachmentProxies(HGTaskProxy::AttachmentProxies{
        sampleAttachment(2), sampleAttachment(300), sampleAttachment(-3)});
    return task;
}

inline std::shared_ptr<HGProjectProxy> sampleProject() {
    auto project = named<HGProjectProxy>("Project/p1", "Garden");
    project->setTaskProxyURIs(HGSharedRepository::URIs{uri("Task/p2"), uri("Task/p1")});
    project->setCategoryName("Home");
    project->setCategoryColor(2);
    project->setCategoryIndicator(7);
    return project;
}

inline std::shared_ptr<HGCategoryProxy> sampleCategory() {
    auto category = named<HGCategoryProxy>("Category/p1", "Home");
    category->setColor(3);
    category->setIndicator(9);
    return category;
}

inline std::shared_ptr<HGPortfolioProxy> samplePortfolio() {
    auto portfolio = named<HGPortfolioProxy>("Portfolio/p1", "House");
    portfolio->setProjectProxyURIs(
        HGSharedRepository::URIs{uri("Project/p2"), uri("Gone/p1"), uri("Project/p1")});
    return portfolio;
}

template <class T>
HGSharedRepository::ByURI<T> byURI(std::initializer_list<std::shared_ptr<T>> records) {
    HGSharedRepository::ByURI<T> map;
    for (const auto& record : records)
        map.emplace(record->uriRepresentation().value(), record);
    return map;
}

/// Two projects of one name, a portfolio whose projects are all gone, orders that are not those of
/// the URIs, and a URI in each order that leads nowhere.
inline std::shared_ptr<HGSharedRepository> sampleRepository() {
    auto empty = named<HGPortfolioProxy>("Portfolio/p2", "Empty");
    empty->setProjectProxyURIs(HGSharedRepository::URIs{uri("Gone/p1")});
    using URIs = HGSharedRepository::URIs;
    return std::make_shared<HGSharedRepository>(
        named<HGProjectProxy>("Project/p0", "General"),
        byURI({sampleCategory(), named<HGCategoryProxy>("Category/p2", "Work")}),
        URIs{uri("Category/p2"), uri("Gone/p1"), uri("Category/p1")},
        byURI({samplePortfolio(), empty}),
        URIs{uri("Portfolio/p2"), uri("Gone/p1"), uri("Portfolio/p1")},
        byURI({sampleProject(), named<HGProjectProxy>("Project/p2", "Kitchen"),
               named<HGProjectProxy>("Project/p3", "Kitchen")}),
        URIs{uri("Project/p3"), uri("Gone/p1")},
        byURI({sampleTask(), std::make_shared<HGTaskProxy>(uri("Task/p2"))}));
}

inline std::shared_ptr<HGTaskProxyList> listOf(HGTaskProxyList::TaskProxies tasks,
                                               std::string_view title) {
    return std::make_shared<HGTaskProxyList>(std::move(tasks), "id-" + std::string(title),
                                             std::string(title));
}

inline std::shared_ptr<HGTaskProxyModel> modelOf(HGTaskProxyModel::TaskProxyLists lists) {
    return std::make_shared<HGTaskProxyModel>(std::move(lists));
}

/// All four models, with one task in two lists, and all five badges.
inline HGSharedInfo sampleInfo() {
    auto task = sampleTask();
    return HGSharedInfo(
        HGTaskProxyModels{
            {std::string(HGSharedInfoTaskProxyModelInboxKey),
             modelOf({listOf({titledTask("Sort mail")}, "Inbox")})},
            {std::string(HGSharedInfoTaskProxyModelTodayKey),
             modelOf({listOf({task}, "Starred"), listOf({titledTask("Pay"), task}, "Today")})},
            {std::string(HGSharedInfoTaskProxyModelNextKey),
             modelOf({listOf({}, "Today"), listOf({titledTask("Call")}, "Tomorrow")})},
            {std::string(HGSharedInfoTaskProxyModelWaitingForKey), modelOf({})}},
        HGBadgeValues{{std::string(HGSharedInfoBadgeValueInboxKey), 12},
                      {std::string(HGSharedInfoBadgeValueTodayKey), 2},
                      {std::string(HGSharedInfoBadgeValueTodayForTomorrowKey), 300},
                      {std::string(HGSharedInfoBadgeValueNextKey), 0},
                      {std::string(HGSharedInfoBadgeValueWaitingForKey), -3}});
}

// Content as text -------------------------------------------------------------------------------

inline std::string contentOf(const HGAttachmentProxy& attachment);
inline std::string contentOf(const HGTaskProxy& task);
inline std::string contentOf(const HGProjectProxy& project);
inline std::string contentOf(const HGCategoryProxy& category);
inline std::string contentOf(const HGPortfolioProxy& portfolio);
inline std::string contentOf(const HGTaskProxyList& list);
inline std::string contentOf(const HGTaskProxyModel& model);
inline std::string contentOf(const HGSharedRepository& repository);

template <class T>
std::string contentOf(const std::shared_ptr<T>& record) {
    return record ? contentOf(*record) : "none\n";
}

template <class... Fields>
std::string listed(const Fields&... fields) {
    std::string text;
    ((text += testing::PrintToString(fields) + "\n"), ...);
    return text;
}

template <class T>
std::string contentsOf(const std::optional<std::vector<std::shared_ptr<T>>>& records) {
    if (!records) return "absent";
    std::string text = "[\n";
    for (const auto& record : *records)
        text += contentOf(record) + ",\n";
    return text + "]";
}

template <class Map>
std::string contentsOfMap(const std::optional<Map>& records) {
    if (!records) return "absent";
    std::string text = "{\n";
    for (const auto& [key, record] : *records)
        text += testing::PrintToString(key) + ": " + contentOf(record) + ",\n";
    return text + "}";
}

inline std::string contentOf(const HGAttachmentProxy& attachment) {
    return listed(attachment.uriRepresentation(), attachment.url(), attachment.type());
}

inline std::string contentOf(const HGTaskProxy& task) {
    return listed(task.uriRepresentation(), task.title(), task.notes(), task.status(),
                  task.starred(), task.priority(), task.due(), task.repeat(), task.projectName(),
                  task.categoryName(), task.categoryColor(), task.categoryIndicator(),
                  task.contributorName()) +
           contentsOf(task.attachmentProxies());
}

inline std::string contentOf(const HGProjectProxy& project) {
    return listed(project.uriRepresentation(), project.name(), project.taskProxyURIs(),
                  project.categoryName(), project.categoryColor(), project.categoryIndicator());
}

inline std::string contentOf(const HGCategoryProxy& category) {
    return listed(category.uriRepresentation(), category.name(), category.color(),
                  category.indicator());
}

inline std::string contentOf(const HGPortfolioProxy& portfolio) {
    return listed(portfolio.uriRepresentation(), portfolio.name(), portfolio.projectProxyURIs());
}

inline std::string contentOf(const HGTaskProxyList& list) {
    return listed(list.identifier(), list.title()) + contentsOf(list.taskProxies());
}

inline std::string contentOf(const HGTaskProxyModel& model) {
    return contentsOf(model.taskProxyLists());
}

inline std::string contentOf(const HGSharedInfo& info) {
    return contentsOfMap(info.taskProxyModels()) + testing::PrintToString(info.badgeValues());
}

inline std::string contentOf(const HGSharedRepository& repository) {
    return contentOf(repository.generalProjectProxy()) +
           contentsOfMap(repository.categoryProxies()) +
           contentsOfMap(repository.portfolioProxies()) +
           contentsOfMap(repository.projectProxies()) + contentsOfMap(repository.taskProxies()) +
           listed(repository.categoryProxyURIs(), repository.portfolioProxyURIs(),
                  repository.topLevelProjectProxyURIs());
}

// Archives --------------------------------------------------------------------------------------

/// The record as an archive gives it back; null when it cannot.
template <class T>
std::shared_ptr<T> reread(const T& record) {
    auto data = platform::KeyedArchiver::archivedData(record);
    if (!data) return nullptr;
    return platform::KeyedUnarchiver::unarchiveData(*data, sharedArchiveClasses())
        .template objectAs<T>();
}

/// A record of class T as a stranger writes it: with one object, given as its bytes, under each of
/// these keys and with no others.
template <class T>
std::shared_ptr<T> foreignRecord(const std::vector<std::string>& keys = {},
                                 const std::string& bytes = {}) {
    ForeignArchive archive;
    ForeignArchive::Entries entries{{"$class", archive.uid(2)}};
    for (const auto& key : keys)
        entries.emplace_back(std::string(T::kArchiveClassName) + key, archive.raw(bytes));
    const auto file = archive.file({archive.text("$null"), archive.dictionary(entries),
                                    archive.classNamed(T::kArchiveClassName)});
    return platform::KeyedUnarchiver::unarchiveData(file, sharedArchiveClasses())
        .template objectAs<T>();
}

}  // namespace corvane::tests
