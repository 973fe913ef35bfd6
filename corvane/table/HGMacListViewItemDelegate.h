// What an item of a list asks of its list.
#pragma once

#include <memory>
#include <string>

namespace corvane {

namespace views {
class Menu;
class MouseEvent;
}  // namespace views

class HGMacListViewItem;

/// The item holds a weak reference. A request may take the item out of its list.
class HGMacListViewItemDelegate {
  public:
    virtual ~HGMacListViewItemDelegate() = default;

    virtual void requestAutoResizingForListViewItem(HGMacListViewItem& item) = 0;
    virtual void listViewItemDidEditTextFieldValue(HGMacListViewItem& item,
                                                   const std::string& value) = 0;
    virtual void inlineInsertAfterItem(HGMacListViewItem& item) = 0;
    virtual void makeNextKeyViewFirstResponderAfterItem(HGMacListViewItem& item) = 0;
    virtual void makePreviousKeyViewFirstResponderBeforeItem(HGMacListViewItem& item) = 0;
    virtual void imageViewTappedForItem(HGMacListViewItem& item) = 0;
    virtual void imageViewDoubleTappedForItem(HGMacListViewItem& item) = 0;
    virtual void startDraggingItem(HGMacListViewItem& item, const views::MouseEvent& event) = 0;
    virtual void endDraggingItem(HGMacListViewItem& item) = 0;
    virtual std::shared_ptr<views::Menu> contextMenuForItem(HGMacListViewItem& item) = 0;
};

}  // namespace corvane
