// Selecting, and walking by keys.

#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Window.h"

namespace corvane {

// The selection.

CVMacTableView::OptionalPath CVMacTableView::indexPathForSelectedRow() const {
    return pathOf(selection_.primary());
}

CVMacTableView::PathSet CVMacTableView::allIndexPathsForSelectedRows() {
    PathSet paths;
    for (const IndexPath& path : selection_.sortedPaths())
        paths.insert(paths.end(), path);
    return paths;
}

void CVMacTableView::clearSelectionNeedingDisplay(bool needingDisplay) {
    selection_.clear();
    if (needingDisplay) setNeedsDisplay();
}

void CVMacTableView::performClearSelection() {
    clearSelection();
    notify(delegate(), &CVMacTableViewDelegate::didClearSelectionForTableView, *this);
}

void CVMacTableView::selectCell(const CellPtr& cell, bool clearPreviousSelection) {
    if (cell && rows_.holds(*cell)) selection_.select(cell, clearPreviousSelection);
}

void CVMacTableView::selectCellWithIndexPath(const CVIndexPath& path) {
    selectCell(cellForRowAtIndexPath(path), true);
}

void CVMacTableView::selectAllCells() {
    if (!allowsMultipleSelections()) return;
    selection_.selectAll(rows_);
    setNeedsDisplay();
}

void CVMacTableView::deselectCell(const CellPtr& cell) {
    selection_.deselect(cell);
}

void CVMacTableView::selectRangeToCell(const CellPtr& cell) {
    if (cell && rows_.holds(*cell)) selection_.selectRange(rows_, cell);
}

CVMacTableView::OptionalPath CVMacTableView::willSelectRowAtIndexPath(const CVIndexPath& path) {
    trace("[CVMacTableView willSelectRowAtIndexPath]");
    return path;
}

void CVMacTableView::didSelectRowAtIndexPath(const CVIndexPath& path, Mode mode,
                                             bool informDelegate) {
    trace("[CVMacTableView didSelectRowAtIndexPath]");
    if (ask(delegate(), &CVMacTableViewDelegate::tableViewWillSelectRowAtIndexPath,
            OptionalPath(path), *this, path) != path)
        return;
    const CellPtr cell = cellForRowAtIndexPath(path);
    switch (mode) {
        case Mode::Alone:
            selectCell(cell, true);
            break;
        case Mode::Add:
            selectCell(cell, false);
            break;
        case Mode::Remove:
            deselectCell(cell);
            break;
        case Mode::Range:
            selectRangeToCell(cell);
            break;
    }
    setNeedsDisplay();
    if (informDelegate) tell(&CVMacTableViewDelegate::tableViewDidSelectRowAtIndexPath, path);
}

void CVMacTableView::didSelectRowAtIndexPath(const CVIndexPath& path, Mode mode) {
    didSelectRowAtIndexPath(path, mode, true);
}

void CVMacTableView::performSelectRowAtIndexPath(const CVIndexPath& path, bool informDelegate) {
    const CellPtr cell = cellForRowAtIndexPath(path);
    if (!cell) return;
    if (window()) window()->makeFirstResponder(cell);
    if (informDelegate && rows_.holds(*cell))
        didSelectRowAtIndexPath(cell->indexPath(), Mode::Alone, true);
}

std::optional<CVMacTableView::Paths>
CVMacTableView::sortedContextIndexPathsByAutoSelectingIndexPath(const OptionalPath& path) {
    const CellPtr cell = path ? cellForRowAtIndexPath(*path) : nullptr;
    if (!selection_.isEmpty() && (!path || (cell && selection_.contains(*cell)))) {
        Paths paths;
        for (const IndexPath& selected : selection_.sortedPaths())
            paths.emplace_back(selected);
        return paths;
    }
    if (!path) return std::nullopt;
    selectCell(cell, true);
    setNeedsDisplay();
    if (cell && informDelegateWhenAutoSelecting())
        tell(&CVMacTableViewDelegate::tableViewDidSelectRowAtIndexPath, *path);
    return Paths{*path};
}

// Notices and menus.

void CVMacTableView::tell(Notice notice, const CVIndexPath& path) {
    notify(delegate(), notice, *this, path);
}

void CVMacTableView::didDoubleClickRowAtIndexPath(const CVIndexPath& path) {
    tell(&CVMacTableViewDelegate::tableViewDidDoubleClickRowAtIndexPath, path);
}

void CVMacTableView::willTapAccessoryButtonForRowWithIndexPath(const CVIndexPath& path) {
    tell(&CVMacTableViewDelegate::tableViewWillTapAccessoryButtonForRowAtIndexPath, path);
}

void CVMacTableView::accessoryButtonTappedForRowWithIndexPath(const CVIndexPath& path) {
    tell(&CVMacTableViewDelegate::tableViewAccessoryButtonTappedForRowWithIndexPath, path);
}

void CVMacTableView::accessoryButtonDoubleTappedForRowWithIndexPath(const CVIndexPath& path) {
    tell(&CVMacTableViewDelegate::tableViewAccessoryButtonDoubleTappedForRowWithIndexPath, path);
}

void CVMacTableView::cellDidExitRow(Cell&) {
    notify(delegate(), &CVMacTableViewDelegate::didExitTableView, *this);
}

CVMacTableView::MenuPtr CVMacTableView::contextMenu(Cell& cell, MenuQuestion question) {
    const auto delegate = this->delegate();
    if (!delegate || !((*delegate).*question)) return nullptr;
    const CellPtr share = shareOf(cell);
    if (!share) return nullptr;
    // What the menu is about shows as selected.
    sortedContextIndexPathsByAutoSelectingIndexPath(share->indexPath());
    return ask(delegate, question, MenuPtr(), *this, share->indexPath());
}

CVMacTableView::MenuPtr CVMacTableView::contextMenuForCell(Cell& cell) {
    return contextMenu(cell, &CVMacTableViewDelegate::tableViewContextMenuForRowAtIndexPath);
}

CVMacTableView::MenuPtr CVMacTableView::contextMenuForAccessoryViewOfCell(Cell& cell) {
    return contextMenu(cell, &CVMacTableViewDelegate::tableViewContextMenuForAccessoryViewOfRow);
}

// The table's own events.

bool CVMacTableView::mouseDown(const views::MouseEvent&) {
    if (window()) window()->makeFirstResponder(shared_from_this());
    if (clearSelectionOnBackgroundClick()) performClearSelection();
    return true;
}

bool CVMacTableView::mouseUp(const views::MouseEvent& event) {
    const views::Point location = convertFromWindow(event.locationInWindow());
    if (!bounds().contains(location)) return true;
    clickLocation_ = location;
    clickModifierFlags_ = event.modifierFlags();
    if (event.clickCount() == 1) mouseClickedAtLocation(location, clickModifierFlags_);
    if (event.clickCount() == 2) mouseDoubleClickedAtLocation(location, clickModifierFlags_);
    return true;
}

bool CVMacTableView::doCommand(views::Command command) {
    // The way into the rows. Only walking on from one tells the delegate, so that a table that is
    // merely passed through opens nothing.
    const auto focusAlone = [this](const CellPtr& cell) {
        selectCell(cell, true);
        if (cell && window()) window()->makeFirstResponder(cell);
        setNeedsDisplay();
    };
    switch (command) {
        case views::Command::MoveDown:
            focusAlone(firstCellRespectingFiltered(true));
            return true;
        case views::Command::MoveUp:
            focusAlone(lastCellRespectingFiltered(true));
            return true;
        case views::Command::InsertTab:
        case views::Command::InsertBacktab:
            return views::focusPassedOn(*this, command).value_or(false);
        case views::Command::SelectAll:
            selectAllCells();
            return true;
        case views::Command::Complete:
            trace("[CVMacTableView complete:]");
            notify(delegate(), &CVMacTableViewDelegate::didExitTableView, *this);
            return true;
        default:
            return false;
    }
}

// From cell to cell.

bool CVMacTableView::showRow(CellPtr cell, bool extendingSelection) {
    if (extendingSelection) {
        selectRangeToCell(cell);
    } else {
        selectCell(cell, true);
    }
    if (window()) window()->makeFirstResponder(cell);
    if (!rows_.holds(*cell)) return false;
    layoutIfNeeded();
    scrollRectToVisible(cell->frame());
    setNeedsDisplay();
    return true;
}

void CVMacTableView::requestCell(Cell& cell, CellPtr target, bool extendingSelection) {
    const auto keepAlive = shared_from_this();
    if (!shareOf(cell) || !target || !showRow(target, extendingSelection)) return;
    tell(&CVMacTableViewDelegate::tableViewDidSelectRowAtIndexPath, target->indexPath());
}

void CVMacTableView::cellRequestsNextCell(Cell& cell, bool extendingSelection) {
    requestCell(cell, nextCellForIndexPath(cell.indexPath(), true, true), extendingSelection);
}

void CVMacTableView::cellRequestsPreviousCell(Cell& cell, bool extendingSelection) {
    requestCell(cell, previousCellForIndexPath(cell.indexPath(), true, true), extendingSelection);
}

void CVMacTableView::requestSection(Cell& cell, RowStep step, bool extendingSelection) {
    const auto path = rowInAdjacentSection(rows_, cell.indexPath().toNSIndexPath(), step);
    if (!path) return;
    // Who lets keys lead from section to section has to follow them. A delegate that cannot is a
    // mistake, and one that is hard to see on the screen.
    if (const auto delegate = this->delegate();
        delegate && !delegate->tableViewDidSelectRowAtIndexPath)
        trace(
            "ERROR: CVMacTableView cursor moves between sections need a delegate with "
            "tableView:didSelectRowAtIndexPath:");
    requestCell(cell, rows_.cellAt(*path), extendingSelection);
}

void CVMacTableView::cellRequestsNextSection(Cell& cell, bool extendingSelection) {
    requestSection(cell, RowStep::Next, extendingSelection);
}

void CVMacTableView::cellRequestsPreviousSection(Cell& cell, bool extendingSelection) {
    requestSection(cell, RowStep::Previous, extendingSelection);
}

}  // namespace corvane
