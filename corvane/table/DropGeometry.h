// Where rows would land that are dropped at a point of a table. Functions over a cache whose rows
// have been laid out.
#pragma once

#include "corvane/platform/Point.h"
#include "corvane/table/RowCache.h"

#include <optional>
#include <vector>

namespace corvane {

struct DropTarget {
    IndexPath path;             ///< before this row; one past the last row for the section's end
    platform::Point indicator;  ///< the left end of the line that shows it
};

/// The first cell that ends below the height; the end where there is none. Rows that nobody gave a
/// cell are passed over.
std::vector<RowCache::CellPtr>::const_iterator firstCellBelow(
    const std::vector<RowCache::CellPtr>& cells, double y);

/// Of the table's rows, those within a section counted from its first one.
class DropGeometry {
  public:
    /// The row area begins at the left and the top. The cache must outlive this.
    DropGeometry(const RowCache& rows, double left, double top)
        : rows_(rows), left_(left), top_(top) {}

    /// None without sections.
    std::optional<DropTarget> targetAt(platform::Point point) const;
    /// The first row whose frame has the point, with the line below it: a click on the line is
    /// meant for a row.
    std::optional<IndexPath> rowAt(platform::Point point) const;
    std::optional<IndexPath> rowInSectionAt(RowCache::Index section, platform::Point point) const;
    /// The last one where the point is below everything; -1 without sections.
    RowCache::Index sectionAt(platform::Point point) const;
    DropTarget tailOf(RowCache::Index section) const;

  private:
    const RowCache& rows_;
    double left_;
    double top_;
};

}  // namespace corvane
