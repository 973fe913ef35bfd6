#include "corvane/table/DropGeometry.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableViewCell.h"

#include <algorithm>

namespace corvane {

std::vector<RowCache::CellPtr>::const_iterator firstCellBelow(
    const std::vector<RowCache::CellPtr>& cells, double y) {
    return std::partition_point(cells.begin(), cells.end(), [&](const RowCache::CellPtr& cell) {
        // A row without a cell lies where the one above it does.
        const RowCache::CellPtr* placed = &cell;
        while (!*placed && placed != cells.data())
            --placed;
        return !*placed || (*placed)->frame().bottom() <= y;
    });
}

std::optional<IndexPath> DropGeometry::rowInSectionAt(RowCache::Index section,
                                                      platform::Point point) const {
    if (!rows_.hasSection(section)) return std::nullopt;
    const auto& cells = rows_.sections()[static_cast<std::size_t>(section)].cells;
    // Rows stand in order, so the first one that ends below the point is the only one to look at.
    const auto found = firstCellBelow(cells, point.y - 1);
    if (found == cells.end()) return std::nullopt;
    platform::Rect frame = (*found)->frame();
    ++frame.height;
    if (!frame.contains(point)) return std::nullopt;
    return IndexPath{section, found - cells.begin()};
}

std::optional<IndexPath> DropGeometry::rowAt(platform::Point point) const {
    for (RowCache::Index section = 0; section < rows_.sectionCount(); ++section)
        if (auto path = rowInSectionAt(section, point)) return path;
    return std::nullopt;
}

RowCache::Index DropGeometry::sectionAt(platform::Point point) const {
    double y = top_;
    for (RowCache::Index section = 0; section < rows_.sectionCount(); ++section) {
        if (const auto header = rows_.headerOf(section)) {
            y = header->frame().bottom();
            if (point.y < y) return section;
        }
        for (const float height : rows_.sections()[static_cast<std::size_t>(section)].heights) {
            y += height + 1;
            if (point.y < y) return section;
        }
    }
    return rows_.sectionCount() - 1;
}

DropTarget DropGeometry::tailOf(RowCache::Index section) const {
    const RowCache::Index count = rows_.rowCount(section);
    DropTarget target{{section, count}, {left_, top_}};
    if (const auto last = rows_.cellAt({section, count - 1})) {
        target.indicator = {last->frame().x, last->frame().bottom()};
    } else if (const auto header = rows_.headerOf(section); count == 0 && header) {
        target.indicator = {header->frame().x, header->frame().bottom()};
    }
    return target;
}

std::optional<DropTarget> DropGeometry::targetAt(platform::Point point) const {
    if (rows_.sectionCount() == 0) return std::nullopt;
    if (point.y < top_) return DropTarget{{0, 0}, {left_, top_}};
    if (const auto path = rowAt(point)) {
        const platform::Rect frame = rows_.cellAt(*path)->frame();
        return DropTarget{*path, {frame.x, frame.y - 1}};
    }
    for (RowCache::Index section = 0; section < rows_.sectionCount(); ++section) {
        const auto header = rows_.headerOf(section);
        if (header && header->frame().contains(point))
            return DropTarget{{section, 0}, {header->frame().x, header->frame().bottom()}};
    }
    return tailOf(sectionAt(point));
}

}  // namespace corvane
