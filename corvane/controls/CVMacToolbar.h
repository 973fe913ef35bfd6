// A row of the actions that a screen offers.
#pragma once

#include "corvane/models/CVAction.h"
#include "corvane/views/CompoundView.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane {

class ActionToolbarItem;
class CVMacToolbarButton;

/// The actions stand in the order of their indexes, those that add something first and apart from
/// the rest. What shows an action is its custom view; for actions of its own between which it
/// toggles a segmented control; else a button, with a menu where it has actions of its own. What
/// does not fit into the width goes into a menu at the trailing end.
///
/// Each action gets a toolbar item, and what is done to that shows. Actions are asked whether they
/// are valid at the end of a turn of the main run loop in which the window had an event, when they
/// are told to be, and when a menu opens; an action that is not is disabled.
///
/// Tab stops at one of the buttons, and Left and Right move between them. Segmented controls and
/// custom views, which may need these keys themselves, are stops of their own.
class CVMacToolbar : public views::CompoundView {
  public:
    using Actions = std::vector<std::shared_ptr<CVAction>>;

    CVMacToolbar();
    ~CVMacToolbar() override;

    /// In the order shown.
    const Actions& actions() const { return actions_; }
    /// Null ones are passed over. What shows an action that stays keeps the focus, and its segments
    /// the selected one.
    void setActions(Actions actions);
    /// Null for an action that is not here, or not shown by a button.
    std::shared_ptr<CVMacToolbarButton> buttonForAction(const CVAction& action) const;
    /// What shows the action; null for one that is not here.
    std::shared_ptr<views::View> viewForAction(const CVAction& action) const;

    /// After the action itself was invoked, where it is one that is (see CVAction). Of a segmented
    /// control it is the action that has the others, of a menu the one chosen.
    std::function<void(CVAction&)> didInvokeAction;

    /// Now, and once.
    void validateActions();

    bool showsTitles() const { return showsTitles_; }  ///< at first true
    void setShowsTitles(bool shows);
    bool usesLargeIcons() const { return usesLargeIcons_; }
    void setUsesLargeIcons(bool large);

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void didMoveToWindow() override;
    bool keyDown(const views::KeyEvent& event) override;
    views::Role accessibilityRole() const override { return views::Role::Toolbar; }

  private:
    struct Entry {
        std::shared_ptr<CVAction> action;
        std::shared_ptr<ActionToolbarItem> item;
        std::shared_ptr<views::View> customView;  ///< the item's; null for none
        std::shared_ptr<views::View> view;
    };

    Entry makeEntry(const std::shared_ptr<CVAction>& action, const Entry* before);
    std::shared_ptr<views::View> makeView(const Entry& entry);
    void replaceEntries(std::vector<Entry> entries);
    void showItem(const Entry& entry);
    void itemDidChange(const ActionToolbarItem& item);
    const Entry* entryOf(const CVAction& action) const;
    bool isHere(const Entry& entry) const;
    void tell(CVAction& action);
    void openOverflow();

    void linkKeyViews();
    std::vector<std::shared_ptr<views::View>> focusableViews() const;
    void chooseTabStop();
    void moveFocus(bool rightwards);
    /// None where it is not in the toolbar.
    std::optional<double> placeOfFocus() const;
    /// On to the nearest stop, where what had it there has gone.
    void keepFocus(std::optional<double> place);

    double gapBefore(std::size_t entry) const;
    views::Size sizeOf(const Entry& entry) const;
    void placeEntries(double room);
    void placeOverflow(bool overflows);

    Actions actions_;
    std::vector<Entry> entries_;
    std::shared_ptr<CVMacToolbarButton> overflow_;  ///< null before it is needed
    std::size_t shown_ = 0;                         ///< entries that fit
    std::shared_ptr<void> following_;               ///< the window's events
    bool showsTitles_ = true;
    bool usesLargeIcons_ = false;
};

}  // namespace corvane
