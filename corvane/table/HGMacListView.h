// A flat list of items of different heights, edited where they stand.
#pragma once

#include "corvane/models/CVIndexPath.h"
#include "corvane/platform/Pasteboard.h"
#include "corvane/table/CVMacLayoutableView.h"
#include "corvane/table/HGMacListViewDelegate.h"
#include "corvane/table/HGMacListViewItemDelegate.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class DropIndicator;

/// Items come from the delegate, which may change the list from wherever it is called. An index
/// beyond the items changes nothing.
class HGMacListView : public CVMacLayoutableView, public HGMacListViewItemDelegate {
  public:
    using Index = std::int64_t;
    using Indexes = std::vector<Index>;
    using ItemPtr = std::shared_ptr<HGMacListViewItem>;

    static constexpr Index kNotFound = std::numeric_limits<Index>::max();

    explicit HGMacListView(const views::Rect& frame = {});

    std::shared_ptr<HGMacListViewDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(std::weak_ptr<HGMacListViewDelegate> delegate) { delegate_ = delegate; }

    bool dataLoaded() const { return dataLoaded_; }
    Index numberOfItems() const { return static_cast<Index>(items_.size()); }
    const std::vector<ItemPtr>& items() const { return items_; }
    const std::vector<float>& itemHeights() const { return itemHeights_; }  ///< as many
    double itemWidth() const { return itemWidth_; }  ///< for which the heights were measured

    void loadData();
    void unloadData();
    void reloadData();  ///< nothing without a delegate
    void loadItemAtIndex(Index index, bool placeholder);
    void unloadItemAtIndex(Index index);
    void reloadItemAtIndex(Index index);
    void insertItemsAtIndexes(Indexes indexes);
    void deleteItemsAtIndexes(Indexes indexes);
    void reloadItemsAtIndexes(const Indexes& indexes);
    void moveItemAtIndex(Index index, Index toIndex);

    Index indexOfItem(const HGMacListViewItem& item) const;  ///< kNotFound where it is not here
    Index indexOfItemAtPoint(views::Point point);            ///< kNotFound outside of the items

    void enqueueResuableItem(const ItemPtr& item);
    /// A new one where there is none.
    ItemPtr dequeueReusableItem();

    void updateAllItemHeightsForSize(views::Size size);
    views::Size preferredSizeThatFits(views::Size available) override;
    void textSizesDidChange() override;
    void applyLayout() override;
    void requestAutoResizingIfNeeded();

    // Drags.

    /// Before which item; also gives the left end of the line that shows it.
    Index targetIndexForDraggingInfo(const views::DraggingInfo& info,
                                     views::Point& indicatorLocation);
    static Index readItemIndexFromPasteboard(const platform::Pasteboard& pasteboard);
    /// Ascending.
    static std::vector<CVIndexPath> readTableViewCellIndexPathsFromPasteboard(
        const platform::Pasteboard& pasteboard);
    static std::vector<std::string> readTextsFromPasteboard(const platform::Pasteboard& pasteboard);
    ItemPtr activeDraggingSourceItem() const { return activeDraggingSourceItem_.lock(); }
    std::shared_ptr<DropIndicator> draggingIndicatorView() const { return indicator_; }

    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void drawAboveSubviews(views::Canvas& canvas, const views::Rect& dirty) override;
    bool acceptsFirstResponder() const override { return true; }
    bool keyDown(const views::KeyEvent& event) override { return interpretKeyEvent(event); }
    /// Down and Return lead into the first item, Up into the last one.
    bool doCommand(views::Command command) override;
    views::Role accessibilityRole() const override { return views::Role::List; }
    views::DragOperation draggingEntered(views::DraggingInfo& info) override;
    views::DragOperation draggingUpdated(views::DraggingInfo& info) override;
    void draggingExited(views::DraggingInfo& info) override;
    bool prepareForDragOperation(views::DraggingInfo& info) override;
    bool performDragOperation(views::DraggingInfo& info) override;
    void concludeDragOperation(views::DraggingInfo& info) override;

    // As the delegate of its items.

    void requestAutoResizingForListViewItem(HGMacListViewItem& item) override;
    void listViewItemDidEditTextFieldValue(HGMacListViewItem& item,
                                           const std::string& value) override;
    void inlineInsertAfterItem(HGMacListViewItem& item) override;
    void makeNextKeyViewFirstResponderAfterItem(HGMacListViewItem& item) override;
    void makePreviousKeyViewFirstResponderBeforeItem(HGMacListViewItem& item) override;
    void imageViewTappedForItem(HGMacListViewItem& item) override;
    void imageViewDoubleTappedForItem(HGMacListViewItem& item) override;
    void startDraggingItem(HGMacListViewItem& item, const views::MouseEvent& event) override;
    void endDraggingItem(HGMacListViewItem& item) override;
    std::shared_ptr<views::Menu> contextMenuForItem(HGMacListViewItem& item) override;

  private:
    enum class DropPhase { Will, Did };

    bool hasItem(Index index) const { return index >= 0 && index < numberOfItems(); }
    void load();
    void unload();
    void measureForWidth(double width);
    void requestResizing();
    void tell(HGMacListViewDelegate::ItemNotice HGMacListViewDelegate::*notice,
              HGMacListViewItem& item);
    void removeIndicator();
    bool drop(views::DraggingInfo& info, DropPhase phase);
    bool dropOwnItem(views::DraggingInfo& info, Index target, DropPhase phase);

    std::weak_ptr<HGMacListViewDelegate> delegate_;
    std::vector<ItemPtr> reusableItemQueue_;
    std::vector<ItemPtr> items_;
    std::vector<float> itemHeights_;
    double itemWidth_ = 0;
    std::weak_ptr<HGMacListViewItem> activeDraggingSourceItem_;
    std::shared_ptr<DropIndicator> indicator_;
    std::uint64_t loads_ = 0;  ///< to notice those that happen while it calls somebody
    bool dataLoaded_ = false;
};

}  // namespace corvane
