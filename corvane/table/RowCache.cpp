#include "corvane/table/RowCache.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableViewCell.h"

#include <algorithm>
#include <span>
#include <utility>

namespace corvane {

namespace {

template <class Vector>
auto at(Vector& vector, RowCache::Index index) {
    return vector.begin() + static_cast<std::ptrdiff_t>(index);
}

/// From the back, so that everything moves once. The runs fit.
template <class Vector>
void openGaps(Vector& rows, std::span<const RowCache::Run> runs) {
    auto from = static_cast<RowCache::Index>(rows.size());
    RowCache::Index added = 0;
    for (const auto& run : runs)
        added += run.count;
    rows.resize(rows.size() + static_cast<std::size_t>(added));
    RowCache::Index to = from + added;
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        added -= run->count;
        const RowCache::Index behind = run->first.item - added;  // as the rows are counted before
        std::move_backward(at(rows, behind), at(rows, from), at(rows, to));
        std::fill(at(rows, run->first.item), at(rows, run->first.item + run->count),
                  typename Vector::value_type());
        from = behind;
        to = run->first.item;
    }
}

/// Takes the runs out; all of them are there.
template <class Vector, class Taker>
void closeGaps(Vector& rows, std::span<const RowCache::Run> runs, const Taker& take) {
    auto to = at(rows, runs.front().first.item);
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto end = runs[i].first.item + runs[i].count;
        std::for_each(at(rows, runs[i].first.item), at(rows, end), take);
        const auto next = i + 1 < runs.size() ? at(rows, runs[i + 1].first.item) : rows.end();
        to = std::move(at(rows, end), next, to);
    }
    rows.erase(to, rows.end());
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

template <class Change>
void RowCache::changeSections(const Runs& runs, const Change& change) {
    for (auto first = runs.begin(); first != runs.end();) {
        const Index section = first->first.section;
        const auto last = std::find_if(
            first, runs.end(), [&](const Run& run) { return run.first.section != section; });
        ++revision_;
        change(*sectionAt(section), std::span(first, last));
        renumber(section, first->first.item);
        first = last;
    }
}

std::vector<RowCache::Run> RowCache::insertRuns(const std::vector<Run>& runs) {
    Runs fitting;
    Index rows = 0;   // of the section, with those that fit
    Index least = 0;  // where the next one may begin
    for (const Run& run : runs) {
        const auto& [section, row] = run.first;
        if (!hasSection(section) || run.count <= 0) continue;
        if (fitting.empty() || fitting.back().first.section != section) {
            rows = rowCount(section);
            least = 0;
        }
        if (row < least || row > rows) continue;
        fitting.push_back(run);
        rows += run.count;
        least = row + run.count;
    }
    changeSections(fitting, [](Section& section, std::span<const Run> inSection) {
        openGaps(section.cells, inSection);
        openGaps(section.heights, inSection);
    });
    return fitting;
}

void RowCache::insertRow(const IndexPath& path, const CellPtr& cell, float height) {
    insertRows(path, 1);
    setCell(path, cell);
    setHeight(path, height);
}

std::vector<RowCache::CellPtr> RowCache::removeRuns(const std::vector<Run>& runs) {
    Runs present;
    for (const Run& run : runs) {
        if (!contains(run.first) || run.count <= 0) continue;
        const bool isFirst = present.empty() || present.back().first.section != run.first.section;
        if (!isFirst && run.first.item < present.back().first.item + present.back().count) continue;
        const Index rest = rowCount(run.first.section) - run.first.item;
        present.push_back({run.first, std::min(run.count, rest)});
    }
    std::vector<CellPtr> removed;
    changeSections(present, [&](Section& section, std::span<const Run> inSection) {
        closeGaps(section.cells, inSection,
                  [&](CellPtr& cell) { removed.push_back(std::move(cell)); });
        closeGaps(section.heights, inSection, [](float) {});
    });
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
