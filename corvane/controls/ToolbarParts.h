// What a toolbar is made of beside its buttons. Of CVMacToolbar alone.
#pragma once

#include "corvane/controls/ActionMenu.h"
#include "corvane/controls/CVMacToolbarButton.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/ToolbarItem.h"

#include <functional>
#include <memory>
#include <utility>

namespace corvane {

/// An action's item. It says what the action says until somebody changes it, and tells of that.
class ActionToolbarItem final : public views::ToolbarItem {
  public:
    using Changed = std::function<void(const ActionToolbarItem&)>;
    ActionToolbarItem(const CVAction& action, Changed changed);

  protected:
    void didChange() override;

  private:
    Changed changed_;
};

/// A segment for each of an action's own actions. Choosing one invokes the action, which passes
/// that on.
class ActionSegments final : public views::SegmentedControl {
  public:
    ActionSegments(const std::shared_ptr<CVAction>& action, ActionInvoked didInvoke);

    /// What there is by now. The action that was selected stays so, or none is.
    void show(bool showsTitles);
    /// Disables the segments whose actions are not valid.
    void validate();

    // For a menu of the same actions, in the place of the segments.

    void markSelected(const views::Menu& menu) const;
    /// Tells nobody.
    void select(const CVAction& chosen);

  private:
    std::weak_ptr<CVAction> action_;
    CVAction::SubActions shown_;
};

/// The button of the menu of what does not fit.
std::shared_ptr<CVMacToolbarButton> toolbarOverflowButton(std::function<void()> open);

}  // namespace corvane
