#include "corvane/table/RowSelection.h"

#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/RowWalk.h"

#include <algorithm>
#include <utility>

namespace corvane {

bool RowSelection::contains(const CVMacTableViewCell& cell) const {
    return cell.listPosition_ < cells_.size() && cells_[cell.listPosition_].get() == &cell;
}

std::vector<IndexPath> RowSelection::sortedPaths() const {
    std::vector<IndexPath> paths;
    paths.reserve(cells_.size());
    for (const auto& cell : cells_)
        paths.push_back(cell->indexPath_);
    std::sort(paths.begin(), paths.end());
    return paths;
}

void RowSelection::add(const CellPtr& cell) {
    if (!contains(*cell)) {
        cell->listPosition_ = static_cast<std::uint32_t>(cells_.size());
        cells_.push_back(cell);
    }
    if (!cell->selected()) cell->setSelected(true);
}

void RowSelection::remove(CVMacTableViewCell& cell) {
    if (contains(cell)) {
        const std::uint32_t position = std::exchange(cell.listPosition_, cell.kNotListed);
        if (position + 1 < cells_.size()) {
            cells_[position] = std::move(cells_.back());
            cells_[position]->listPosition_ = position;
        }
        cells_.pop_back();
    }
    if (cell.selected()) cell.setSelected(false);
}

void RowSelection::clear() {
    primary_ = nullptr;
    anchor_ = nullptr;
    rangeEnd_ = nullptr;
    for (const auto& cell : std::exchange(cells_, {})) {
        cell->listPosition_ = cell->kNotListed;
        cell->setSelected(false);
    }
}

void RowSelection::select(const CellPtr& cell, bool clearPrevious) {
    if (!cell) return;
    const CellPtr share = cell;  // it may be one of those that are dropped here
    if (clearPrevious) clear();
    add(share);
    primary_ = share;
    anchor_ = share;
    rangeEnd_ = nullptr;
}

void RowSelection::deselect(const CellPtr& cell) {
    if (!cell) return;
    const CellPtr share = cell;
    rangeIntact_ = false;
    remove(*share);
    if (primary_ == share) primary_ = nullptr;
}

void RowSelection::selectAll(const RowCache& rows) {
    const CellPtr before = std::exchange(primary_, nullptr);
    clear();
    for (const auto& section : rows.sections())
        for (const auto& cell : section.cells)
            if (cell && !cell->filtered()) add(cell);
    // A primary row that is not to be seen, and so is not selected, would be none.
    primary_ = before && contains(*before) ? before : outermostCell(rows, RowStep::Next, true);
}

void RowSelection::selectRange(const RowCache& rows, const CellPtr& end) {
    if (!end) return;
    if (!anchor_) return select(end, true);
    const CellPtr share = end;
    const IndexPath anchor = anchor_->indexPath_;
    const IndexPath newEnd = share->indexPath_;
    const IndexPath oldEnd = rangeEnd_ ? rangeEnd_->indexPath_ : anchor;
    // Both ranges are walked at once, so that rows in both are not deselected in between; and those
    // not at all where they are as the last range left them.
    const bool intact = rangeEnd_ && rangeIntact_ && rangeRevision_ == rows.revision();
    const IndexPath third = intact ? newEnd : anchor;
    const IndexPath first = std::min({newEnd, oldEnd, third});
    const IndexPath last = std::max({newEnd, oldEnd, third});
    const auto isWithin = [&](const IndexPath& path, const IndexPath& rangeEnd) {
        return path >= std::min(anchor, rangeEnd) && path <= std::max(anchor, rangeEnd);
    };
    bool skips = false;  // a row that is hidden, and selected from before: that changes next time
    for (std::optional<IndexPath> path = first; path && *path <= last;
         path = adjacentRow(rows, *path, RowStep::Next, true)) {
        const CellPtr cell = rows.cellAt(*path);
        if (!cell || *path == anchor) continue;
        if (isWithin(*path, newEnd) && !cell->filtered()) {
            add(cell);
            continue;
        }
        skips = skips || isWithin(*path, newEnd);
        if (isWithin(*path, oldEnd)) {
            remove(*cell);
            if (primary_ == cell) primary_ = nullptr;
        }
    }
    rangeEnd_ = share;
    rangeRevision_ = rows.revision();
    rangeIntact_ = !skips;
}

void RowSelection::forget(const CellPtr& cell) {
    if (!cell) return;
    deselect(cell);
    if (anchor_ == cell) anchor_ = rangeEnd_ = nullptr;
    if (rangeEnd_ == cell) rangeEnd_ = nullptr;
}

}  // namespace corvane
