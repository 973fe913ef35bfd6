// Loading: how the caches follow the data source.

#include "corvane/table/CVMacTableView.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/DropIndicator.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr int kAnimationOfLoading = 5;

std::vector<RowCache::Run> runsOf(const std::vector<CVIndexPath>& paths) {
    std::vector<IndexPath> sorted;
    for (const CVIndexPath& path : paths)
        sorted.push_back(path.toNSIndexPath());
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    std::vector<RowCache::Run> runs;
    for (const IndexPath& path : sorted) {
        const bool follows = !runs.empty() && runs.back().first.section == path.section &&
                             runs.back().first.item + runs.back().count == path.item;
        if (!follows) runs.push_back({path, 0});
        ++runs.back().count;
    }
    return runs;
}

std::vector<CVIndexPath> pathsOfSection(RowCache::Index section, RowCache::Index count) {
    std::vector<CVIndexPath> paths;
    paths.reserve(static_cast<std::size_t>(std::max<RowCache::Index>(count, 0)));
    for (RowCache::Index row = 0; row < count; ++row)
        paths.emplace_back(section, row);
    return paths;
}

}  // namespace

CVMacTableView::CVMacTableView(const views::Rect& frame)
    : CVMacLayoutableView(frame),
      placeholder_([this](const CellPtr& cell) { giveUpPlaceholder(cell); }) {
    registerForDraggedTypes(
        {std::string(CVIndexPath::pasteboardType()), std::string(platform::kPasteboardTypeString),
         std::string(platform::kPasteboardTypeURL), std::string(platform::kPasteboardTypeURLName)});
}

CVMacTableView::~CVMacTableView() = default;

// The whole table.

void CVMacTableView::reloadData() {
    trace("[CVMacTableView reloadData] for '{}'", nameInLines());
    dataLoaded_ = true;
    const auto keepAlive = weak_from_this().lock();
    // What is being typed is committed while the table is still whole.
    commitEditing();
    keepFocusInTable([this] {
        const std::uint64_t reload = ++reloads_;
        clearSelectionNeedingDisplay(false);
        filteredIndexPaths_ = indexPathsOfFilteredRows();
        removeAllViews();
        const auto source = dataSource();
        if (source && autoReuseCells()) {
            reusableCells_.emplace();
            for (const auto& section : rows_.sections())
                std::copy_if(section.cells.rbegin(), section.cells.rend(),
                             std::back_inserter(*reusableCells_),
                             [](const CellPtr& cell) { return cell != nullptr; });
        }
        rows_.clear();
        placeholder_.remember(nullptr);
        numberOfSections_ = 0;
        if (!source) return;
        const Index sections = source->numberOfSectionsInTableView(*this);
        if (reload != reloads_) return;
        numberOfSections_ = sections;
        // The pool stays then: sections that are inserted next fill its cells again.
        if (sections <= 0) return;
        const Stopwatch stopwatch;
        for (Index section = 0; section < sections && reload == reloads_; ++section)
            loadSection(section);
        if (reload != reloads_) return;
        trace("   Data loaded in {} seconds.", stopwatch.text());
        reusableCells_.reset();
    });
    setNeedsApplyLayout();
    setNeedsDisplay();
}

void CVMacTableView::loadData() {
    if (!dataLoaded_) reloadData();
}

void CVMacTableView::keepFocusInTable(const std::function<void()>& change) {
    views::Window* window = this->window();
    const auto first = window ? window->firstResponder() : nullptr;
    const bool hadFocus = first && first->isDescendantOf(*this);
    change();
    window = this->window();
    if (hadFocus && window && !window->firstResponder())
        window->makeFirstResponder(shared_from_this());
}

void CVMacTableView::commitEditing() {
    views::Window* window = this->window();
    const auto field = window ? window->fieldEditor().client() : nullptr;
    if (field && static_cast<const views::View&>(*field).isDescendantOf(*this))
        window->makeFirstResponder(shared_from_this());
}

void CVMacTableView::removeAllViews() {
    while (!subviews().empty()) {
        const auto last = subviews().back();
        last->removeFromSuperview();
    }
    dragIndicator_ = nullptr;
}

// Sections.

void CVMacTableView::loadSection(Index section) {
    const auto source = dataSource();
    if (!source) return;
    const std::uint64_t reload = reloads_;
    const auto title = source->tableViewTitleForHeaderInSection(*this, section);
    const HeaderPtr header = title ? makeHeader(section, *title) : nullptr;
    if (reload != reloads_) return;
    rows_.insertSection(section, header);
    if (header) addSubview(header);
    const Index count = source->tableViewNumberOfRowsInSection(*this, section);
    if (reload != reloads_ || !rows_.hasSection(section)) return;
    // What was announced while they were counted is in the count.
    takeOut(rows_.removeRows({section, 0}, rows_.rowCount(section)));
    rows_.insertRows({section, 0}, count);
    const std::uint64_t revision = rows_.revision();
    reloadRowsAtIndexPaths(pathsOfSection(section, count), kAnimationOfLoading);
    if (revision != rows_.revision() && reload == reloads_) loadMissingRows();
}

void CVMacTableView::loadMissingRows() {
    Paths missing;
    for (IndexPath path; path.section < rows_.sectionCount(); path = {path.section + 1, 0})
        for (; path.item < rows_.rowCount(path.section); ++path.item)
            if (!rows_.cellAt(path)) missing.emplace_back(path);
    reloadRowsAtIndexPaths(missing, kAnimationOfLoading);
}

CVMacTableView::HeaderPtr CVMacTableView::makeHeader(Index section, const std::string& title) {
    HeaderPtr header = ask(delegate(), &CVMacTableViewDelegate::tableViewViewForHeaderInSection,
                           HeaderPtr(), *this, section);
    if (!header) header = std::make_shared<CVMacSectionHeaderView>(views::Rect{});
    header->setTitle(title);
    const auto hand = [&](const OptionalColor& color,
                          void (CVMacSectionHeaderView::*setter)(const OptionalColor&)) {
        if (color) (*header.*setter)(color);
    };
    hand(sectionHeaderBackgroundColor(), &CVMacSectionHeaderView::setBackgroundColor);
    hand(sectionHeaderBackgroundAlternativeColor(),
         &CVMacSectionHeaderView::setBackgroundAlternativeColor);
    hand(sectionHeaderTextColor(), &CVMacSectionHeaderView::setTextColor);
    hand(sectionHeaderBorderColor(), &CVMacSectionHeaderView::setBorderColor);
    hand(sectionHeaderBorderAlternativeColor(), &CVMacSectionHeaderView::setBorderAlternativeColor);
    return header;
}

void CVMacTableView::insertSections(const std::set<Index>& sections, int) {
    const std::uint64_t reload = reloads_;
    for (const Index section : sections) {
        if (section < 0 || section > rows_.sectionCount()) continue;
        ++numberOfSections_;
        loadSection(section);
        if (reload != reloads_) return;
    }
    setNeedsApplyLayout();
}

void CVMacTableView::deleteSections(const std::set<Index>& sections, int) {
    keepFocusInTable([&] {
        for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
            if (!rows_.hasSection(*section)) continue;
            const RowCache::Section removed = rows_.removeSection(*section);
            --numberOfSections_;
            if (removed.header) removed.header->removeFromSuperview();
            takeOut(removed.cells);
        }
    });
    setNeedsApplyLayout();
}

void CVMacTableView::reloadSections(const std::set<Index>& sections, int animation) {
    std::set<Index> existing;
    for (const Index section : sections)
        if (rows_.hasSection(section)) existing.insert(section);
    deleteSections(existing, animation);
    insertSections(existing, animation);
}

void CVMacTableView::moveSection(Index section, Index toSection) {
    rows_.moveSection(section, toSection);
    setNeedsApplyLayout();
}

// Rows.

void CVMacTableView::reloadRowsAtIndexPaths(const Paths& paths, int, bool adjustingFrameSize) {
    const double cellWidth = currentCellWidth();
    const std::uint64_t reload = reloads_;
    // Once for all the rows.
    const std::weak_ptr<CVMacTableViewCellDelegate> self =
        std::static_pointer_cast<CVMacTableView>(shared_from_this());
    float difference = 0;
    for (const CVIndexPath& path : paths) {
        if (!reloadRow(path.toNSIndexPath(), self, cellWidth, difference)) continue;
        if (reload != reloads_) return;
    }
    if (adjustingFrameSize && difference != 0)
        setFrameSize({frame().width, frame().height + static_cast<double>(difference)});
    setNeedsApplyLayout();
}

bool CVMacTableView::reloadRow(const IndexPath& path,
                               const std::weak_ptr<CVMacTableViewCellDelegate>& self,
                               double cellWidth, float& difference) {
    const auto source = dataSource();
    if (!source || !rows_.contains(path)) return false;
    const CellPtr before = rows_.cellAt(path);
    CellPtr reusable = before;
    if (!before && reusableCells_ && !reusableCells_->empty()) {
        reusable = reusableCells_->back();
        reusableCells_->pop_back();
        if (reusable->superview() == this) {
            reusable = nullptr;  // the data source kept it and has used it on its own
        } else {
            reusable->setIndexPath(path);
            reusable->prepareForReuse();
        }
    }
    const std::uint64_t revision = rows_.revision();
    const CellPtr cell = source->tableViewCellForRowAtIndexPath(*this, path, reusable);
    if (!cell) {
        trace("ERROR: CVMacTableViewCell reloadRowsAtIndexPaths got NULL cell from data source");
        return false;
    }
    // Somebody may have changed the rows meanwhile: then the cell is for one that is elsewhere.
    if (revision != rows_.revision() || rows_.cellAt(path) != before) return true;
    // A cell that stands for another row cannot be this one, too.
    if (cell != before && cell->superview() == this) return false;
    cell->setDelegate(self);
    if (cell != before) {
        if (before) {
            rows_.setCell(path, nullptr);
            takeOut({before});
        }
        rows_.setCell(path, cell);
        if (filteredIndexPaths_) cell->setFiltered(!filteredIndexPaths_->contains(path));
        addSubview(cell);
    }
    if (before) {
        cell->setNeedsApplyLayout();
        cell->setNeedsDisplay();
    }
    const float height = measure(*cell, cellWidth);
    if (!rows_.holds(*cell)) return true;
    difference += height - rows_.heightAt(cell->indexPath().toNSIndexPath());
    rows_.setHeight(cell->indexPath().toNSIndexPath(), height);
    return true;
}

float CVMacTableView::measure(Cell& cell, double cellWidth) {
    return static_cast<float>(
        cell.sizeForCellWidth(cellWidth, static_cast<double>(rowHeight()), printing()).height);
}

void CVMacTableView::insertRowsAtIndexPaths(const Paths& paths, int animation) {
    Paths inserted;
    for (const auto& [first, count] : rows_.insertRuns(runsOf(paths)))
        for (Index row = first.item; row < first.item + count; ++row)
            inserted.emplace_back(first.section, row);
    // New rows are to be seen until somebody filters again.
    filteredIndexPaths_ = indexPathsOfFilteredRows();
    if (filteredIndexPaths_) filteredIndexPaths_->insert(inserted.begin(), inserted.end());
    reloadRowsAtIndexPaths(inserted, animation);
}

void CVMacTableView::deleteRowsAtIndexPaths(const Paths& paths, int) {
    keepFocusInTable([&] { takeOut(rows_.removeRuns(runsOf(paths))); });
    setNeedsApplyLayout();
}

void CVMacTableView::takeOut(const std::vector<CellPtr>& cells) {
    for (const CellPtr& cell : cells) {
        if (!cell) continue;
        selection_.forget(cell);
        placeholder_.forget(cell);
        cell->removeFromSuperview();
    }
}

void CVMacTableView::moveRowAtIndexPath(const CVIndexPath& from, const CVIndexPath& to) {
    const auto text = [](const CVIndexPath& path) {
        return fmt::format("({}, {})", path.section(), path.row());
    };
    trace("[CVMacTableView moveRowAtIndexPath:{} {}-{} to {} {}-{}", text(from), from.section(),
          from.row(), text(to), to.section(), to.row());
    if (from == to) return;
    trace("move source cell indexpath {} {}-{}", text(from), from.section(), from.row());
    rows_.moveRow(from.toNSIndexPath(), to.toNSIndexPath());
    setNeedsApplyLayout();
}

// Look-ups.

CVMacTableView::OptionalPath CVMacTableView::pathOf(const CellPtr& cell) {
    if (!cell) return std::nullopt;
    return cell->indexPath();
}

CVMacTableView::CellPtr CVMacTableView::shareOf(Cell& cell) const {
    return rows_.holds(cell) ? rows_.cellAt(cell.indexPath().toNSIndexPath()) : nullptr;
}

CVMacTableView::CellPtr CVMacTableView::cellForRowAtIndexPath(const CVIndexPath& path) const {
    return rows_.cellAt(path.toNSIndexPath());
}

CVMacTableView::CellPtr CVMacTableView::cachedCellForRowWithIndexPath(
    const CVIndexPath& path) const {
    return rows_.cellAt(path.toNSIndexPath());
}

double CVMacTableView::cachedCellHeightForRowWithIndexPath(const CVIndexPath& path) const {
    return rows_.heightAt(path.toNSIndexPath());
}

CVMacTableView::CellPtr CVMacTableView::firstCellRespectingFiltered(bool respect) const {
    return outermostCell(rows_, RowStep::Next, respect);
}

CVMacTableView::CellPtr CVMacTableView::lastCellRespectingFiltered(bool respect) const {
    return outermostCell(rows_, RowStep::Previous, respect);
}

CVMacTableView::CellPtr CVMacTableView::nextCellForIndexPath(const OptionalPath& path,
                                                             bool acrossSections,
                                                             bool respectFiltered) const {
    return adjacentCell(rows_, CVIndexPath::toNSIndexPath(path), RowStep::Next, acrossSections,
                        respectFiltered);
}

CVMacTableView::CellPtr CVMacTableView::previousCellForIndexPath(const OptionalPath& path,
                                                                 bool acrossSections,
                                                                 bool respectFiltered) const {
    return adjacentCell(rows_, CVIndexPath::toNSIndexPath(path), RowStep::Previous, acrossSections,
                        respectFiltered);
}

// Filtering.

void CVMacTableView::filterRowsWithIndexPaths(const std::optional<PathSet>& paths) {
    filteredIndexPaths_ = paths;
    selection_.filterDidChange();
    // Both are in order, so they are walked together.
    auto kept = paths ? paths->begin() : PathSet::iterator();
    for (const auto& section : rows_.sections()) {
        for (const auto& cell : section.cells) {
            if (!cell) continue;
            const CVIndexPath path = cell->indexPath();
            while (paths && kept != paths->end() && *kept < path)
                ++kept;
            cell->setFiltered(paths && (kept == paths->end() || *kept != path));
        }
    }
    updateAllRowHeightsWithCellWidth(currentCellWidth());
    setNeedsApplyLayout();
}

std::optional<CVMacTableView::PathSet> CVMacTableView::indexPathsOfFilteredRows() const {
    if (!filteredIndexPaths_ || rows_.sectionCount() == 0) return filteredIndexPaths_;
    // Rows may have come, gone and moved since; the cells know.
    PathSet visible;
    for (const auto& section : rows_.sections())
        for (const auto& cell : section.cells)
            if (cell && !cell->filtered()) visible.insert(visible.end(), cell->indexPath());
    return visible;
}

}  // namespace corvane
