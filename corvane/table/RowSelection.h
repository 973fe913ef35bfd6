// Which rows of a table are selected: a set of cells, which stays right when rows move.
#pragma once

#include "corvane/table/RowCache.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace corvane {

/// Holds shares of the selected cells and sets their flags. Paths are those that the cells have
/// now, so that insertions and moves need no correction; who takes a cell out of the table forgets
/// it here. Whether a row is in the set takes constant time, and so does a change of one row.
class RowSelection {
  public:
    using CellPtr = RowCache::CellPtr;

    ~RowSelection() { clear(); }

    /// The row that was selected last; null for none. It is in the set.
    const CellPtr& primary() const { return primary_; }
    /// Where a range begins, and its other end; null for none.
    const CellPtr& anchor() const { return anchor_; }
    const CellPtr& rangeEnd() const { return rangeEnd_; }
    bool isEmpty() const { return cells_.empty(); }
    std::size_t count() const { return cells_.size(); }
    bool contains(const CVMacTableViewCell& cell) const;
    /// Ascending.
    std::vector<IndexPath> sortedPaths() const;

    void clear();
    /// Makes the cell primary, and the anchor of ranges to come.
    void select(const CellPtr& cell, bool clearPrevious);
    void deselect(const CellPtr& cell);
    void selectAll(const RowCache& rows);
    /// Selects the rows after the anchor, in either direction, up to the cell, in the place of
    /// those of the last range. Filtered rows are left out. Without an anchor the cell is selected
    /// alone.
    void selectRange(const RowCache& rows, const CellPtr& end);

    /// Which rows a range leaves out is not what it was.
    void filterDidChange() { rangeIntact_ = false; }
    /// The cell has left the table.
    void forget(const CellPtr& cell);
    /// After a move of the selection: which of the selected rows is the primary one.
    void setPrimary(const CellPtr& cell) { primary_ = cell; }

  private:
    void add(const CellPtr& cell);
    void remove(CVMacTableViewCell& cell);

    std::vector<CellPtr> cells_;  ///< in no order; each cell knows its position
    CellPtr primary_;
    CellPtr anchor_;
    CellPtr rangeEnd_;
    std::uint64_t rangeRevision_ = 0;  ///< of the rows, when the range was made
    bool rangeIntact_ = false;         ///< and nobody has changed a part of it since
};

}  // namespace corvane
