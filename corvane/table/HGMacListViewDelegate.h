// Where a list has its items from, and what it does to them.
#pragma once

#include "corvane/models/CVIndexPath.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

namespace views {
class Menu;
}

class CVMacTableView;
class HGMacListView;
class HGMacListViewItem;

/// Owns the values. The list holds a weak reference. Every operation may be left empty, and may
/// change the list that it is called from.
class HGMacListViewDelegate {
  public:
    using List = HGMacListView;
    using Index = std::int64_t;
    using ItemPtr = std::shared_ptr<HGMacListViewItem>;
    using Notice = std::function<void(List&)>;
    using ItemNotice = std::function<void(List&, Index)>;

    virtual ~HGMacListViewDelegate() = default;

    std::function<Index(List&)> numberOfItemsInListView;
    std::function<ItemPtr(List&, Index)> listViewItemAtIndex;
    std::function<ItemPtr(List&, Index)> listViewItemForPlaceholderAtIndex;
    ItemNotice listViewInsertPlaceholderForNewItemAtIndex;
    std::function<void(List&, Index, const std::string& value)>
        listViewInsertItemForPlaceholderAtIndex;
    std::function<void(List&, const std::string& value, Index)> listViewUpdateTextFieldValue;
    /// Of these two, the list itself follows where the delegate does not change it.
    ItemNotice listViewDeleteItemAtIndex;
    std::function<void(List&, Index from, Index to)> listViewMoveItemAtIndex;
    ItemNotice listViewImageViewTappedForItemAtIndex;
    ItemNotice listViewImageViewDoubleTappedForItemAtIndex;
    std::function<std::shared_ptr<views::Menu>(List&, Index)> listViewContextMenuForItemAtIndex;
    Notice requestAutoResizingForListView;
    Notice requestNextKeyViewForListView;
    Notice requestPreviousKeyViewForListView;

    // Drops, before the item of the index: a question before each, a notice after it.

    using RowsDrop =
        std::function<bool(List&, const std::vector<CVIndexPath>&, CVMacTableView& source, Index)>;
    using ItemDrop = std::function<bool(List&, Index dropped, List& source, Index)>;
    using TextsDrop = std::function<bool(List&, const std::vector<std::string>&, Index)>;
    RowsDrop listViewWillDropSourceIndexPaths;
    RowsDrop listViewDidDropSourceIndexPaths;
    ItemDrop listViewWillDropSourceIndex;
    ItemDrop listViewDidDropSourceIndex;
    TextsDrop listViewWillDropTexts;
    TextsDrop listViewDidDropTexts;
};

}  // namespace corvane
