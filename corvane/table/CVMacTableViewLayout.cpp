// Heights, positions and sizes.

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/DropGeometry.h"
#include "corvane/table/DropIndicator.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/ScrollView.h"

#include <algorithm>
#include <numeric>

namespace corvane {

namespace {

/// What the delegate answers for the table's own height of headers.
constexpr double kOwnHeaderHeight = -1;

}  // namespace

// Heights.

void CVMacTableView::reloadRowHeightOfCell(CVMacTableViewCell& cell) {
    if (!rows_.holds(cell)) return;
    const float height = measure(cell, currentCellWidth());
    if (rows_.holds(cell)) rows_.setHeight(cell.indexPath().toNSIndexPath(), height);
    setNeedsApplyLayout();
}

void CVMacTableView::updateAllRowHeightsWithCellWidth(double width) {
    trace("[CVMacTableView updateAllRowHeightsWithCellWidth:]");
    const Stopwatch stopwatch;
    // By position, since measuring calls rows of the application.
    for (IndexPath path; path.section < rows_.sectionCount(); path = {path.section + 1, 0})
        for (; path.item < rows_.rowCount(path.section); ++path.item)
            if (const CellPtr cell = rows_.cellAt(path))
                rows_.setHeight(path, measure(*cell, width));
    trace("   Row heights updated in {} seconds.", stopwatch.text());
    setNeedsApplyLayout();
}

double CVMacTableView::heightForHeader(Index section) {
    if (!rows_.headerOf(section)) return 0;
    const double height =
        ask(delegate(), &CVMacTableViewDelegate::tableViewHeightForHeaderInSection,
            kOwnHeaderHeight, *this, section);
    return height == kOwnHeaderHeight ? static_cast<double>(sectionHeaderHeight()) : height;
}

// Sizes.

double CVMacTableView::currentCellWidth() const {
    return cellWidthForTotalWidth(maximumContentSizeForScrollView(enclosingScrollView()).width);
}

views::Size CVMacTableView::maximumContentSizeForScrollView(const ScrollView* scrollView) const {
    if (scrollView) return scrollView->contentSize();
    return superview() ? superview()->frame().size() : views::Size{};
}

double CVMacTableView::visibleHeight() const {
    return maximumContentSizeForScrollView(enclosingScrollView()).height;
}

views::Size CVMacTableView::preferredSizeForSection(Index section, double cellWidth) {
    if (!rows_.hasSection(section)) return {cellWidth, 0};
    const auto& heights = rows_.sections()[static_cast<std::size_t>(section)].heights;
    // The line below each row is counted for hidden rows, too, which layout does not: a size that
    // does not shrink with every filter saves the window from jumping.
    const double sum =
        std::accumulate(heights.begin(), heights.end(), 0.0) + static_cast<double>(heights.size());
    return {cellWidth, heightForHeader(section) + sum};
}

views::Size CVMacTableView::preferredSizeThatFits(views::Size) {
    trace("[CVMacTableView preferredSize] for '{}'", nameInLines());
    layoutIfNeeded();
    const double width = maximumContentSizeForScrollView(enclosingScrollView()).width;
    double height = top() + bottom();
    for (Index section = 0; section < rows_.sectionCount(); ++section)
        height += preferredSizeForSection(section, cellWidthForTotalWidth(width)).height;
    trace("[/CVMacTableView preferredSize] for '{}' returning {:f} x {:f}", nameInLines(), width,
          height);
    return {width, height};
}

void CVMacTableView::adjustFrameSizeToTotalWidth(double width, double preferredHeight,
                                                 const ScrollView* scrollView) {
    const double visible = scrollView ? scrollView->contentSize().height : 0;
    setFrameSize({width, std::max(preferredHeight, visible)});
}

// Positions.

double CVMacTableView::leftEdge() const {
    return views::isMirrored() ? right() : left();
}

void CVMacTableView::applyLayout() {
    trace("[CVMacTableView applyLayout] for '{}'", nameInLines());
    relayoutAllRows();
    trace("[/CVMacTableView applyLayout] for '{}'", nameInLines());
}

void CVMacTableView::relayoutAllRows() {
    const Stopwatch stopwatch;
    preferredSizeThatFits(frame().size());
    const double cellWidth = cellWidthForTotalWidth(frame().width);
    double position = top();
    for (Index section = 0; section < rows_.sectionCount(); ++section) {
        position = adjustLocationOfSection(section, position, cellWidth);
        position = relayoutRowsForSection(section, cellWidth, position);
    }
    position = adjustLocationAfterLastSection(position, cellWidth) + bottom();
    adjustingFrame_ = true;
    setFrameSize({frame().width, std::max(position, visibleHeight())});
    adjustingFrame_ = false;
    trace("   Data relayouted in {} seconds.", stopwatch.text());
    setNeedsDisplay();
}

double CVMacTableView::relayoutRowsForSection(Index section, double cellWidth, double position) {
    if (!rows_.hasSection(section)) return position;
    const double x = leftEdge();
    if (const HeaderPtr header = rows_.headerOf(section)) {
        const double height = heightForHeader(section);
        header->setFrame({x, position, cellWidth, height});
        position += height;
    }
    for (IndexPath path{section, 0}; path.item < rows_.rowCount(section); ++path.item) {
        const double height = rows_.heightAt(path);
        if (const CellPtr cell = rows_.cellAt(path))
            cell->setFrame({x, position, cellWidth, height});
        position += height > 0 ? height + 1 : 0;
    }
    return position;
}

// What surrounds the table.

void CVMacTableView::didMoveToSuperview() {
    CVMacLayoutableView::didMoveToSuperview();
    frameObservation_.end();
    insetsObservation_.end();
    ScrollView* scrollView = enclosingScrollView();
    if (!scrollView) return;
    auto& center = platform::defaultNotificationCenter();
    const auto changed = [this](const platform::Notification&) { scrollViewFrameSizeDidChange(); };
    frameObservation_ = center.addObserver(views::kScrollViewFrameDidChange, scrollView, changed);
    insetsObservation_ = center.addObserver(views::kScrollViewInsetsDidChange, scrollView, changed);
    scrollViewFrameSizeDidChange();
}

void CVMacTableView::scrollViewFrameSizeDidChange() {
    const ScrollView* scrollView = enclosingScrollView();
    const double width = maximumContentSizeForScrollView(scrollView).width;
    updateAllRowHeightsWithCellWidth(cellWidthForTotalWidth(width));
    double height = top() + bottom();
    for (Index section = 0; section < rows_.sectionCount(); ++section)
        height += preferredSizeForSection(section, cellWidthForTotalWidth(width)).height;
    adjustFrameSizeToTotalWidth(width, height, scrollView);
}

void CVMacTableView::textSizesDidChange() {
    updateAllRowHeightsWithCellWidth(currentCellWidth());
}

void CVMacTableView::frameDidChange(const views::Rect& before) {
    if (!adjustingFrame_) CVMacLayoutableView::frameDidChange(before);
}

void CVMacTableView::settingDidChange(Change change) {
    if (change == Change::Heights && dataLoaded_)
        updateAllRowHeightsWithCellWidth(currentCellWidth());
    if (change != Change::Looks) setNeedsApplyLayout();
    setNeedsDisplay();
}

// Looking at places.

std::vector<std::shared_ptr<views::View>> CVMacTableView::subviewsIn(
    const views::Rect& rect) const {
    std::vector<std::shared_ptr<views::View>> result;
    std::size_t own = dragIndicator_ ? 1 : 0;
    for (const auto& [header, cells, heights] : rows_.sections()) {
        own += cells.size() + (header ? 1 : 0);
        if (header && header->frame().intersects(rect)) result.push_back(header);
        for (auto cell = firstCellBelow(cells, rect.y); cell != cells.end(); ++cell) {
            if (!*cell) continue;
            if ((*cell)->frame().y >= rect.bottom()) break;
            if ((*cell)->frame().height > 0) result.push_back(*cell);
        }
    }
    // A subclass may have put views of its own between the sections.
    if (subviews().size() > own) return View::subviewsIn(rect);
    if (dragIndicator_ && !dragIndicator_->isHidden()) result.push_back(dragIndicator_);
    return result;
}

std::vector<CVMacTableView::CellPtr> CVMacTableView::visibleCells() {
    layoutIfNeeded();
    std::vector<CellPtr> cells;
    for (const auto& view : subviewsIn(visibleRect()))
        if (auto cell = std::dynamic_pointer_cast<CVMacTableViewCell>(view)) cells.push_back(cell);
    return cells;
}

CVMacTableView::OptionalPath CVMacTableView::indexPathForRowInSection(Index section,
                                                                      views::Point point) {
    layoutIfNeeded();
    return CVIndexPath::fromNSIndexPath(
        DropGeometry(rows_, leftEdge(), top()).rowInSectionAt(section, point));
}

CVMacTableView::OptionalPath CVMacTableView::indexPathForRowAtPoint(views::Point point) {
    layoutIfNeeded();
    return CVIndexPath::fromNSIndexPath(DropGeometry(rows_, leftEdge(), top()).rowAt(point));
}

void CVMacTableView::scrollRowToVisibleAtIndexPath(const CVIndexPath& path) {
    layoutIfNeeded();
    if (const CellPtr cell = cellForRowAtIndexPath(path)) scrollRectToVisible(cell->frame());
}

}  // namespace corvane
