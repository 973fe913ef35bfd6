#include "corvane/table/RowCache.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableViewCell.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane {

namespace {

template <class Vector>
auto at(Vector& vector, RowCache::Index index) {
    return vector.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

RowCache::Section* RowCache::sectionAt(Index section) {
    return hasSection(section) ? &sections_[static_cast<std::size_t>(section)] : nullptr;
}

RowCache::CellPtr RowCache::cellAt(const IndexPath& path) const {
    return contains(path) ? *at(at(sections_, path.section)->cells, path.item) : nullptr;
}

float RowCache::heightAt(const IndexPath& path) const {
    return contains(path) ? *at(at(sections_, path.section)->heights, path.item) : 0;
}

RowCache::HeaderPtr RowCache::headerOf(Index section) const {
    return hasSection(section) ? at(sections_, section)->header : nullptr;
}

bool RowCache::holds(const CVMacTableViewCell& cell) const {
    const IndexPath& path = cell.indexPath_;
    return contains(path) && at(at(sections_, path.section)->cells, path.item)->get() == &cell;
}

void RowCache::setCell(const IndexPath& path, const CellPtr& cell) {
    if (!contains(path)) return;
    *at(at(sections_, path.section)->cells, path.item) = cell;
    if (cell) cell->indexPath_ = path;
}

void RowCache::setHeight(const IndexPath& path, float height) {
    if (contains(path)) *at(at(sections_, path.section)->heights, path.item) = height;
}

void RowCache::clear() {
    ++revision_;
    sections_.clear();
}

void RowCache::insertSection(Index section, HeaderPtr header) {
    ++revision_;
    section = std::clamp<Index>(section, 0, sectionCount());
    sections_.insert(at(sections_, section), Section{std::move(header), {}, {}});
    renumberSections(section + 1);
}

RowCache::Section RowCache::removeSection(Index section) {
    Section* removed = sectionAt(section);
    if (!removed) return {};
    ++revision_;
    Section result = std::move(*removed);
    sections_.erase(at(sections_, section));
    renumberSections(section);
    return result;
}

void RowCache::moveSection(Index from, Index to) {
    if (!hasSection(from) || !hasSection(to) || from == to) return;
    ++revision_;
    if (from < to) {
        std::rotate(at(sections_, from), at(sections_, from + 1), at(sections_, to + 1));
    } else {
        std::rotate(at(sections_, to), at(sections_, from), at(sections_, from + 1));
    }
    renumberSections(std::min(from, to));
}

bool RowCache::admits(const IndexPath& path) const {
    return hasSection(path.section) && path.item >= 0 && path.item <= rowCount(path.section);
}

void RowCache::insertRows(const IndexPath& first, Index count) {
    if (!admits(first) || count <= 0) return;
    ++revision_;
    Section& section = *sectionAt(first.section);
    section.cells.insert(at(section.cells, first.item), static_cast<std::size_t>(count), nullptr);
    section.heights.insert(at(section.heights, first.item), static_cast<std::size_t>(count), 0);
    renumber(first.section, first.item + count);
}

void RowCache::insertRow(const IndexPath& path, const CellPtr& cell, float height) {
    insertRows(path, 1);
    setCell(path, cell);
    setHeight(path, height);
}

std::vector<RowCache::CellPtr> RowCache::removeRows(const IndexPath& first, Index count) {
    if (!contains(first) || count <= 0) return {};
    ++revision_;
    Section& section = *sectionAt(first.section);
    const Index end = std::min(first.item + count, rowCount(first.section));
    const auto from = at(section.cells, first.item);
    const auto to = at(section.cells, end);
    std::vector<CellPtr> removed(std::make_move_iterator(from), std::make_move_iterator(to));
    section.cells.erase(from, to);
    section.heights.erase(at(section.heights, first.item), at(section.heights, end));
    renumber(first.section, first.item);
    return removed;
}

void RowCache::moveRow(const IndexPath& from, const IndexPath& to) {
    if (from == to || !contains(from)) return;
    const Index roomInTarget = rowCount(to.section) - (from.section == to.section ? 1 : 0);
    if (!hasSection(to.section) || to.item < 0 || to.item > roomInTarget) return;
    const float height = heightAt(from);
    const auto cells = removeRows(from, 1);
    insertRow(to, cells.front(), height);
}

void RowCache::exchangeRows(const IndexPath& a, const IndexPath& b) {
    if (a == b || !contains(a) || !contains(b)) return;
    ++revision_;
    const CellPtr cell = cellAt(a);
    const float height = heightAt(a);
    const CellPtr other = cellAt(b);
    setHeight(a, heightAt(b));
    setCell(a, other);
    setHeight(b, height);
    setCell(b, cell);
}

void RowCache::renumber(Index section, Index firstRow) {
    const auto& cells = at(sections_, section)->cells;
    const Index count = static_cast<Index>(cells.size());
    for (Index row = firstRow; row < count; ++row)
        if (const auto& cell = cells[static_cast<std::size_t>(row)])
            cell->indexPath_ = {section, row};
}

void RowCache::renumberSections(Index first) {
    for (Index section = first; section < sectionCount(); ++section)
        renumber(section, 0);
}

}  // namespace corvane
