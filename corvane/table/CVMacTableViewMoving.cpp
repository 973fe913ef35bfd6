// Moving rows: the selected ones by keys, and those that are dragged within the table.

#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"

#include <algorithm>

namespace corvane {

namespace {

using Source = CVMacTableViewDataSource;

}  // namespace

// By keys.

void CVMacTableView::cellDidMoveSelectedRowsDown(Cell&) {
    if (!supportsRowMovementViaCursorKeys()) return;
    trace("[CVMacTableView cellDidMoveSelectedRowsDown:]");
    moveSelectedRows(RowStep::Next);
}

void CVMacTableView::cellDidMoveSelectedRowsUp(Cell&) {
    if (!supportsRowMovementViaCursorKeys()) return;
    trace("[CVMacTableView cellDidMoveSelectedRowsUp:]");
    moveSelectedRows(RowStep::Previous);
}

bool CVMacTableView::mayMoveSelectedRow(const IndexPath& from, RowStep step) {
    const auto source = dataSource();
    const auto target = adjacentRow(rows_, from, step, true);
    if (!target) return false;
    const CellPtr there = rows_.cellAt(*target);
    // The placeholder stays where new rows are typed.
    if (target->section == rows_.sectionCount() - 1 && there && there->placeholderCell())
        return false;
    const CVIndexPath path = from;
    const CVIndexPath proposed = *target;
    return ask(source, &Source::tableViewCanEditRowAtIndexPath, true, *this, path) &&
           ask(source, &Source::tableViewCanMoveRowAtIndexPath, true, *this, path) &&
           ask(delegate(), &CVMacTableViewDelegate::tableViewTargetIndexPathForMove,
               OptionalPath(proposed), *this, path, proposed) == proposed;
}

void CVMacTableView::moveSelectedRows(RowStep step) {
    const auto source = dataSource();
    const auto delegate = this->delegate();
    // The delegate's operation only says that whoever controls the table wants rows moved by keys;
    // the source, which has the rows, is the one to be called.
    if (!source || !delegate || !delegate->beginMovingRowsInTableView ||
        !source->tableViewMoveRowAtIndexPath || !source->commitMovingRowsInTableView)
        return;
    const auto keepAlive = shared_from_this();
    notify(source, &Source::beginMovingRowsInTableView, *this);
    trace("after begin");

    // The row that goes first makes room for the one behind it.
    auto paths = selection_.sortedPaths();
    if (step == RowStep::Next) std::reverse(paths.begin(), paths.end());
    const std::uint64_t revision = rows_.revision();
    const bool mayMove = std::all_of(paths.begin(), paths.end(), [&](const IndexPath& path) {
        return mayMoveSelectedRow(path, step) && revision == rows_.revision();
    });
    if (!mayMove) return;
    trace("after check-move");

    std::vector<CellPtr> cells;
    for (const IndexPath& path : paths)
        cells.push_back(rows_.cellAt(path));
    for (const CellPtr& cell : cells) {
        if (!cell || !rows_.holds(*cell)) continue;  // whoever was told of a move took it out
        const IndexPath from = cell->indexPath().toNSIndexPath();
        const auto target = adjacentRow(rows_, from, step, true);
        if (!target) continue;
        IndexPath to = *target;
        if (to.section == from.section) {
            rows_.exchangeRows(from, to);
        } else {
            if (step == RowStep::Previous) ++to.item;  // after that section's last row
            rows_.moveRow(from, to);
        }
        notify(source, &Source::tableViewMoveRowAtIndexPath, *this, CVIndexPath(from),
               CVIndexPath(to));
    }
    trace("after do-move");
    notify(source, &Source::commitMovingRowsInTableView, *this);
    trace("after commitMoving");
    setNeedsApplyLayout();
    if (const auto path = indexPathForSelectedRow(); path && window())
        scrollRowToVisibleAtIndexPath(*path);
}

// By dragging.

bool CVMacTableView::mayMoveDraggedRow(const IndexPath& from, const IndexPath& target) {
    const auto source = dataSource();
    if (!source || !rows_.contains(from)) return false;
    const CVIndexPath path = from;
    CVIndexPath proposed = target;
    if (from.section == target.section && from.item < target.item) proposed.setRow(target.item - 1);
    return ask(source, &Source::tableViewCanEditRowAtIndexPath, false, *this, path) &&
           ask(source, &Source::tableViewCanMoveRowAtIndexPath, false, *this, path) &&
           ask(source, &Source::tableViewTargetIndexPathForMove, OptionalPath(), *this, path,
               proposed) == proposed;
}

bool CVMacTableView::canMoveDraggedRows(const Paths& paths, const CVIndexPath& target) {
    const auto source = dataSource();
    if (!source || paths.empty() || !source->beginMovingRowsInTableView ||
        !source->tableViewMoveRowAtIndexPath || !source->commitMovingRowsInTableView ||
        !source->tableViewCanEditRowAtIndexPath || !source->tableViewCanMoveRowAtIndexPath ||
        !source->tableViewTargetIndexPathForMove)
        return false;
    Paths sorted = paths;
    std::sort(sorted.begin(), sorted.end());
    return std::all_of(sorted.rbegin(), sorted.rend(), [&](const CVIndexPath& path) {
        return mayMoveDraggedRow(path.toNSIndexPath(), target.toNSIndexPath());
    });
}

void CVMacTableView::moveDraggedRows(const Paths& paths, const CVIndexPath& target) {
    const auto source = dataSource();
    if (!source) return;
    const auto keepAlive = shared_from_this();
    Paths sorted = paths;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    // The last one goes first, and all go to the same place, which does not follow those that have
    // arrived: rows dragged up keep their order, rows dragged down a section turn it round. Data
    // sources count on being told these very paths.
    // Cells are kept, since each move shifts the paths of others.
    std::vector<CellPtr> cells;
    for (auto path = sorted.rbegin(); path != sorted.rend(); ++path)
        if (CellPtr cell = cellForRowAtIndexPath(*path)) cells.push_back(std::move(cell));

    notify(source, &Source::beginMovingRowsInTableView, *this);
    for (const CellPtr& cell : cells) {
        if (!rows_.holds(*cell)) continue;
        const CVIndexPath from = cell->indexPath();
        CVIndexPath to = target;
        if (from.section() == to.section() && from.row() < to.row()) to.setRow(to.row() - 1);
        const auto decided = ask(source, &Source::tableViewTargetIndexPathForMove, OptionalPath(to),
                                 *this, from, to);
        if (!decided || !rows_.holds(*cell) || cell->indexPath() != from) continue;
        rows_.moveRow(from.toNSIndexPath(), decided->toNSIndexPath());
        if (cell->indexPath() != *decided) continue;  // there is no such place
        notify(source, &Source::tableViewMoveRowAtIndexPath, *this, from, *decided);
    }
    notify(source, &Source::commitMovingRowsInTableView, *this);
    setNeedsApplyLayout();
}

}  // namespace corvane
