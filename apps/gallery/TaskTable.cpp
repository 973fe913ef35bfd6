#include "apps/gallery/TaskTable.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/views/Menu.h"

#include "apps/gallery/TaskCell.h"
#include "apps/gallery/TaskList.h"

#include <algorithm>

namespace corvane::gallery {

std::shared_ptr<TaskTable> TaskTable::make(std::string name, std::vector<ExampleSection> sections,
                                           Log log) {
    std::shared_ptr<TaskTable> made(
        new TaskTable(std::move(name), std::move(sections), std::move(log)));
    made->table_->setDataSource(made);
    made->table_->setDelegate(made);
    made->table_->reloadData();
    return made;
}

TaskTable::TaskTable(std::string name, std::vector<ExampleSection> sections, Log log)
    : name_(std::move(name)),
      sections_(std::move(sections)),
      log_(std::move(log)),
      table_(std::make_shared<Table>()) {
    table_->setDebugName(name_);
    table_->setAccessibilityName(name_);
    table_->setAllowsMultipleSelections(true);
    answerQuestions();
    followEditing();
    followSelection();
    followDrops();
}

void TaskTable::note(const std::string& what, const std::optional<Path>& path) {
    if (!log_) return;
    log_(name_ + ": " + what +
         (path ? " " + std::to_string(path->section()) + "." + std::to_string(path->row()) : ""));
}

// What there is.

void TaskTable::setSections(std::vector<ExampleSection> sections) {
    sections_ = std::move(sections);
    table_->reloadData();
}

std::vector<ExampleTask>& TaskTable::tasksOf(const Path& path) {
    return sections_.at(static_cast<std::size_t>(path.section())).tasks;
}

ExampleTask* TaskTable::taskAt(const Path& path) {
    if (path.section() < 0 || path.row() < 0) return nullptr;
    if (static_cast<std::size_t>(path.section()) >= sections_.size()) return nullptr;
    auto& tasks = tasksOf(path);
    const auto row = static_cast<std::size_t>(path.row());
    return row < tasks.size() ? &tasks[row] : nullptr;
}

std::optional<std::string> TaskTable::titleAt(const Path& path) {
    const ExampleTask* task = taskAt(path);
    return task ? std::optional(task->title) : std::nullopt;
}

TaskTable::CellPtr TaskTable::tableViewCellForRowAtIndexPath(Table&, const Path& path,
                                                             const CellPtr& reusableCell) {
    auto cell = std::dynamic_pointer_cast<TaskCell>(reusableCell);
    if (!cell) cell = std::make_shared<TaskCell>(path);
    const ExampleTask* task = taskAt(path);
    cell->show(task ? *task : ExampleTask());
    return cell;
}

std::int64_t TaskTable::numberOfSectionsInTableView(Table&) {
    return static_cast<std::int64_t>(sections_.size());
}

std::optional<std::string> TaskTable::tableViewTitleForHeaderInSection(Table&,
                                                                       std::int64_t section) {
    return sections_.at(static_cast<std::size_t>(section)).title;
}

std::int64_t TaskTable::tableViewNumberOfRowsInSection(Table&, std::int64_t section) {
    return static_cast<std::int64_t>(sections_.at(static_cast<std::size_t>(section)).tasks.size());
}

void TaskTable::filter(const std::string& text) {
    if (text.empty()) return table_->filterRowsWithIndexPaths(std::nullopt);
    std::set<Path> matches;
    for (std::size_t section = 0; section < sections_.size(); ++section)
        for (std::size_t row = 0; row < sections_[section].tasks.size(); ++row)
            if (sections_[section].tasks[row].title.find(text) != std::string::npos)
                matches.emplace(static_cast<std::int64_t>(section), static_cast<std::int64_t>(row));
    table_->filterRowsWithIndexPaths(matches);
}

// Editing.

void TaskTable::answerQuestions() {
    const auto isEditable = [this](Table&, const Path&) { return editable_; };
    tableViewCanEditRowAtIndexPath = isEditable;
    tableViewCanMoveRowAtIndexPath = isEditable;
    tableViewCanStartInlineEditingRowAtIndexPath = isEditable;
    tableViewCanInlineInsertRowAtIndexPath = isEditable;
    tableViewCanInlineEditRowAtIndexPath = isEditable;
    CVMacTableViewDataSource::tableViewTargetIndexPathForMove =
        [](Table&, const Path&, const Path& proposed) { return proposed; };
    tableViewPlaceholderCellForRowAtIndexPath = [](Table&, const Path& path) -> CellPtr {
        auto cell = std::make_shared<TaskCell>(path);
        cell->show({});
        return cell;
    };
    tableViewContextMenuForRowAtIndexPath = [this](Table&, const Path& path) {
        return menuFor(path);
    };
}

void TaskTable::followEditing() {
    tableViewCommitEditingStyle = [this](Table&, CVMacTableViewEditingStyle style,
                                         const Path& path) { commit(style, path); };
    tableViewMoveRowAtIndexPath = [this](Table&, const Path& from, const Path& to) {
        move(from, to);
    };
    CVMacTableViewDataSource::beginMovingRowsInTableView = [this](Table&) {
        note("begins to move rows");
    };
    CVMacTableViewDelegate::beginMovingRowsInTableView = [](Table&) {};
    commitMovingRowsInTableView = [this](Table&) { note("has moved rows"); };
    tableViewAccessoryButtonTappedForRowWithIndexPath = [this](Table& table, const Path& path) {
        note("box was clicked of", path);
        ExampleTask* task = taskAt(path);
        if (!task || !editable_) return;
        task->done = !task->done;
        table.reloadRowsAtIndexPaths({path}, 0);
    };
}

void TaskTable::commit(CVMacTableViewEditingStyle style, const Path& path) {
    if (style == CVMacTableViewEditingStyle::Delete) {
        note("deletes", path);
        if (!taskAt(path)) {
            // A row that was never filled in.
            table_->deleteRowsAtIndexPaths({path}, 0);
            return;
        }
        auto& tasks = tasksOf(path);
        tasks.erase(tasks.begin() + path.row());
        table_->deleteRowsAtIndexPaths({path}, 0);
        return;
    }
    const auto cell = std::dynamic_pointer_cast<TaskCell>(table_->cellForRowAtIndexPath(path));
    if (!cell) return;
    if (style == CVMacTableViewEditingStyle::Insert) {
        note("inserts", path);
        auto& tasks = tasksOf(path);
        const auto row = std::min(path.row(), static_cast<std::int64_t>(tasks.size()));
        tasks.insert(tasks.begin() + row,
                     ExampleTask{cell->title(), cell->note(), "", false, 0, 0});
    } else if (ExampleTask* task = taskAt(path)) {
        note("edits", path);
        task->title = cell->title();
        task->note = cell->note();
    }
}

void TaskTable::move(const Path& from, const Path& to) {
    note("moves", from);
    if (!taskAt(from)) return;
    ExampleTask task = std::move(*taskAt(from));
    auto& source = tasksOf(from);
    source.erase(source.begin() + from.row());
    auto& target = tasksOf(to);
    const auto row = std::min(to.row(), static_cast<std::int64_t>(target.size()));
    target.insert(target.begin() + row, std::move(task));
}

std::shared_ptr<views::Menu> TaskTable::menuFor(const Path& path) {
    const auto paths = table_->sortedContextIndexPathsByAutoSelectingIndexPath(path);
    auto menu = std::make_shared<views::Menu>();
    const std::weak_ptr<TaskTable> weak = weak_from_this();
    menu->addItem("Edit", [weak, path](views::MenuItem&) {
        if (const auto self = weak.lock()) self->table_->startInlineEditingRowAtIndexPath(path);
    });
    menu->addSeparator();
    const auto count = paths ? paths->size() : 0;
    menu->addItem(count > 1 ? "Delete " + std::to_string(count) + " Tasks" : "Delete",
                  [weak](views::MenuItem&) {
                      if (const auto self = weak.lock()) self->table_->performDeleteSelectedRows();
                  })
        .setValidation([this, weak] { return !weak.expired() && editable_; });
    return menu;
}

// Selection and drops.

void TaskTable::followSelection() {
    tableViewDidSelectRowAtIndexPath = [this](Table&, const Path& path) { note("selects", path); };
    tableViewDidDoubleClickRowAtIndexPath = [this](Table& table, const Path& path) {
        note("double click on", path);
        if (editable_) table.startInlineEditingRowAtIndexPath(path);
    };
    didClearSelectionForTableView = [this](Table&) { note("selects nothing"); };
    didExitTableView = [this](Table&) { note("is left"); };
    tableViewAllowsStartDrag = [this](Table&) { return editable_; };
    tableViewDragableTextForRowAtIndexPath = [this](Table&, const Path& path) {
        return titleAt(path);
    };
}

void TaskTable::followDrops() {
    const auto isEditable = [this] { return editable_; };
    tableViewWillDropSourceIndexPaths = [isEditable](auto&&...) { return isEditable(); };
    tableViewWillDropTexts = [isEditable](auto&&...) { return isEditable(); };
    tableViewWillDropSourceIndex = [isEditable](auto&&...) { return isEditable(); };
    tableViewWillDropURL = [isEditable](auto&&...) { return isEditable(); };
    tableViewDidDropSourceIndexPaths = [this](Table&, const std::vector<Path>& paths, Table& source,
                                              const Path& target) {
        return takeRows(paths, source, target);
    };
    tableViewDidDropTexts = [this](Table&, const std::vector<std::string>& texts,
                                   const Path& target) {
        note("texts are dropped on", target);
        for (const auto& text : texts)
            append(text, target);
        return true;
    };
    tableViewDidDropSourceIndex = [this](Table&, std::int64_t index, HGMacListView& source,
                                         const Path& target) {
        note("an item is dropped on", target);
        const auto list = std::dynamic_pointer_cast<TaskList>(source.delegate());
        if (list) append(list->take(index), target);
        return list != nullptr;
    };
    tableViewDidDropURL = [this](Table&, const platform::URL& url, const std::string& name,
                                 const Path& target) {
        note("a URL is dropped on", target);
        append(name.empty() ? std::string(url.absoluteString()) : name, target);
        return true;
    };
}

bool TaskTable::takeRows(const std::vector<Path>& paths, Table& source, const Path& target) {
    note("rows are dropped on", target);
    auto* from = dynamic_cast<TaskTable*>(source.dataSource().get());
    if (!from) return false;
    std::vector<ExampleTask> taken;
    for (const Path& path : paths)
        if (const ExampleTask* task = from->taskAt(path)) taken.push_back(*task);
    source.performDeleteRowsAtIndexPaths(paths);
    auto& tasks = tasksOf(target);
    auto row =
        std::clamp<std::int64_t>(target.row() + 1, 0, static_cast<std::int64_t>(tasks.size()));
    std::vector<Path> inserted;
    for (auto& task : taken) {
        tasks.insert(tasks.begin() + row, std::move(task));
        inserted.emplace_back(target.section(), row++);
    }
    table_->insertRowsAtIndexPaths(inserted, 0);
    return true;
}

void TaskTable::append(const std::string& title, const Path& near) {
    auto& tasks = tasksOf(near);
    tasks.push_back({title, "", "", false, 0, 0});
    table_->insertRowsAtIndexPaths(
        {Path(near.section(), static_cast<std::int64_t>(tasks.size()) - 1)}, 0);
}

}  // namespace corvane::gallery
