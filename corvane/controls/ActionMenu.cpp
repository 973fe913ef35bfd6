#include "corvane/controls/ActionMenu.h"

#include <utility>

namespace corvane {

using views::Menu;
using views::MenuItem;

namespace {

/// Actions that are their own sub-actions, by way of others, must not make menus without end.
constexpr int kDeepestMenu = 4;

std::shared_ptr<Menu> menuOf(const CVAction& action, const ActionInvoked& didInvoke, int depth);

std::shared_ptr<MenuItem> itemFor(const std::shared_ptr<CVAction>& action,
                                  const ActionInvoked& didInvoke, int depth) {
    const bool opens = !action->subActions().empty() && depth < kDeepestMenu;
    MenuItem::Action perform;
    if (!opens)
        perform = [action, didInvoke](MenuItem& sender) {
            invokeAction(action, CVAction::Sender(&sender), didInvoke);
        };
    auto item = std::make_shared<MenuItem>(action->title().value_or(action->identifier()),
                                           std::move(perform));
    item->setImage(action->icon());
    const MenuItem& asked = *item;  // which holds the question
    item->setValidation([action, &asked] { return action->validateMenuItem(asked); });
    if (!opens) return item;
    // Nobody asks a submenu's item.
    item->setEnabled(action->validateMenuItem(asked));
    item->setSubmenu(menuOf(*action, didInvoke, depth + 1));
    return item;
}

std::shared_ptr<Menu> menuOf(const CVAction& action, const ActionInvoked& didInvoke, int depth) {
    auto menu = std::make_shared<Menu>(action.title().value_or(""));
    for (const auto& each : action.subActions())
        if (each) menu->addItem(itemFor(each, didInvoke, depth));
    return menu;
}

}  // namespace

void invokeAction(const std::shared_ptr<CVAction>& action, const CVAction::Sender& sender,
                  const ActionInvoked& didInvoke) {
    if (!action) return;
    const auto keepAlive = action;
    const ActionInvoked tell = didInvoke;
    if (keepAlive->useDefaultActionInvokedSelector()) keepAlive->actionInvoked(sender);
    if (tell) tell(*keepAlive);
}

std::shared_ptr<MenuItem> menuItemForAction(const std::shared_ptr<CVAction>& action,
                                            const ActionInvoked& didInvoke) {
    return action ? itemFor(action, didInvoke, 1) : nullptr;
}

std::shared_ptr<Menu> menuOfSubActions(const CVAction& action, const ActionInvoked& didInvoke) {
    return menuOf(action, didInvoke, 1);
}

}  // namespace corvane
