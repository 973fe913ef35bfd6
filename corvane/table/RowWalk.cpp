#include "corvane/table/RowWalk.h"

#include "corvane/table/CVMacTableViewCell.h"

#include <algorithm>

namespace corvane {

namespace {

/// The nearest section with rows; none where there is none.
std::optional<RowCache::Index> adjacentSection(const RowCache& rows, RowCache::Index section,
                                               RowStep step) {
    const RowCache::Index by = step == RowStep::Next ? 1 : -1;
    for (section += by; rows.hasSection(section); section += by)
        if (rows.rowCount(section) > 0) return section;
    return std::nullopt;
}

}  // namespace

std::optional<IndexPath> adjacentRow(const RowCache& rows, const IndexPath& path, RowStep step,
                                     bool acrossSections) {
    if (!rows.hasSection(path.section)) return std::nullopt;
    const IndexPath beside{path.section, path.item + (step == RowStep::Next ? 1 : -1)};
    if (rows.contains(beside)) return beside;
    if (!acrossSections) return std::nullopt;
    const auto section = adjacentSection(rows, path.section, step);
    if (!section) return std::nullopt;
    return IndexPath{*section, step == RowStep::Next ? 0 : rows.rowCount(*section) - 1};
}

RowCache::CellPtr adjacentCell(const RowCache& rows, const std::optional<IndexPath>& path,
                               RowStep step, bool acrossSections, bool respectFiltered) {
    auto next = path ? adjacentRow(rows, *path, step, acrossSections) : std::nullopt;
    for (; next; next = adjacentRow(rows, *next, step, acrossSections)) {
        auto cell = rows.cellAt(*next);
        if (cell && !(respectFiltered && cell->filtered())) return cell;
    }
    return nullptr;
}

RowCache::CellPtr outermostCell(const RowCache& rows, RowStep step, bool respectFiltered) {
    if (rows.sectionCount() == 0) return nullptr;
    const IndexPath before =
        step == RowStep::Next
            ? IndexPath{0, -1}
            : IndexPath{rows.sectionCount() - 1, rows.rowCount(rows.sectionCount() - 1)};
    return adjacentCell(rows, before, step, true, respectFiltered);
}

std::optional<IndexPath> rowInAdjacentSection(const RowCache& rows, const IndexPath& path,
                                              RowStep step) {
    const auto section = adjacentSection(rows, path.section, step);
    if (!section) return std::nullopt;
    return IndexPath{*section, std::clamp<std::int64_t>(path.item, 0, rows.rowCount(*section) - 1)};
}

}  // namespace corvane
