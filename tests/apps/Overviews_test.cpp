#include "corvane/platform/Locale.h"
#include "corvane/testing/OverviewModelConformance.h"

#include "apps/document/BackupFile.h"
#include "apps/overviews/DocumentTasksModel.h"
#include "apps/overviews/ProxyTasksModel.h"

#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::tests {
using namespace overviews;
using platform::URL;
using Grouping = DocumentTasksModel::Grouping;
using ::testing::IsEmpty;
using testing::OverviewModelConformance;

std::shared_ptr<HGTaskProxy> proxy(const std::string& uri) {
    auto task = std::make_shared<HGTaskProxy>(URL(uri));
    task->setTitle("Task " + uri);
    return task;
}

TEST(ProxyTasksModel, ListsWhatTheManagerHasLoaded) {
    const auto both = proxy("t:1");
    using List = HGTaskProxyList;
    const auto today = std::make_shared<HGTaskProxyModel>(HGTaskProxyModel::TaskProxyLists{
        std::make_shared<List>(List::TaskProxies{both, proxy("t:2")}, "starred", "Starred"),
        std::make_shared<List>(), std::make_shared<List>(List::TaskProxies{proxy("t:3"), both})});
    HGTaskProxyManager manager;
    auto model = std::make_shared<ProxyTasksModel>(manager, &HGTaskProxyManager::todayModel);
    OverviewModelConformance conformance(model);
    conformance.checkAll();
    manager.reloadTaskProxyModels(
        HGTaskProxyModels{{std::string(HGSharedInfoTaskProxyModelTodayKey), today}});
    conformance.checkAll();
    conformance.checkPreload(today);
    EXPECT_THAT(conformance.findings(), IsEmpty());
    EXPECT_EQ(model->numberOfSections(), 3);
    EXPECT_EQ(model->titleForSection(0), "Starred");
    EXPECT_EQ(model->titleForSection(1), std::nullopt);
    EXPECT_EQ(model->indexPathOfObjectInSection(both, 2), (platform::IndexPath{2, 1}));
    EXPECT_EQ(model->titleForObjectAtIndexPath({0, 1}), "Task t:2");
    EXPECT_EQ(model->taskProxyAtIndexPath({2, 1}), both);
    model->preloadData(std::make_shared<int>());
    EXPECT_EQ(model->state(), EXOverviewModelStateEmpty);
}

/// "Title: a b | Title: c" with the titles of sections and tasks.
std::string shown(const DocumentTasksModel& model) {
    std::string text;
    for (std::int64_t section = 0; section < model.numberOfSections(); ++section) {
        text += (section ? " | " : "") + model.titleForSection(section).value_or("?") + ":";
        for (std::int64_t row = 0; row < model.numberOfObjectsInSection(section); ++row)
            text += " " + model.titleForObjectAtIndexPath({section, row}).value_or("?");
    }
    return text;
}

TEST(DocumentTasksModel, GroupsTheTasksOfADocument) {
    const platform::ScopedLanguages english({"en"});
    const TemporaryDirectory directory;
    const std::string path = directory / "tasks.cvbx";
    backup::BackupDocument document;
    for (const auto name : {"Garden", "None", "Unused", "House"}) {
        auto& project = document.projects.emplace_back();
        project.uri = URL(std::string("p:") + name);
        project.nameRaw = name;
        project.general = std::string_view(name) == "None";
    }
    const struct {
        const char* title;
        const char* project;
        backup::Code status;
    } tasks[] = {{"a", "p:House", 6},   {"b", "p:Garden", 0}, {"c", "p:None", {}},
                 {"d", "p:nowhere", 0}, {"e", "", 3},         {"f", "p:Garden", 8},
                 {"g", "p:House", 6}};
    for (const auto& [title, project, status] : tasks) {
        auto& task = document.tasks.emplace_back();
        task.uri = URL(std::string("t:") + title);
        task.titleRaw = title;
        task.projectRaw = URL(project);
        task.statusRaw = status;
    }
    ASSERT_FALSE(backup::saveBackupDocument(document, path));
    const std::pair<Grouping, std::string> cases[] = {
        {Grouping::Project, "Garden: b f | House: a g | No Project: c d e"},
        {Grouping::Status, "Inbox: b d | Actionable: c e | Completed: a g | Trash: f"}};
    for (const auto& [grouping, text] : cases) {
        auto model = std::make_shared<DocumentTasksModel>(path, grouping);
        OverviewModelConformance conformance(model);
        conformance.checkAll();
        conformance.checkPreload(std::make_shared<const backup::BackupDocument>(document));
        EXPECT_EQ(shown(*model), text);
        const auto newTask = model->templateForNewObjectAtIndexPath({1, 0});
        EXPECT_EQ(newTask->begin()->second,
                  grouping == Grouping::Project ? EXValue(URL("p:House")) : EXValue(3));
        directory.write("tasks.cvbx", "<backup>");
        conformance.checkFailingReload();
        EXPECT_TRUE(model->isEmpty() && !model->document() && model->error()->message.size() > 9);
        ASSERT_FALSE(backup::saveBackupDocument(document, path));
        conformance.checkReload();
        EXPECT_THAT(conformance.findings(), IsEmpty());
    }
}

}  // namespace corvane::tests
