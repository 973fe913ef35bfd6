// Invoking actions, from a control or from a menu of them.
#pragma once

#include "corvane/models/CVAction.h"
#include "corvane/views/Menu.h"

#include <functional>
#include <memory>

namespace corvane {

using ActionInvoked = std::function<void(CVAction&)>;

/// Lets the action do its work, where it is one that toolbars leave that to, then tells.
void invokeAction(const std::shared_ptr<CVAction>& action, const CVAction::Sender& sender,
                  const ActionInvoked& didInvoke);

/// An item for the action, or for its own actions a submenu. The action is asked whether it is
/// valid when the item is shown or chosen.
std::shared_ptr<views::MenuItem> menuItemForAction(const std::shared_ptr<CVAction>& action,
                                                   const ActionInvoked& didInvoke);

/// An item for each of the action's own actions.
std::shared_ptr<views::Menu> menuOfSubActions(const CVAction& action,
                                              const ActionInvoked& didInvoke);

}  // namespace corvane
