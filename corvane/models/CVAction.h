// A command of the application, as toolbars and menus show it. Not what they show it as. One
// thread, the window's.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/platform/Size.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace corvane {

namespace views {
class MenuItem;
class ToolbarItem;
class View;
}  // namespace views

/// Held by a shared pointer. The base of concrete actions, which do something when invoked.
class CVAction {
  public:
    using Text = std::optional<std::string>;
    using SubActions = std::vector<std::shared_ptr<CVAction>>;

    /// What the user operated, for as long as the call lasts; the first for nothing.
    using Sender =
        std::variant<std::monostate, views::View*, views::MenuItem*, views::ToolbarItem*>;

    CVAction(std::string identifier, std::int64_t index)
        : identifier_(std::move(identifier)), index_(index) {}
    virtual ~CVAction() = default;
    CVAction(const CVAction&) = delete;
    CVAction& operator=(const CVAction&) = delete;

    /// Passes on to a sub-action when the sender is the segmented control that shows them: to the
    /// one at the place of its selected segment. Else nothing. A circle of sub-actions ends after
    /// a few rounds.
    virtual void actionInvoked(const Sender& sender);

    /// Whether the action can be invoked now.
    virtual bool validate() const { return true; }
    bool validateToolbarItem(const views::ToolbarItem&) const { return validate(); }
    bool validateMenuItem(const views::MenuItem&) const { return validate(); }

    /// Makes a button with the icon, if there is one, and keeps it as the custom view.
    void createImageButtonForCustomView();

    const std::string& identifier() const { return identifier_; }
    std::int64_t index() const { return index_; }  ///< the place among the actions
    void setIndex(std::int64_t index) { index_ = index; }

    const Text& title() const { return title_; }
    void setTitle(Text title) { title_ = std::move(title); }
    const platform::ImagePtr& icon() const { return icon_; }
    void setIcon(platform::ImagePtr icon) { icon_ = std::move(icon); }
    const Text& tooltip() const { return tooltip_; }
    void setTooltip(Text tooltip) { tooltip_ = std::move(tooltip); }

    // In points; 0 leaves them to the toolbar.
    double titleWidth() const { return titleWidth_; }
    void setTitleWidth(double width) { titleWidth_ = width; }
    platform::Size smallIconSize() const { return smallIconSize_; }
    void setSmallIconSize(platform::Size size) { smallIconSize_ = size; }
    platform::Size largeIconSize() const { return largeIconSize_; }
    void setLargeIconSize(platform::Size size) { largeIconSize_ = size; }

    // For the toolbar that shows the action, which gives these their meaning.
    bool addAction() const { return addAction_; }
    void setAddAction(bool add) { addAction_ = add; }
    bool useDefaultActionInvokedSelector() const { return useDefaultActionInvokedSelector_; }
    void setUseDefaultActionInvokedSelector(bool use) { useDefaultActionInvokedSelector_ = use; }
    bool allowToggling() const { return allowToggling_; }
    void setAllowToggling(bool allow) { allowToggling_ = allow; }

    /// Shown in the place of title and icon; null for none.
    const std::shared_ptr<views::View>& customView() const { return customView_; }
    void setCustomView(std::shared_ptr<views::View> view) { customView_ = std::move(view); }

    const SubActions& subActions() const { return subActions_; }
    void setSubActions(SubActions actions) { subActions_ = std::move(actions); }

    /// That which shows the action; null for none.
    const std::shared_ptr<views::ToolbarItem>& toolbarItem() const { return toolbarItem_; }
    void setToolbarItem(std::shared_ptr<views::ToolbarItem> item) {
        toolbarItem_ = std::move(item);
    }

  private:
    const std::string identifier_;
    std::int64_t index_;
    Text title_;
    platform::ImagePtr icon_;
    Text tooltip_;
    double titleWidth_ = 0;
    platform::Size smallIconSize_;
    platform::Size largeIconSize_;
    bool addAction_ = false;
    bool useDefaultActionInvokedSelector_ = true;
    bool allowToggling_ = false;
    std::shared_ptr<views::View> customView_;
    SubActions subActions_;
    std::shared_ptr<views::ToolbarItem> toolbarItem_;
};

}  // namespace corvane
