#include "apps/gallery/ListsPage.h"

#include "apps/gallery/Panels.h"
#include "apps/gallery/TaskList.h"
#include "apps/gallery/TaskTable.h"
#include "apps/gallery/Texts.h"

namespace corvane::gallery {

namespace {

constexpr double kSettingsWidth = 304;

}  // namespace

ListsPage::ListsPage(const std::optional<PublishedTasks>& published, const Notes& note)
    : Stack(Axis::Across, 1) {
    if (published) {
        tables_ = {TaskTable::make(localized("Today"), published->today, note),
                   TaskTable::make(localized("Next"), published->next, note)};
    } else {
        tables_ = {TaskTable::make(localized("Home"), exampleTasksForHome(), note),
                   TaskTable::make(localized("Work"), exampleTasksForWork(), note)};
    }
    list_ = TaskList::make(localized("Shopping"), exampleShopping(), note);
    for (const auto& table : tables_)
        add(scrolling(table->sharedTable()), {.share = 3});
    add(list_->scrollView(), {.share = 2});
    add(Pane::make(makeTableSettingsPanel(tables_)), {.length = kSettingsWidth});
}

}  // namespace corvane::gallery
