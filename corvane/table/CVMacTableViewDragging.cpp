// Rows that are dragged away, and what is dropped onto the table.

#include "corvane/platform/Image.h"
#include "corvane/platform/URL.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/DropGeometry.h"
#include "corvane/table/DropIndicator.h"
#include "corvane/table/HGMacListView.h"
#include "corvane/table/HGMacListViewItem.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"
#include "corvane/views/Drag.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

using Delegate = CVMacTableViewDelegate;

std::string nameOfURL(const platform::Pasteboard& pasteboard, const platform::URL& url) {
    const auto names = pasteboard.textsForType(platform::kPasteboardTypeURLName);
    return names.empty() ? url.lastPathComponent() : names.front();
}

}  // namespace

// As the source.

void CVMacTableView::cellDidInitiateDragging(Cell& cell) {
    trace("cellDidInitiateDragging");
    activeDragSourceCell_ = shareOf(cell);
}

CVMacTableView::CellPtr CVMacTableView::cellDragableCellForRowAtIndexPath(Cell&,
                                                                          const CVIndexPath& path) {
    return cellForRowAtIndexPath(path);
}

std::optional<std::string> CVMacTableView::cellDragableTextForRowAtIndexPath(
    Cell&, const CVIndexPath& path) {
    return ask(delegate(), &Delegate::tableViewDragableTextForRowAtIndexPath,
               std::optional<std::string>(), *this, path);
}

void CVMacTableView::cellDidEndDragging(Cell&) {
    trace("cellDidEndDragging");
    activeDragSourceCell_.reset();
    removeDragIndicator();
}

// Where.

CVMacTableView::OptionalPath CVMacTableView::indexPathForMoveViaDragAtPoint(
    views::Point point, views::Point& indicatorOffset) {
    layoutIfNeeded();
    const auto target = DropGeometry(rows_, leftEdge(), top()).targetAt(point);
    if (!target) return std::nullopt;
    indicatorOffset = target->indicator;
    return target->path;
}

CVMacTableView::Index CVMacTableView::sectionForDragAtPoint(views::Point point) {
    layoutIfNeeded();
    return DropGeometry(rows_, leftEdge(), top()).sectionAt(point);
}

CVIndexPath CVMacTableView::tailAppendIndexPathForMoveViaDragInSection(
    Index section, views::Point& indicatorOffset) {
    layoutIfNeeded();
    const auto target = DropGeometry(rows_, leftEdge(), top()).tailOf(section);
    indicatorOffset = target.indicator;
    return target.path;
}

// The indicator.

void CVMacTableView::removeDragIndicator() {
    if (const auto indicator = std::exchange(dragIndicator_, nullptr))
        indicator->removeFromSuperview();
}

void CVMacTableView::showDragIndicator(const char* image, const views::Rect& rect) {
    if (!dragIndicator_) return;
    dragIndicator_->setImage(platform::imageService().imageNamed(image));
    dragIndicator_->setFrame(rect);
    dragIndicator_->setHidden(false);
}

views::DragOperation CVMacTableView::draggingEntered(views::DraggingInfo&) {
    removeDragIndicator();
    dragIndicator_ = std::make_shared<DropIndicator>();
    addSubview(dragIndicator_);
    return views::kDragOperationGeneric;
}

views::DragOperation CVMacTableView::draggingUpdated(views::DraggingInfo& info) {
    const auto keepAlive = shared_from_this();
    const views::Point point = convertFromWindow(info.draggingLocation());
    const CellPtr source = activeDragSourceCell();
    const auto hide = [this] {
        if (dragIndicator_) dragIndicator_->setHidden(true);
        return views::kDragOperationGeneric;
    };
    if (!source) {
        const auto path = indexPathForRowAtPoint(point);
        const CellPtr cell = path ? cellForRowAtIndexPath(*path) : nullptr;
        if (!cell) return hide();
        showDragIndicator("table-dragging-cell", cell->frame());
        return views::kDragOperationGeneric;
    }
    views::Point offset;
    const auto proposed = indexPathForMoveViaDragAtPoint(point, offset);
    const CVIndexPath from = source->indexPath();
    const auto target = proposed ? ask(delegate(), &Delegate::tableViewTargetIndexPathForMove,
                                       proposed, *this, from, *proposed)
                                 : std::nullopt;
    if (!target || *target == from) return hide();
    const auto image = platform::imageService().imageNamed("table-dragging-row");
    const double height = image ? image->size().height : DropIndicator::kLineHeight;
    showDragIndicator("table-dragging-row", {offset.x, std::round(offset.y - height / 2),
                                             cellWidthForTotalWidth(frame().width), height});
    return views::kDragOperationGeneric;
}

void CVMacTableView::draggingExited(views::DraggingInfo&) {
    removeDragIndicator();
}

// The drop. Question and notice take the same way; the notice is sent to whoever has the question,
// since somebody who never says that a drop is welcome has none to be told of.

bool CVMacTableView::dropRows(views::DraggingInfo& info, CVMacTableView& source,
                              const CVIndexPath& target, DropPhase phase) {
    Paths paths = CVIndexPath::fromPasteboard(info.draggingPasteboard());
    const auto delegate = this->delegate();
    if (paths.empty() || !delegate || !delegate->tableViewWillDropSourceIndexPaths) return false;
    std::sort(paths.begin(), paths.end());
    return ask(delegate,
               phase == DropPhase::Will ? &Delegate::tableViewWillDropSourceIndexPaths
                                        : &Delegate::tableViewDidDropSourceIndexPaths,
               false, *this, paths, source, target);
}

bool CVMacTableView::dropItem(views::DraggingInfo& info, HGMacListView& source,
                              const CVIndexPath& target, DropPhase phase) {
    const Index index = HGMacListView::readItemIndexFromPasteboard(info.draggingPasteboard());
    const auto delegate = this->delegate();
    if (index == HGMacListView::kNotFound || !delegate || !delegate->tableViewWillDropSourceIndex)
        return false;
    return ask(delegate,
               phase == DropPhase::Will ? &Delegate::tableViewWillDropSourceIndex
                                        : &Delegate::tableViewDidDropSourceIndex,
               false, *this, index, source, target);
}

bool CVMacTableView::dropOutsideData(views::DraggingInfo& info, const CVIndexPath& target,
                                     DropPhase phase) {
    const auto delegate = this->delegate();
    if (!delegate) return false;
    const auto& pasteboard = info.draggingPasteboard();
    const bool asks = phase == DropPhase::Will;
    const auto urls = pasteboard.textsForType(platform::kPasteboardTypeURL);
    if (!urls.empty()) {
        if (!delegate->tableViewWillDropURL) return false;
        const platform::URL url(urls.front());
        const std::string name = nameOfURL(pasteboard, url);
        if (asks) {
            trace("### PREPARE DROP url = '{}'", url.absoluteString());
            trace("### PREPARE DROP url-name = '{}'", name);
        }
        return ask(delegate,
                   asks ? &Delegate::tableViewWillDropURL : &Delegate::tableViewDidDropURL, false,
                   *this, url, name, target);
    }
    const auto texts = pasteboard.textsForType(platform::kPasteboardTypeString);
    if (texts.empty() || !delegate->tableViewWillDropTexts) return false;
    return ask(delegate,
               asks ? &Delegate::tableViewWillDropTexts : &Delegate::tableViewDidDropTexts, false,
               *this, texts, target);
}

bool CVMacTableView::drop(views::DraggingInfo& info, DropPhase phase) {
    const auto keepAlive = shared_from_this();
    views::Point offset;
    const auto target =
        indexPathForMoveViaDragAtPoint(convertFromWindow(info.draggingLocation()), offset);
    if (!target) return false;
    const auto cell = std::dynamic_pointer_cast<Cell>(info.draggingSource());
    const auto table = cell ? std::dynamic_pointer_cast<CVMacTableView>(cell->delegate()) : nullptr;
    if (table && table.get() != this) return dropRows(info, *table, *target, phase);
    if (auto item = std::dynamic_pointer_cast<HGMacListViewItem>(info.draggingSource())) {
        const auto list = std::dynamic_pointer_cast<HGMacListView>(item->delegate());
        return list && dropItem(info, *list, *target, phase);
    }
    if (!table) return dropOutsideData(info, *target, phase);
    if (cell != activeDragSourceCell()) return false;
    const Paths paths = CVIndexPath::fromPasteboard(info.draggingPasteboard());
    if (phase == DropPhase::Will) return canMoveDraggedRows(paths, *target);
    moveDraggedRows(paths, *target);
    return true;
}

bool CVMacTableView::prepareForDragOperation(views::DraggingInfo& info) {
    trace("[CVMacTableView prepareForDragOperation]");
    removeDragIndicator();
    return drop(info, DropPhase::Will);
}

bool CVMacTableView::performDragOperation(views::DraggingInfo& info) {
    trace("[CVMacTableView performDragOperation]");
    return drop(info, DropPhase::Did);
}

void CVMacTableView::concludeDragOperation(views::DraggingInfo&) {
    trace("CONCLUDE/FINALIZE DROP");
}

}  // namespace corvane
