#include "apps/gallery/TasksController.h"

#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/controls/CVMacOverview.h"
#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/controls/CVMacTabularCell.h"
#include "corvane/controls/MapImage.h"
#include "corvane/models/CVAction.h"
#include "corvane/platform/NumberText.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/views/Alert.h"
#include "corvane/views/Menu.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "apps/gallery/EditableTasksModel.h"
#include "apps/gallery/IconLabelCell.h"
#include "apps/gallery/TaskCell.h"
#include "apps/gallery/Texts.h"

#include <array>
#include <utility>

namespace corvane::gallery {

namespace {

constexpr std::int16_t kActionable = 3;
constexpr std::int16_t kCompleted = 6;
constexpr std::int64_t kToday = 1;
constexpr std::int64_t kScopeStarred = 1;

struct View {
    const char* title;
    overviews::ProxyTasksModel::View view;
    std::int64_t status;  ///< whose icon stands for it
};

constexpr std::array kViews{
    View{"Inbox", &HGTaskProxyManager::inboxModel, 0},
    View{"Today", &HGTaskProxyManager::todayModel, 3},
    View{"Next", &HGTaskProxyManager::nextModel, 4},
    View{"Waiting For", &HGTaskProxyManager::waitingForModel, 5},
};

platform::ImagePtr statusIcon(std::int64_t status) {
    return mapImage(EXImageMap::imageMapNamed("TaskStatusSmallImageMap").get(), status);
}

/// Which asks the screen whether it can be invoked.
class ScreenAction final : public CVAction {
  public:
    using CVAction::CVAction;
    bool validate() const override { return !isValid || isValid(); }
    std::function<bool()> isValid;
};

std::string textOf(const std::optional<std::string_view>& text) {
    return std::string(text.value_or(""));
}

bool isBefore(const HGTaskProxy& a, const HGTaskProxy& b, const std::string& column) {
    if (column == "priority") return a.priority() < b.priority();
    // Those without a day come last.
    constexpr EXDateOnly kNever(9999, 12, 31);
    if (column == "due") return a.due().value_or(kNever) < b.due().value_or(kNever);
    const bool byProject = column == "project";
    const auto text = [&](const HGTaskProxy& task) {
        return EXLocalizable::collationForString(
            textOf(byProject ? task.projectName() : task.title()));
    };
    return text(a) < text(b);
}

}  // namespace

TasksController::TasksController(const HGTaskProxyModels& models, Notes note)
    : manager_(models), note_(std::move(note)) {
    for (const auto& [title, view, status] : kViews) {
        models_.push_back(std::make_shared<EditableTasksModel>(manager_, view));
        models_.back()->setTitle(localized(title));
        models_.back()->reloadData();
    }
    makeActions();
    setModel(models_[kToday]);
}

TasksController::~TasksController() = default;

TasksController::TasksModel TasksController::currentModel() const {
    return std::static_pointer_cast<EditableTasksModel>(model());
}

std::shared_ptr<HGTaskProxy> TasksController::taskAt(const IndexPath& path) const {
    return objectAtIndexPath(path).as<HGTaskProxy>();
}

void TasksController::overviewDidLoad() {
    OverviewModelController::overviewDidLoad();
    const auto view = this->view();
    view->searchBar()->setScopes({localized("All"), localized("Starred")});
    view->statusBar()->setStatusIcon(statusIcon(kActionable), localized("Lists"));
    showCounts();
}

void TasksController::overviewDidAppear() {
    const auto view = this->view();
    if (view && !view->navigationTable()->indexPathForSelectedRow())
        view->navigationTable()->selectCellWithIndexPath({0, kToday});
}

void TasksController::modelDidChange() {
    showCounts();
}

void TasksController::showCounts() {
    const auto view = this->view();
    const auto model = currentModel();
    if (!view || !model) return;
    view->statusBar()->setText(localized("Tasks") + ": " +
                               platform::numberText(model->taskCount()));
    std::vector<CVIndexPath> rows;
    for (std::int64_t row = 0; row < std::ssize(models_); ++row)
        rows.emplace_back(0, row);
    view->navigationTable()->reloadRowsAtIndexPaths(rows, 0);
}

// The views at the side.

TasksController::Text TasksController::navigationTitle() const {
    return localized("Views");
}

std::int64_t TasksController::numberOfRowsInNavigationSection(std::int64_t) const {
    return std::ssize(models_);
}

void TasksController::configureNavigationCell(CVMacTableViewCell& cell, const IndexPath& path) {
    const auto row = static_cast<std::size_t>(path.row());
    if (auto* shown = dynamic_cast<IconLabelCell*>(&cell); shown && row < models_.size())
        shown->show(statusIcon(kViews[row].status), localized(kViews[row].title),
                    models_[row]->taskCount());
}

void TasksController::navigationDidSelectRowAtIndexPath(const IndexPath& path) {
    note_("Overview: shows " + std::string(kViews.at(static_cast<std::size_t>(path.row())).title));
    setModel(models_.at(static_cast<std::size_t>(path.row())));
    filter();
    showCounts();
}

bool TasksController::navigationWillDropSourceIndexPaths(const IndexPaths&, CVOverview& source,
                                                         const IndexPath& target) {
    const auto row = static_cast<std::size_t>(target.row());
    return &source == overview().get() && row < models_.size() && models_[row] != currentModel();
}

bool TasksController::navigationDidDropSourceIndexPaths(const IndexPaths& paths, CVOverview& source,
                                                        const IndexPath& target) {
    if (!navigationWillDropSourceIndexPaths(paths, source, target)) return false;
    const auto row = static_cast<std::size_t>(target.row());
    note_("Overview: moves " + std::to_string(paths.size()) + " to " + kViews[row].title);
    std::vector<EXObject> moved;
    for (const auto& path : paths)
        if (auto object = objectAtIndexPath(path)) moved.push_back(std::move(object));
    for (const auto& object : moved) {
        models_[row]->append(object.as<HGTaskProxy>());
        if (const auto place = model()->indexPathOfObject(object))
            currentModel()->deleteObjectAtIndexPath(*place);
    }
    return true;
}

bool TasksController::navigationDidDropTexts(const Texts& texts, const IndexPath& target) {
    const auto row = static_cast<std::size_t>(target.row());
    if (row >= models_.size()) return false;  // below the last list
    for (const auto& text : texts) {
        auto task = std::make_shared<HGTaskProxy>();
        task->setTitle(text);
        models_[row]->append(task);
    }
    showCounts();
    return true;
}

// Commands.

void TasksController::makeActions() {
    const auto add = [this](const char* title, std::int64_t icon) {
        auto action = std::make_shared<ScreenAction>(title, std::ssize(actions_));
        action->setTitle(localized(title));
        if (icon >= 0) action->setIcon(statusIcon(icon));
        actions_.push_back(action);
        return action;
    };
    add("New Task", kActionable)->setAddAction(true);
    for (const auto& [title, icon] : {std::pair("Complete", 6), std::pair("Delete", 8)})
        add(title, icon)->isValid = [this] { return hasSelection(); };
    CVAction::SubActions orders;
    for (const char* order : {"Title", "Project", "Priority", "Due"}) {
        auto by =
            std::make_shared<ScreenAction>(std::string("Sort by ") + order, std::ssize(orders));
        by->setTitle(localized(order));
        orders.push_back(std::move(by));
    }
    add("Sort by", -1)->setSubActions(std::move(orders));
}

TasksController::Action TasksController::overviewActionAtIndex(std::int64_t index) const {
    return actions_.at(static_cast<std::size_t>(index));
}

bool TasksController::hasSelection() const {
    const auto view = this->view();
    return view && view->overviewTable()->indexPathForSelectedRow().has_value();
}

void TasksController::didInvokeOverviewAction(CVAction& action) {
    const std::string& name = action.identifier();
    note_("Overview: " + name);
    const auto view = this->view();
    if (!view) return;
    if (name == "New Task") view->overviewTable()->startInlineEditingRowAtIndexPath(std::nullopt);
    if (name == "Complete") completeSelection();
    if (name == "Delete") deleteSelection();
    if (name == "Sort by Title") sortBy("title", true);
    if (name == "Sort by Project") sortBy("project", true);
    if (name == "Sort by Priority") sortBy("priority", false);
    if (name == "Sort by Due") sortBy("due", true);
}

void TasksController::sortBy(const std::string& column, bool ascending) {
    const auto view = this->view();
    if (!view) return;
    currentModel()->sort([&](const HGTaskProxy& a, const HGTaskProxy& b) {
        return ascending ? isBefore(a, b, column) : isBefore(b, a, column);
    });
    view->overviewTable()->reloadData();
}

void TasksController::completeSelection() {
    const auto view = this->view();
    const auto paths = view->overviewTable()->allIndexPathsForSelectedRows();
    for (const auto& path : paths)
        if (const auto task = taskAt(path)) task->setStatus(kCompleted);
    view->overviewTable()->reloadRowsAtIndexPaths({paths.begin(), paths.end()}, 0);
}

void TasksController::deleteSelection() {
    const auto view = this->view();
    const auto count = view->overviewTable()->allIndexPathsForSelectedRows().size();
    if (count < 2) return view->overviewTable()->performDeleteSelectedRows();
    views::Alert question;
    question.messageText = localized("Delete the selected tasks?");
    question.informativeText = localized("They cannot be brought back.");
    question.buttons = {localized("Delete"), localized("Cancel")};
    view->showConfirmationSheet(std::move(question));
}

void TasksController::confirmationSheet(const views::Alert&, std::int64_t button) {
    note_("Overview: answer " + std::to_string(button));
    const auto view = this->view();
    if (button == 0 && view) view->overviewTable()->performDeleteSelectedRows();
}

// The tasks.

void TasksController::configureOverviewCell(CVMacTableViewCell& cell, const IndexPath& path) {
    const auto task = cell.placeholderCell() ? nullptr : taskAt(path);
    if (auto* shown = dynamic_cast<TaskCell*>(&cell))
        return shown->show(task ? shownTask(*task) : ExampleTask());
    auto* row = dynamic_cast<CVMacTabularCell*>(&cell);
    if (!row) return;
    const ExampleTask shown = task ? shownTask(*task) : ExampleTask();
    row->setColumnEditable("title", true);
    row->setTextForColumn("title", shown.title);
    row->setTextForColumn("project", shown.note);
    row->setTextForColumn("due", shown.due);
    const auto priorities = HGChoiceListFactory::priorityChoiceListInNaturalOrder();
    const auto place = task ? priorities->indexForItemWithValue(EXValue(task->priority())) : -1;
    row->setTextForColumn("priority", priorities->titleForItemAtIndex(place).value_or(""));
}

void TasksController::overviewDidSelectRowAtIndexPath(const IndexPath& path) {
    note_("Overview: selects " + std::to_string(path.section()) + "." + std::to_string(path.row()));
}

void TasksController::overviewDidDoubleSelectRowAtIndexPath(const IndexPath& path) {
    if (const auto view = this->view())
        view->overviewTable()->startInlineEditingRowAtIndexPath(path);
}

void TasksController::overviewAccessoryButtonTappedForRowWithIndexPath(const IndexPath& path) {
    const auto task = taskAt(path);
    const auto view = this->view();
    if (!task || !view) return;
    task->setStatus(task->status() == kCompleted ? kActionable : kCompleted);
    view->overviewTable()->reloadRowsAtIndexPaths({path}, 0);
}

void TasksController::overviewCommitEditingStyle(CVMacTableViewEditingStyle style,
                                                 const IndexPath& path) {
    if (style == CVMacTableViewEditingStyle::Delete)
        return OverviewModelController::overviewCommitEditingStyle(style, path);
    const auto view = this->view();
    const auto cell = view ? view->overviewTable()->cellForRowAtIndexPath(path) : nullptr;
    std::string title;
    if (const auto* shown = dynamic_cast<const TaskCell*>(cell.get())) title = shown->title();
    if (const auto* row = dynamic_cast<const CVMacTabularCell*>(cell.get()))
        title = row->textForColumn("title");
    note_("Overview: " +
          std::string(style == CVMacTableViewEditingStyle::Insert ? "inserts " : "edits ") + title);
    if (style == CVMacTableViewEditingStyle::Insert) {
        auto task = std::make_shared<HGTaskProxy>();
        task->setTitle(title);
        currentModel()->insert(task, path.toNSIndexPath());
    } else if (const auto task = taskAt(path)) {
        task->setTitle(title);
    }
}

bool TasksController::overviewDidDropTexts(const Texts& texts, const IndexPath& target) {
    for (const auto& text : texts) {
        auto task = std::make_shared<HGTaskProxy>();
        task->setTitle(text);
        currentModel()->insert(task, {target.section(), target.row() + 1});
    }
    return true;
}

TasksController::Menu TasksController::overviewContextMenuForRowAtIndexPath(const IndexPath&) {
    auto menu = std::make_shared<views::Menu>();
    for (const char* name : {"Complete", "Delete"}) {
        const auto action = std::find_if(actions_.begin(), actions_.end(), [&](const auto& one) {
            return one->identifier() == name;
        });
        menu->addItem(localized(name), [this, invoked = *action](views::MenuItem&) {
            didInvokeOverviewAction(*invoked);
        });
    }
    return menu;
}

TasksController::Menu TasksController::overviewContextMenuForStatusIcon() {
    auto menu = std::make_shared<views::Menu>();
    menu->addItem(localized("Reload"), [this](views::MenuItem&) { currentModel()->reloadData(); });
    return menu;
}

// Searching.

void TasksController::overviewDidSearchForString(const std::string& text) {
    note_("Overview: searches for " + text);
    searched_ = EXLocalizable::collationForString(text);
    filter();
}

void TasksController::overviewDidClearSearch() {
    searched_.clear();
    filter();
}

void TasksController::overviewDidSelectScope(std::int64_t scope) {
    note_("Overview: scope " + std::to_string(scope));
    onlyStarred_ = scope == kScopeStarred;
    filter();
}

void TasksController::filter() {
    const auto view = this->view();
    if (!view) return;
    if (searched_.empty() && !onlyStarred_)
        return view->overviewTable()->filterRowsWithIndexPaths(std::nullopt);
    std::set<CVIndexPath> matches;
    for (const auto& path : model()->indexPathsForAllObjects()) {
        const auto task = model()->objectAtIndexPath(path).as<HGTaskProxy>();
        const auto title = EXLocalizable::collationForString(textOf(task->title()));
        if ((!onlyStarred_ || task->starred()) && title.find(searched_) != std::string::npos)
            matches.emplace(path);
    }
    view->overviewTable()->filterRowsWithIndexPaths(matches);
}

}  // namespace corvane::gallery
