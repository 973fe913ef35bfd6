// Rows that are filled in, edited, inserted and deleted where they stand.

#include "corvane/platform/Console.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"

#include <algorithm>

namespace corvane {

namespace {

using Source = CVMacTableViewDataSource;
using Style = CVMacTableViewEditingStyle;

std::string described(const views::View* view) {
    if (!view) return "(null)";
    const std::string name = view->accessibilityName();
    return name.empty() ? "(unnamed)" : name;
}

}  // namespace

// Where.

CVMacTableView::Index CVMacTableView::sectionForInsertion() const {
    if (defaultInsertionSection() != -1) return defaultInsertionSection();
    return reverseInsertionDirection() ? 0 : rows_.sectionCount() - 1;
}

void CVMacTableView::startInlineEditingRowAtIndexPath(const OptionalPath& path) {
    startInlineEditingRowInSection(path, sectionForInsertion());
}

void CVMacTableView::startInlineEditingRowAtPoint(const OptionalPath& path,
                                                  views::Point insertionPoint) {
    startInlineEditingRowInSection(path, sectionForInsertionAtPoint(insertionPoint));
}

void CVMacTableView::startInlineEditingRowInSection(const OptionalPath& path,
                                                    Index insertionSection) {
    const auto source = dataSource();
    const auto keepAlive = shared_from_this();
    OptionalPath target = path;
    bool alwaysInserts = false;
    if (!target) {
        target = ask(source, &Source::tableViewPlaceholderIndexPathForAppendingToSection,
                     OptionalPath(), *this, insertionSection);
        alwaysInserts = target.has_value();
    }
    if (!target) {
        const Index last = rows_.sectionCount() - 1;
        target = CVIndexPath(last, rows_.rowCount(last));
    }
    if (!ask(source, &Source::tableViewCanStartInlineEditingRowAtIndexPath, true, *this, *target))
        return;
    // Past the end is at the end.
    if (rows_.hasSection(target->section()))
        target->setRow(std::min(target->row(), rows_.rowCount(target->section())));
    CellPtr cell = alwaysInserts ? nullptr : cellForRowAtIndexPath(*target);
    if (!cell) cell = insertPlaceholderCellAtIndexPath(*target);
    editRow(cell, true);
}

void CVMacTableView::editRow(const CellPtr& cell, bool tracing) {
    if (!cell) return;
    const auto view = cell->firstKeyView();
    if (tracing && platform::currentConsole().showsTraces())
        trace("### first key VIEW: {}", described(view.get()));
    layoutIfNeeded();
    scrollRectToVisible(cell->frame());
    if (auto field = std::dynamic_pointer_cast<views::TextField>(view)) cell->activateField(field);
    if (view && window() && rows_.holds(*cell)) window()->makeFirstResponder(view);
}

// Placeholders.

CVMacTableView::CellPtr CVMacTableView::insertPlaceholderCellAtIndexPath(const CVIndexPath& path) {
    const auto keepAlive = shared_from_this();
    const CellPtr cell = ask(dataSource(), &Source::tableViewPlaceholderCellForRowAtIndexPath,
                             CellPtr(), *this, path);
    if (!cell || cell->superview() == this) return nullptr;
    cell->setPlaceholderCell(true);
    cell->setDelegate(std::static_pointer_cast<CVMacTableView>(keepAlive));
    rows_.insertRow(path.toNSIndexPath(), cell, 0);
    if (!rows_.holds(*cell)) return nullptr;  // no such place
    const float height = static_cast<float>(
        cell->sizeForCellWidth(currentCellWidth(), static_cast<double>(rowHeight()), false).height);
    if (!rows_.holds(*cell)) return nullptr;
    rows_.setHeight(cell->indexPath().toNSIndexPath(), height);
    addSubview(cell);
    setNeedsApplyLayout();
    placeholder_.remember(cell);
    return cell;
}

void CVMacTableView::cellSchedulesCancelEditingPlaceholder(Cell& cell) {
    if (const CellPtr share = shareOf(cell)) placeholder_.scheduleCancellation(share);
}

void CVMacTableView::giveUpPlaceholder(const CellPtr& cell) {
    const auto keepAlive = weak_from_this().lock();
    if (cell->placeholderCell() && rows_.holds(*cell))
        performDeleteRowsAtIndexPaths({cell->indexPath()});
    placeholder_.forget(cell);
}

void CVMacTableView::cellDidChangeValueForView(Cell& cell, views::View&) {
    const auto source = dataSource();
    const CellPtr share = shareOf(cell);
    if (!share || !source || !source->tableViewCommitEditingStyle) return;
    const auto keepAlive = shared_from_this();
    Style style = Style::Edit;
    if (cell.placeholderCell()) {
        if (!ask(source, &Source::tableViewCanInlineInsertRowAtIndexPath, false, *this,
                 cell.indexPath()))
            return;
        cell.setPlaceholderCell(false);
        placeholder_.committed(share);
        style = Style::Insert;
    }
    // What was typed stays even where it is not committed: it is no longer the row to be given up.
    if (!ask(source, &Source::tableViewCanInlineEditRowAtIndexPath, false, *this,
             cell.indexPath()) ||
        !rows_.holds(cell))
        return;
    notify(source, &Source::tableViewCommitEditingStyle, *this, style, cell.indexPath());
}

bool CVMacTableView::cellCanInlineInsert(Cell& cell) {
    return shareOf(cell) && ask(dataSource(), &Source::tableViewCanInlineInsertRowAtIndexPath,
                                false, *this, cell.indexPath());
}

// From field to field.

void CVMacTableView::requestKeyViewByInsert(Cell& cell, RowStep step) {
    if (!shareOf(cell)) return;
    const auto keepAlive = shared_from_this();
    const IndexPath path = cell.indexPath().toNSIndexPath();
    const IndexPath target{path.section, path.item + (step == RowStep::Next ? 1 : 0)};
    CellPtr neighbour = adjacentCell(rows_, path, step, false, false);
    if (!neighbour || !neighbour->placeholderCell())
        neighbour = insertPlaceholderCellAtIndexPath(target);
    if (!neighbour) {
        trace("ASSERT: New insert cell could not be inserted/appended");
        return;
    }
    editRow(neighbour, false);
}

void CVMacTableView::cellRequestsNextKeyViewByInsert(Cell& cell) {
    requestKeyViewByInsert(cell, reverseInsertionDirection() ? RowStep::Previous : RowStep::Next);
}

void CVMacTableView::cellRequestsPreviousKeyViewByInsert(Cell& cell) {
    requestKeyViewByInsert(cell, reverseInsertionDirection() ? RowStep::Next : RowStep::Previous);
}

void CVMacTableView::cellRequestsNextKeyView(Cell& cell) {
    if (!shareOf(cell)) return;
    const auto keepAlive = shared_from_this();
    const bool reversed = reverseInsertionDirection();
    const RowStep step = reversed ? RowStep::Previous : RowStep::Next;
    // Rows without fields hand the focus on; a loop, since there may be thousands of them.
    IndexPath path = cell.indexPath().toNSIndexPath();
    CellPtr target = adjacentCell(rows_, path, step, true, true);
    for (; target && !target->firstKeyView(); target = adjacentCell(rows_, path, step, true, true))
        path = target->indexPath().toNSIndexPath();
    if (!target && !cell.placeholderCell())
        target = insertPlaceholderCellAtIndexPath({path.section, path.item + (reversed ? 0 : 1)});
    if (!target) return;
    layoutIfNeeded();
    scrollRectToVisible(target->frame());
    if (target->firstKeyView()) {
        target->handFirstResponderToFirstKeyView();
    } else if (window()) {
        window()->makeFirstResponder(target);
    }
}

void CVMacTableView::cellRequestsPreviousKeyView(Cell& cell) {
    if (!shareOf(cell)) return;
    const CellPtr target = previousCellForIndexPath(cell.indexPath(), true, true);
    if (target && target->lastKeyView()) target->handFirstResponderToLastKeyView();
}

// Growing and deleting.

void CVMacTableView::cellDidAutoResizeControl(Cell& cell, views::View&) {
    if (!shareOf(cell)) return;
    const auto keepAlive = shared_from_this();
    const double before = cachedCellHeightForRowWithIndexPath(cell.indexPath());
    reloadRowHeightOfCell(cell);
    const double difference = cachedCellHeightForRowWithIndexPath(cell.indexPath()) - before;
    if (platform::currentConsole().showsTraces())
        trace("### cell:didAutoResizeControl: -- deltaHeight = {:f}", difference);
    if (difference == 0) return;
    adjustFrameSizeToTotalWidth(frame().width, frame().height + difference, enclosingScrollView());
    layoutIfNeeded();
    scrollRectToVisible(cell.frame());
}

void CVMacTableView::performDeleteSelectedRows() {
    Paths paths;
    for (const IndexPath& path : selection_.sortedPaths())
        paths.emplace_back(path);
    performDeleteRowsAtIndexPaths(paths);
}

void CVMacTableView::performDeleteRowsAtIndexPaths(const Paths& paths) {
    const auto source = dataSource();
    if (!source || !source->tableViewCommitEditingStyle) return;
    const auto keepAlive = weak_from_this().lock();
    std::vector<CVIndexPath> sorted = paths;
    std::sort(sorted.begin(), sorted.end());
    const std::uint64_t reload = reloads_;
    // From the last one on, so that those before keep their paths. A source that loads everything
    // anew after a deletion keeps them, too.
    for (auto path = sorted.rbegin(); path != sorted.rend(); ++path) {
        if (reload != reloads_ && !rows_.contains(path->toNSIndexPath())) continue;
        notify(source, &Source::tableViewCommitEditingStyle, *this, Style::Delete, *path);
    }
}

}  // namespace corvane
