#include "apps/gallery/Tools.h"

#include "corvane/models/CVTool.h"
#include "corvane/models/CVToolGroup.h"
#include "corvane/models/CVToolManager.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "apps/gallery/BarsPage.h"
#include "apps/gallery/ChoicesPage.h"
#include "apps/gallery/DatesPage.h"
#include "apps/gallery/IconsPage.h"
#include "apps/gallery/ListsPage.h"
#include "apps/gallery/OverviewPages.h"
#include "apps/gallery/RepeatPage.h"
#include "apps/gallery/TaskPage.h"
#include "apps/gallery/Texts.h"

#include <utility>

namespace corvane::gallery {

namespace {

using Make = std::function<std::shared_ptr<views::View>(const Notes& note)>;

void addGroup(const char* identifier, const char* label) {
    CVToolManager::addGroup(std::make_shared<CVToolGroup>(identifier, localized(label)));
}

/// With the badge of that color and indicator.
void addTool(const char* group, const char* identifier, const char* label, std::int64_t color,
             std::int64_t indicator, Make make) {
    auto tool = std::make_shared<CVTool>(identifier, localized(label));
    if (const auto badges = HGCorvaneStyleCollection::indicatorSmallImageMapForColor(color))
        tool->setIcon(badges->imageAtIndex(indicator));
    tool->setNavigationItem(std::make_shared<PageMaker>(PageMaker{std::move(make)}));
    CVToolManager::addTool(std::move(tool), group);
}

}  // namespace

void registerTools(const std::optional<PublishedTasks>& published) {
    addGroup("tasks", "Tasks");
    addTool("tasks", "lists", "Lists", 3, 4, [published](const Notes& note) {
        return std::make_shared<ListsPage>(published, note);
    });
    addTool("tasks", "overview", "Overview", 3, 36,
            [published](const Notes& note) { return makeTasksOverview(published, note); });
    addTool("tasks", "table", "Table", 3, 17,
            [published](const Notes& note) { return makeTasksTable(published, note); });
    addGroup("forms", "Forms");
    addTool("forms", "task", "Task", 2, 10,
            [](const Notes& note) { return std::make_shared<TaskPage>(note); });
    addTool("forms", "repeat", "Repeat", 2, 24,
            [](const Notes& note) { return std::make_shared<RepeatPage>(note); });
    addTool("forms", "dates", "Dates", 2, 9,
            [](const Notes& note) { return std::make_shared<DatesPage>(note); });
    addGroup("controls", "Controls");
    addTool("controls", "choices", "Choices", 5, 1,
            [](const Notes& note) { return std::make_shared<ChoicesPage>(note); });
    addTool("controls", "bars", "Bars", 5, 16,
            [](const Notes& note) { return std::make_shared<BarsPage>(note); });
    addGroup("resources", "Resources");
    addTool("resources", "icons", "Icons", 6, 13,
            [](const Notes&) { return std::make_shared<IconsPage>(); });
    CVToolManager::setStartupToolIdentifier("lists");
}

std::vector<std::string> toolIdentifiers() {
    std::vector<std::string> identifiers;
    for (std::int64_t group = 0; group < CVToolManager::countGroups(); ++group)
        for (const auto& tool : CVToolManager::groupAtIndex(group)->tools())
            identifiers.push_back(tool->identifier());
    return identifiers;
}

}  // namespace corvane::gallery
