// The rows of an overview's tables: what there is, and what becomes of them.

#include "corvane/controls/OverviewHooks.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/OptionalCall.h"

#include <utility>

namespace corvane {

using Controller = CVOverviewController;

CVMacOverview::List CVMacOverview::listOf(const Table& table) const {
    if (&table == navigationTable_.get()) return List::Navigation;
    return &table == overviewTable_.get() ? List::Overview : List::None;
}

// What there is.

CVMacOverview::Index CVMacOverview::numberOfSectionsInTableView(Table& table) {
    return Hooks{*this}.ofBothLists(&Controller::numberOfSectionsInNavigation,
                                    &Controller::numberOfSectionsInOverview)(table);
}

std::optional<std::string> CVMacOverview::tableViewTitleForHeaderInSection(Table& table,
                                                                           Index section) {
    return Hooks{*this}.ofBothLists(&Controller::titleForHeaderInNavigationSection,
                                    &Controller::titleForHeaderInOverviewSection)(table, section);
}

CVMacOverview::Index CVMacOverview::tableViewNumberOfRowsInSection(Table& table, Index section) {
    return Hooks{*this}.ofBothLists(&Controller::numberOfRowsInNavigationSection,
                                    &Controller::numberOfRowsInOverviewSection)(table, section);
}

void CVMacOverview::passRows() {
    tableViewHeightForHeaderInSection =
        Hooks{*this}.ofBothLists(&Controller::heightForHeaderInNavigationSection,
                                 &Controller::heightForHeaderInOverviewSection);
}

CVMacOverview::CellPtr CVMacOverview::makeCell(List list, const Path& path) const {
    const auto& make = list == List::Navigation ? makeNavigationCell : makeOverviewCell;
    CellPtr cell = make ? callOperation(make, path) : nullptr;
    return cell ? cell : std::make_shared<CVMacTableViewCell>(path);
}

CVMacOverview::CellPtr CVMacOverview::tableViewCellForRowAtIndexPath(Table& table, const Path& path,
                                                                     const CellPtr& reusableCell) {
    const List list = listOf(table);
    const auto controller = this->controller();
    if (!controller || list == List::None) return nullptr;
    CellPtr cell = reusableCell ? reusableCell : makeCell(list, path);
    if (list == List::Navigation) {
        controller->configureNavigationCell(*cell, path);
    } else {
        controller->configureOverviewCell(*cell, path);
    }
    return cell;
}

// Editing, moving and inserting.

void CVMacOverview::passEditing() {
    using Source = CVMacTableViewDataSource;
    using Delegate = CVMacTableViewDelegate;
    const Hooks hooks{*this};
    tableViewCanEditRowAtIndexPath = hooks.ofBothLists(&Controller::navigationCanEditRowAtIndexPath,
                                                       &Controller::overviewCanEditRowAtIndexPath);
    tableViewCommitEditingStyle = hooks.ofBothLists(&Controller::navigationCommitEditingStyle,
                                                    &Controller::overviewCommitEditingStyle);

    tableViewCanMoveRowAtIndexPath = hooks.ofBothLists(&Controller::navigationCanMoveRowAtIndexPath,
                                                       &Controller::overviewCanMoveRowAtIndexPath);
    Source::beginMovingRowsInTableView = hooks.ofBothLists(&Controller::navigationBeginMovingRows,
                                                           &Controller::overviewBeginMovingRows);
    Delegate::beginMovingRowsInTableView = [](Table&) {};
    tableViewMoveRowAtIndexPath = hooks.ofBothLists(&Controller::navigationMoveRowAtIndexPath,
                                                    &Controller::overviewMoveRowAtIndexPath);
    commitMovingRowsInTableView = hooks.ofBothLists(&Controller::navigationCommitMovingRows,
                                                    &Controller::overviewCommitMovingRows);
    const auto target = hooks.ofBothLists<std::optional<Path>>(
        &Controller::navigationTargetIndexPathForMoveFromRowAtIndexPath,
        &Controller::overviewTargetIndexPathForMoveFromRowAtIndexPath);
    Source::tableViewTargetIndexPathForMove = target;
    Delegate::tableViewTargetIndexPathForMove = target;

    tableViewCanStartInlineEditingRowAtIndexPath =
        hooks.ofOverviewAlone(&Controller::canStartInlineEditingOverviewRowAtIndexPath);
    tableViewPlaceholderIndexPathForAppendingToSection =
        hooks.ofOverviewAlone(&Controller::placeholderIndexPathForAppendingToOverviewSection);
    tableViewCanInlineInsertRowAtIndexPath =
        hooks.ofOverviewAlone(&Controller::overviewCanInlineInsertRowAtIndexPath);
    tableViewCanInlineEditRowAtIndexPath =
        hooks.ofOverviewAlone(&Controller::overviewCanInlineEditRowAtIndexPath);
    tableViewPlaceholderCellForRowAtIndexPath = [this](Table& table, const Path& path) {
        return listOf(table) == List::Overview ? makePlaceholder(path) : nullptr;
    };
}

CVMacOverview::CellPtr CVMacOverview::makePlaceholder(const Path& path) {
    const auto controller = this->controller();
    // Tab behind the last row asks for a placeholder without a question before. Where nothing can
    // be inserted it could only be filled in for nothing.
    if (!controller || !controller->overviewCanInlineInsertRowAtIndexPath(path)) return nullptr;
    controller->overviewInsertPlaceholderRowAtIndexPath(path);
    CellPtr cell = makeCell(List::Overview, path);
    cell->setPlaceholderCell(true);
    controller->configureOverviewCell(*cell, path);
    return cell;
}

}  // namespace corvane
