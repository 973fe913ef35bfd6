// Items that are dragged away, and what is dropped onto the list.

#include "corvane/platform/Image.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/DropIndicator.h"
#include "corvane/table/HGMacListView.h"
#include "corvane/table/HGMacListViewItem.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/table/TableTrace.h"
#include "corvane/views/Drag.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

using Delegate = HGMacListViewDelegate;

}  // namespace

// As the source.

void HGMacListView::startDraggingItem(HGMacListViewItem& item, const views::MouseEvent&) {
    const Index index = indexOfItem(item);
    if (index == kNotFound || !window()) return;
    const ItemPtr share = items_[static_cast<std::size_t>(index)];
    activeDraggingSourceItem_ = share;
    CVIndexPath path(0, index);
    path.setPasteboardText(item.textField()->stringValue());
    platform::Pasteboard pasteboard;
    pasteboard.writeObject(path);
    window()->beginDragging(
        {share, std::move(pasteboard), share, item.convertToWindow(item.mouseDownLocation())});
}

void HGMacListView::endDraggingItem(HGMacListViewItem&) {
    activeDraggingSourceItem_.reset();
    removeIndicator();
}

HGMacListView::Index HGMacListView::readItemIndexFromPasteboard(
    const platform::Pasteboard& pasteboard) {
    const auto paths = CVIndexPath::fromPasteboard(pasteboard);
    return paths.empty() ? kNotFound : paths.front().row();
}

std::vector<CVIndexPath> HGMacListView::readTableViewCellIndexPathsFromPasteboard(
    const platform::Pasteboard& pasteboard) {
    auto paths = CVIndexPath::fromPasteboard(pasteboard);
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::vector<std::string> HGMacListView::readTextsFromPasteboard(
    const platform::Pasteboard& pasteboard) {
    return pasteboard.textsForType(platform::kPasteboardTypeString);
}

// The indicator.

HGMacListView::Index HGMacListView::targetIndexForDraggingInfo(const views::DraggingInfo& info,
                                                               views::Point& indicatorLocation) {
    layoutIfNeeded();
    const double y = convertFromWindow(info.draggingLocation()).y;
    // Before the first item whose middle lies below the pointer.
    const auto found = std::find_if(items_.begin(), items_.end(), [&](const ItemPtr& item) {
        return y < item->frame().y + item->frame().height / 2;
    });
    if (found != items_.end()) {
        indicatorLocation = (*found)->frame().origin();
    } else {
        indicatorLocation = {0, items_.empty() ? 0 : items_.back()->frame().bottom()};
    }
    return found - items_.begin();
}

void HGMacListView::removeIndicator() {
    if (const auto indicator = std::exchange(indicator_, nullptr)) indicator->removeFromSuperview();
}

views::DragOperation HGMacListView::draggingEntered(views::DraggingInfo&) {
    removeIndicator();
    indicator_ = std::make_shared<DropIndicator>();
    indicator_->setImage(platform::imageService().imageNamed("table-dragging-row"));
    addSubview(indicator_);
    return views::kDragOperationGeneric;
}

views::DragOperation HGMacListView::draggingUpdated(views::DraggingInfo& info) {
    if (!indicator_) return views::kDragOperationGeneric;
    views::Point location;
    const Index target = targetIndexForDraggingInfo(info, location);
    // Before and after itself an item stays where it is.
    const ItemPtr source = activeDraggingSourceItem();
    const Index from = source ? indexOfItem(*source) : kNotFound;
    if (from != kNotFound && (target == from || target == from + 1)) {
        indicator_->setHidden(true);
        return views::kDragOperationGeneric;
    }
    const double height = indicator_->lineHeight();
    indicator_->setFrame({location.x, std::round(location.y - height / 2), frame().width, height});
    indicator_->setHidden(false);
    return views::kDragOperationGeneric;
}

void HGMacListView::draggingExited(views::DraggingInfo&) {
    removeIndicator();
}

// The drop. Question and notice take the same way; the notice is sent to whoever has the question.

bool HGMacListView::dropOwnItem(views::DraggingInfo& info, Index target, DropPhase phase) {
    const Index from = readItemIndexFromPasteboard(info.draggingPasteboard());
    const auto delegate = this->delegate();
    if (!hasItem(from) || !delegate || !delegate->listViewMoveItemAtIndex) return false;
    if (phase == DropPhase::Will) return true;
    const Index to = from < target ? target - 1 : target;
    if (to == from) return true;
    const ItemPtr item = items_[static_cast<std::size_t>(from)];
    notify(delegate, &Delegate::listViewMoveItemAtIndex, *this, from, to);
    if (indexOfItem(*item) == from) moveItemAtIndex(from, to);
    return true;
}

bool HGMacListView::drop(views::DraggingInfo& info, DropPhase phase) {
    const auto keepAlive = shared_from_this();
    const bool asks = phase == DropPhase::Will;
    views::Point location;
    const Index target = targetIndexForDraggingInfo(info, location);
    const auto& pasteboard = info.draggingPasteboard();
    const auto delegate = this->delegate();
    if (!delegate) return false;

    if (auto item = std::dynamic_pointer_cast<HGMacListViewItem>(info.draggingSource())) {
        if (item == activeDraggingSourceItem()) return dropOwnItem(info, target, phase);
        const auto list = std::dynamic_pointer_cast<HGMacListView>(item->delegate());
        const Index index = readItemIndexFromPasteboard(pasteboard);
        if (!list || list.get() == this || index == kNotFound ||
            !delegate->listViewWillDropSourceIndex)
            return false;
        return ask(
            delegate,
            asks ? &Delegate::listViewWillDropSourceIndex : &Delegate::listViewDidDropSourceIndex,
            false, *this, index, *list, target);
    }
    if (auto cell = std::dynamic_pointer_cast<CVMacTableViewCell>(info.draggingSource())) {
        const auto table = std::dynamic_pointer_cast<CVMacTableView>(cell->delegate());
        const auto paths = readTableViewCellIndexPathsFromPasteboard(pasteboard);
        if (!table || paths.empty() || !delegate->listViewWillDropSourceIndexPaths) return false;
        return ask(delegate,
                   asks ? &Delegate::listViewWillDropSourceIndexPaths
                        : &Delegate::listViewDidDropSourceIndexPaths,
                   false, *this, paths, *table, target);
    }
    const auto texts = readTextsFromPasteboard(pasteboard);
    if (texts.empty() || !delegate->listViewWillDropTexts) return false;
    return ask(delegate, asks ? &Delegate::listViewWillDropTexts : &Delegate::listViewDidDropTexts,
               false, *this, texts, target);
}

bool HGMacListView::prepareForDragOperation(views::DraggingInfo& info) {
    trace("[HGMacListView prepareForDragOperation]");
    removeIndicator();
    return drop(info, DropPhase::Will);
}

bool HGMacListView::performDragOperation(views::DraggingInfo& info) {
    trace("[HGMacListView performDragOperation]");
    return drop(info, DropPhase::Did);
}

void HGMacListView::concludeDragOperation(views::DraggingInfo&) {
    trace("[HGMacListView concludeDragOperation]");
}

}  // namespace corvane
