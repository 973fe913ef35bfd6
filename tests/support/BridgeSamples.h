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

// clang-format off
inline platform::URL uri(const std::string& name) { return platform::URL("store://7F3A/" + name); }

inline std::shared_ptr<HGTaskProxy> titledTask(const std::string& title) {
    auto task = std::make_shared<HGTaskProxy>();
    task->setTitle(title);
    return task;
}

template <class T> std::shared_ptr<T> named(const std::string& uriName, const std::string& name) {
    auto record = std::make_shared<T>(uri(uriName));
    record->setName(name);
    return record;
}

inline std::shared_ptr<HGTaskProxy> sampleTask() {
    HGTaskProxy::AttachmentProxies attachments;
    for (std::int16_t number : {2, 300, -3}) {
        const auto text = std::to_string(number);
        auto& attachment = attachments.emplace_back(new HGAttachmentProxy(uri("Attachment/p" + text)));
        attachment->setUrl("https://example.org/" + text);
        attachment->setType(number);
    }
    auto task = std::make_shared<HGTaskProxy>(uri("Task/p1"));
    task->setTitle("Water the \"Füchsia\" 🌱");  task->setNotes("every\nmorning");
    task->setStatus(4);  task->setStarred(true);  task->setPriority(1);
    task->setDue(EXDateOnly(2024, 2, 29));  task->setRepeat(1);
    task->setProjectName("Garden");  task->setContributorName("Ann");
    task->setCategoryName("Home");  task->setCategoryColor(5);  task->setCategoryIndicator(44);
    task->setAttachmentProxies(attachments);
    return task;
}

/// Two projects of one name, a portfolio whose projects are all gone, orders that are not those of
/// the URIs, and a URI in each order that leads nowhere.
inline std::shared_ptr<HGSharedRepository> sampleRepository() {
    const auto byURI = []<class T>(const std::vector<std::shared_ptr<T>>& records) {
        HGSharedRepository::ByURI<T> map;
        for (const auto& record : records) map.emplace(record->uriRepresentation().value(), record);
        return map;
    };
    using URIs = HGSharedRepository::URIs;
    auto category = named<HGCategoryProxy>("Category/p1", "Home");
    category->setColor(3);  category->setIndicator(9);
    auto project = named<HGProjectProxy>("Project/p1", "Garden");
    project->setTaskProxyURIs(URIs{uri("Task/p2"), uri("Task/p1")});
    project->setCategoryName("Home");  project->setCategoryColor(2);  project->setCategoryIndicator(7);
    auto portfolio = named<HGPortfolioProxy>("Portfolio/p1", "House");
    portfolio->setProjectProxyURIs(URIs{uri("Project/p2"), uri("Gone/p1"), uri("Project/p1")});
    auto empty = named<HGPortfolioProxy>("Portfolio/p2", "Empty");
    empty->setProjectProxyURIs(URIs{uri("Gone/p1")});
    return std::make_shared<HGSharedRepository>(
        named<HGProjectProxy>("Project/p0", "General"),
        byURI(std::vector{category, named<HGCategoryProxy>("Category/p2", "Work")}),
        URIs{uri("Category/p2"), uri("Gone/p1"), uri("Category/p1")},
        byURI(std::vector{portfolio, empty}),
        URIs{uri("Portfolio/p2"), uri("Gone/p1"), uri("Portfolio/p1")},
        byURI(std::vector{project, named<HGProjectProxy>("Project/p2", "Kitchen"), named<HGProjectProxy>("Project/p3", "Kitchen")}),
        URIs{uri("Project/p3"), uri("Gone/p1")},
        byURI(std::vector{sampleTask(), std::make_shared<HGTaskProxy>(uri("Task/p2"))}));
}

inline std::shared_ptr<HGTaskProxyList> listOf(HGTaskProxyList::TaskProxies tasks, const std::string& title) {
    return std::make_shared<HGTaskProxyList>(std::move(tasks), "id-" + title, title);
}

inline std::shared_ptr<HGTaskProxyModel> modelOf(HGTaskProxyModel::TaskProxyLists lists) {
    return std::make_shared<HGTaskProxyModel>(std::move(lists));
}

/// All four models, with one task in two lists, and all five badges.
inline HGSharedInfo sampleInfo() {
    const auto model = [](const std::string& view) { return "HGSharedInfoTaskProxyModel" + view + "Key"; };
    const auto badge = [](const std::string& view) { return "HGSharedInfoBadgeValue" + view + "Key"; };
    auto task = sampleTask();
    return HGSharedInfo(
        HGTaskProxyModels{
            {model("Inbox"), modelOf({listOf({titledTask("Sort mail")}, "Inbox")})},
            {model("Today"), modelOf({listOf({task}, "Starred"), listOf({titledTask("Pay"), task}, "Today")})},
            {model("Next"), modelOf({listOf({}, "Today"), listOf({titledTask("Call")}, "Tomorrow")})},
            {model("WaitingFor"), modelOf({})}},
        HGBadgeValues{{badge("Inbox"), 12}, {badge("Today"), 2}, {badge("TodayForTomorrow"), 300},
                      {badge("Next"), 0}, {badge("WaitingFor"), -3}});
}
/// Everything that a value and the records in it hold, as text.
struct Content {
    template <class... T> static std::string all(const T&... fields) { return "(" + ((of(fields) + "\n") + ... + ")"); }
    template <class T> static std::string of(const T& value) {
        if constexpr (requires { *value; }) {
            return value ? of(*value) : "none";
        } else if constexpr (requires { value.begin()->get(); } || requires { value.begin()->second; }) {
            std::string text;
            for (const auto& item : value) text += of(item) + ",\n";
            return "[" + text + "]";
        } else {
            return testing::PrintToString(value);
        }
    }
    template <class A, class B> static std::string of(const std::pair<A, B>& entry) {
        return of(entry.first) + ": " + of(entry.second);
    }
    static std::string of(const HGAttachmentProxy& r) { return all(r.uriRepresentation(), r.url(), r.type()); }
    static std::string of(const HGTaskProxy& r) {
        return all(r.uriRepresentation(), r.title(), r.notes(), r.status(), r.starred(), r.priority(), r.due(), r.repeat(),
                   r.projectName(), r.categoryName(), r.categoryColor(), r.categoryIndicator(), r.contributorName(),
                   r.attachmentProxies());
    }
    static std::string of(const HGProjectProxy& r) {
        return all(r.uriRepresentation(), r.name(), r.taskProxyURIs(), r.categoryName(), r.categoryColor(), r.categoryIndicator());
    }
    static std::string of(const HGCategoryProxy& r) { return all(r.uriRepresentation(), r.name(), r.color(), r.indicator()); }
    static std::string of(const HGPortfolioProxy& r) { return all(r.uriRepresentation(), r.name(), r.projectProxyURIs()); }
    static std::string of(const HGTaskProxyList& r) { return all(r.identifier(), r.title(), r.taskProxies()); }
    static std::string of(const HGTaskProxyModel& r) { return all(r.taskProxyLists()); }
    static std::string of(const HGSharedInfo& r) { return all(r.taskProxyModels(), r.badgeValues()); }
    static std::string of(const HGSharedRepository& r) {
        return all(r.generalProjectProxy(), r.categoryProxies(), r.portfolioProxies(), r.projectProxies(), r.taskProxies(),
                   r.categoryProxyURIs(), r.portfolioProxyURIs(), r.topLevelProjectProxyURIs());
    }
};

template <class T> std::string contentOf(const T& value) { return Content::of(value); }
// clang-format on

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
