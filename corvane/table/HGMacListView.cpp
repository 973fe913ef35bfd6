#include "corvane/table/HGMacListView.h"

#include "corvane/platform/RunLoop.h"
#include "corvane/platform/TextScanner.h"
#include "corvane/table/DropIndicator.h"
#include "corvane/table/HGMacListViewItem.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace corvane {

namespace {

using Delegate = HGMacListViewDelegate;

template <class Vector>
auto at(Vector& vector, HGMacListView::Index index) {
    return vector.begin() + static_cast<std::ptrdiff_t>(index);
}

/// Moves what is at one place of a list to another.
template <class Vector>
void rotate(Vector& vector, HGMacListView::Index from, HGMacListView::Index to) {
    if (from < to) {
        std::rotate(at(vector, from), at(vector, from + 1), at(vector, to + 1));
    } else {
        std::rotate(at(vector, to), at(vector, from), at(vector, from + 1));
    }
}

}  // namespace

HGMacListView::HGMacListView(const views::Rect& frame) : CVMacLayoutableView(frame) {
    registerForDraggedTypes(
        {std::string(CVIndexPath::pasteboardType()), std::string(platform::kPasteboardTypeString),
         std::string(platform::kPasteboardTypeURL), std::string(platform::kPasteboardTypeURLName)});
}

// Loading.

void HGMacListView::loadData() {
    load();
    requestAutoResizingIfNeeded();
}

void HGMacListView::unloadData() {
    unload();
    requestAutoResizingIfNeeded();
}

void HGMacListView::reloadData() {
    if (!delegate()) return;
    unload();
    load();
    requestResizing();
}

void HGMacListView::load() {
    const std::uint64_t current = ++loads_;
    dataLoaded_ = true;
    const Index count = ask(delegate(), &Delegate::numberOfItemsInListView, Index(0), *this);
    for (Index index = 0; index < count && current == loads_; ++index)
        loadItemAtIndex(index, false);
}

void HGMacListView::unload() {
    ++loads_;
    dataLoaded_ = false;
    while (!items_.empty())
        unloadItemAtIndex(numberOfItems() - 1);
}

void HGMacListView::loadItemAtIndex(Index index, bool placeholder) {
    const ItemPtr item = ask(
        delegate(),
        placeholder ? &Delegate::listViewItemForPlaceholderAtIndex : &Delegate::listViewItemAtIndex,
        ItemPtr(), *this, index);
    if (!item || item->superview() == this || index < 0 || index > numberOfItems()) return;
    item->setPlaceholder(placeholder);
    item->setDelegate(std::static_pointer_cast<HGMacListView>(shared_from_this()));
    items_.insert(at(items_, index), item);
    itemHeights_.insert(at(itemHeights_, index), 0);
    addSubview(item);
    const auto height = static_cast<float>(item->preferredSizeThatFits(frame().size()).height);
    if (const Index now = indexOfItem(*item); now != kNotFound) *at(itemHeights_, now) = height;
    setNeedsApplyLayout();
}

void HGMacListView::unloadItemAtIndex(Index index) {
    if (!hasItem(index)) return;
    const ItemPtr item = *at(items_, index);
    // Out of the list first: a text that is being edited ends with its item and is nobody's.
    items_.erase(at(items_, index));
    itemHeights_.erase(at(itemHeights_, index));
    item->removeFromSuperview();
    enqueueResuableItem(item);
    setNeedsApplyLayout();
}

void HGMacListView::reloadItemAtIndex(Index index) {
    if (!hasItem(index)) return;
    unloadItemAtIndex(index);
    loadItemAtIndex(index, false);
}

void HGMacListView::insertItemsAtIndexes(Indexes indexes) {
    std::sort(indexes.begin(), indexes.end());
    for (const Index index : indexes)
        loadItemAtIndex(index, false);
    requestResizing();
}

void HGMacListView::deleteItemsAtIndexes(Indexes indexes) {
    std::sort(indexes.rbegin(), indexes.rend());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    for (const Index index : indexes)
        unloadItemAtIndex(index);
    requestAutoResizingIfNeeded();
}

void HGMacListView::reloadItemsAtIndexes(const Indexes& indexes) {
    for (const Index index : indexes)
        reloadItemAtIndex(index);
    requestAutoResizingIfNeeded();
}

void HGMacListView::moveItemAtIndex(Index index, Index toIndex) {
    if (!hasItem(index) || !hasItem(toIndex) || index == toIndex) return;
    rotate(items_, index, toIndex);
    rotate(itemHeights_, index, toIndex);
    setNeedsApplyLayout();
}

// Items.

HGMacListView::Index HGMacListView::indexOfItem(const HGMacListViewItem& item) const {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [&](const ItemPtr& one) { return one.get() == &item; });
    return found == items_.end() ? kNotFound : found - items_.begin();
}

HGMacListView::Index HGMacListView::indexOfItemAtPoint(views::Point point) {
    layoutIfNeeded();
    const auto found = std::find_if(items_.begin(), items_.end(), [&](const ItemPtr& item) {
        return item->frame().contains(point);
    });
    return found == items_.end() ? kNotFound : found - items_.begin();
}

void HGMacListView::enqueueResuableItem(const ItemPtr& item) {
    if (!item) return;
    item->prepareForReuse();
    reusableItemQueue_.push_back(item);
}

HGMacListView::ItemPtr HGMacListView::dequeueReusableItem() {
    if (reusableItemQueue_.empty()) return std::make_shared<HGMacListViewItem>();
    ItemPtr item = std::move(reusableItemQueue_.back());
    reusableItemQueue_.pop_back();
    return item;
}

// Sizes.

void HGMacListView::updateAllItemHeightsForSize(views::Size size) {
    itemWidth_ = size.width;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const ItemPtr item = items_[i];
        const auto height = static_cast<float>(item->preferredSizeThatFits(size).height);
        if (i < items_.size() && items_[i] == item) itemHeights_[i] = height;
    }
}

void HGMacListView::textSizesDidChange() {
    const double before = preferredSizeThatFits(frame().size()).height;
    updateAllItemHeightsForSize(frame().size());
    setNeedsApplyLayout();
    if (preferredSizeThatFits(frame().size()).height != before) requestResizing();
}

void HGMacListView::measureForWidth(double width) {
    if (width != itemWidth_) updateAllItemHeightsForSize({width, frame().height});
}

views::Size HGMacListView::preferredSizeThatFits(views::Size available) {
    measureForWidth(available.width);
    return {available.width, std::accumulate(itemHeights_.begin(), itemHeights_.end(), 0.0)};
}

void HGMacListView::applyLayout() {
    measureForWidth(frame().width);
    double y = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const double height = itemHeights_[i];
        items_[i]->setFrame({0, y, frame().width, height});
        y += height;
    }
    setNeedsDisplay();
}

void HGMacListView::requestResizing() {
    notify(delegate(), &Delegate::requestAutoResizingForListView, *this);
}

void HGMacListView::requestAutoResizingIfNeeded() {
    if (preferredSizeThatFits(frame().size()).height != frame().height) requestResizing();
}

void HGMacListView::requestAutoResizingForListViewItem(HGMacListViewItem& item) {
    const Index index = indexOfItem(item);
    if (index == kNotFound) return;
    const auto height = static_cast<float>(item.preferredSizeThatFits(frame().size()).height);
    float& cached = *at(itemHeights_, index);
    if (height == cached) return;
    cached = height;
    setNeedsApplyLayout();
    requestResizing();
}

// Editing.

void HGMacListView::listViewItemDidEditTextFieldValue(HGMacListViewItem& item,
                                                      const std::string& value) {
    const Index index = indexOfItem(item);
    if (index == kNotFound) return;
    const auto keepAlive = shared_from_this();
    const std::string text(platform::withoutOuterSpace(value));
    const auto delegate = this->delegate();
    if (text.empty()) {
        notify(delegate, &Delegate::listViewDeleteItemAtIndex, *this, index);
        if (const Index left = indexOfItem(item); left != kNotFound) deleteItemsAtIndexes({left});
    } else if (item.placeholder()) {
        item.setPlaceholder(false);
        notify(delegate, &Delegate::listViewInsertItemForPlaceholderAtIndex, *this, index, text);
    } else {
        notify(delegate, &Delegate::listViewUpdateTextFieldValue, *this, text, index);
    }
}

void HGMacListView::inlineInsertAfterItem(HGMacListViewItem& item) {
    const Index before = indexOfItem(item);
    if (before == kNotFound) return;
    const Index index = before + 1;
    const auto keepAlive = shared_from_this();
    notify(delegate(), &Delegate::listViewInsertPlaceholderForNewItemAtIndex, *this, index);
    loadItemAtIndex(index, true);
    requestResizing();
    if (!hasItem(index) || !(*at(items_, index))->placeholder()) return;
    const ItemPtr placeholder = *at(items_, index);
    placeholder->textField()->setEditable(true);
    platform::mainRunLoop().post([placeholder] { placeholder->beginEditing(); });
}

void HGMacListView::makeNextKeyViewFirstResponderAfterItem(HGMacListViewItem& item) {
    const Index index = indexOfItem(item);
    if (index == kNotFound) return;
    if (hasItem(index + 1)) return ItemPtr(*at(items_, index + 1))->beginEditing();
    notify(delegate(), &Delegate::requestNextKeyViewForListView, *this);
}

void HGMacListView::makePreviousKeyViewFirstResponderBeforeItem(HGMacListViewItem& item) {
    const Index index = indexOfItem(item);
    if (index == kNotFound) return;
    if (hasItem(index - 1)) return ItemPtr(*at(items_, index - 1))->beginEditing();
    notify(delegate(), &Delegate::requestPreviousKeyViewForListView, *this);
}

bool HGMacListView::doCommand(views::Command command) {
    const auto edit = [this](Index index) {
        if (hasItem(index)) ItemPtr(*at(items_, index))->beginEditing();
        return true;
    };
    switch (command) {
        case views::Command::InsertTab:
        case views::Command::InsertBacktab:
            return views::focusPassedOn(*this, command).value_or(false);
        case views::Command::MoveDown:
        case views::Command::InsertNewline:
            return edit(0);
        case views::Command::MoveUp:
            return edit(static_cast<Index>(items_.size()) - 1);
        default:
            return false;
    }
}

void HGMacListView::tell(Delegate::ItemNotice Delegate::*notice, HGMacListViewItem& item) {
    const Index index = indexOfItem(item);
    if (index != kNotFound) notify(delegate(), notice, *this, index);
}

void HGMacListView::imageViewTappedForItem(HGMacListViewItem& item) {
    tell(&Delegate::listViewImageViewTappedForItemAtIndex, item);
}

void HGMacListView::imageViewDoubleTappedForItem(HGMacListViewItem& item) {
    tell(&Delegate::listViewImageViewDoubleTappedForItemAtIndex, item);
}

std::shared_ptr<views::Menu> HGMacListView::contextMenuForItem(HGMacListViewItem& item) {
    const Index index = indexOfItem(item);
    if (index == kNotFound) return nullptr;
    return ask(delegate(), &Delegate::listViewContextMenuForItemAtIndex,
               std::shared_ptr<views::Menu>(), *this, index);
}

void HGMacListView::drawAboveSubviews(views::Canvas& canvas, const views::Rect&) {
    views::drawFocusRing(canvas, *this, visibleRect(), 0);
}

void HGMacListView::draw(views::Canvas& canvas, const views::Rect& dirty) {
    canvas.fillRect(dirty, views::theme().background);
}

}  // namespace corvane
