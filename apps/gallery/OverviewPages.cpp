#include "apps/gallery/OverviewPages.h"

#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/CVMacTabularOverview.h"
#include "corvane/models/CVTool.h"
#include "corvane/models/CVToolManager.h"
#include "corvane/table/CVMacTableView.h"

#include "apps/gallery/ExampleProxies.h"
#include "apps/gallery/IconLabelCell.h"
#include "apps/gallery/TaskCell.h"
#include "apps/gallery/TasksController.h"
#include "apps/gallery/Texts.h"

namespace corvane::gallery {

namespace {

std::shared_ptr<TasksController> connect(CVMacOverview& overview,
                                         const std::optional<PublishedTasks>& published,
                                         const Notes& note, const char* tool) {
    overview.makeNavigationCell = [](const CVIndexPath& path) {
        return std::make_shared<IconLabelCell>(path);
    };
    const auto controller = std::make_shared<TasksController>(
        published ? published->models : exampleTaskProxyModels(), note);
    overview.setController(controller);
    overview.splitView()->setAutosaveName(std::string("Gallery ") + tool);
    // The tool owns the controller, which owns the view.
    if (const auto shown = CVToolManager::toolWithIdentifier(tool)) {
        shown->setOverviewController(controller);
        shown->setOverview(controller->overview());
    }
    return controller;
}

}  // namespace

std::shared_ptr<views::View> makeTasksOverview(const std::optional<PublishedTasks>& published,
                                               const Notes& note) {
    auto overview = std::make_shared<CVMacOverview>();
    overview->makeOverviewCell = [](const CVIndexPath& path) {
        return std::make_shared<TaskCell>(path);
    };
    connect(*overview, published, note, "overview");
    return overview;
}

std::shared_ptr<views::View> makeTasksTable(const std::optional<PublishedTasks>& published,
                                            const Notes& note) {
    auto table = std::make_shared<CVMacTabularOverview>();
    table->setColumns(
        {{.identifier = "title",
          .title = localized("Title"),
          .width = 320,
          .minimumWidth = 120,
          .sortable = true,
          .stretches = true},
         {.identifier = "project", .title = localized("Project"), .width = 140, .sortable = true},
         {.identifier = "priority", .title = localized("Priority"), .width = 90, .sortable = true},
         {.identifier = "due",
          .title = localized("Due"),
          .width = 90,
          .alignment = views::TextAlignment::Trailing,
          .sortable = true}});
    table->overviewTable()->setRowHeight(24);
    const auto controller = connect(*table, published, note, "table");
    table->didSelectColumnForSorting = [note, weak = std::weak_ptr(controller)](
                                           const std::string& column, bool ascending) {
        note("Table: by " + column + (ascending ? "" : ", backwards"));
        if (const auto screen = weak.lock()) screen->sortBy(column, ascending);
    };
    return table;
}

}  // namespace corvane::gallery
