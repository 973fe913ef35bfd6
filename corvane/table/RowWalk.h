// From row to row of a table, in the order in which they stand. Functions over the cache.
#pragma once

#include "corvane/table/RowCache.h"

#include <optional>

namespace corvane {

enum class RowStep { Next, Previous };

/// The row after or before the path, built or not; none past the end, and for a path in a section
/// that does not exist. Across sections, empty ones are skipped.
std::optional<IndexPath> adjacentRow(const RowCache& rows, const IndexPath& path, RowStep step,
                                     bool acrossSections);

/// The next cell in that direction, without the filtered ones where they are respected; null where
/// there is none.
RowCache::CellPtr adjacentCell(const RowCache& rows, const std::optional<IndexPath>& path,
                               RowStep step, bool acrossSections, bool respectFiltered);

/// The first cell of all (step Next), or the last one (step Previous).
RowCache::CellPtr outermostCell(const RowCache& rows, RowStep step, bool respectFiltered);

/// For a move by keys from one section to another: the row of the same number in the nearest
/// section with rows, or that section's last one.
std::optional<IndexPath> rowInAdjacentSection(const RowCache& rows, const IndexPath& path,
                                              RowStep step);

}  // namespace corvane
