// The bars of an overview: commands, search, status, and the questions that it asks.

#include "corvane/controls/BarStack.h"
#include "corvane/controls/CVMacOverview.h"
#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/models/CVOverviewController.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/Event.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

using Actions = std::vector<std::shared_ptr<CVAction>>;
using Controller = CVOverviewController;

Actions actionsOf(const std::shared_ptr<Controller>& controller,
                  std::int64_t (Controller::*count)() const,
                  Controller::Action (Controller::*actionAtIndex)(std::int64_t) const) {
    Actions actions;
    const std::int64_t number = controller ? ((*controller).*count)() : 0;
    for (std::int64_t i = 0; i < number; ++i)
        if (auto action = ((*controller).*actionAtIndex)(i)) actions.push_back(std::move(action));
    return actions;
}

/// As one of them, or in the menu of one of them.
bool contain(const Actions& actions, const CVAction& action) {
    const auto isAction = [&](const auto& one) { return one.get() == &action; };
    return std::any_of(actions.begin(), actions.end(), [&](const auto& one) {
        const Actions& below = one->subActions();
        return isAction(one) || std::any_of(below.begin(), below.end(), isAction);
    });
}

}  // namespace

// Commands.

void CVMacOverview::reloadActions() {
    const auto controller = this->controller();
    globalActions_ =
        actionsOf(controller, &Controller::countGlobalActions, &Controller::globalActionAtIndex);
    const Actions overviewActions = actionsOf(controller, &Controller::countOverviewActions,
                                              &Controller::overviewActionAtIndex);
    Actions inMainBar = globalActions_;
    inMainBar.insert(inMainBar.end(), overviewActions.begin(), overviewActions.end());
    toolbar_->setActions(std::move(inMainBar));
    navigationToolbar_->setActions(actionsOf(controller, &Controller::countNavigationActions,
                                             &Controller::navigationActionAtIndex));
    reloadTitles();
}

void CVMacOverview::passActions() {
    toolbar_->didInvokeAction = [this](CVAction& action) {
        const auto controller = this->controller();
        if (!controller) return;
        if (contain(globalActions_, action)) {
            controller->didInvokeGlobalAction(action);
        } else {
            controller->didInvokeOverviewAction(action);
        }
    };
    navigationToolbar_->didInvokeAction = [this](CVAction& action) {
        if (const auto controller = this->controller())
            controller->didInvokeNavigationAction(action);
    };
}

// Search and status.

void CVMacOverview::passSearch() {
    const auto pass = [this](auto hook) {
        return [this, hook](auto&&... arguments) {
            if (const auto controller = this->controller())
                ((*controller).*hook)(std::forward<decltype(arguments)>(arguments)...);
        };
    };
    searchBar_->didSearchForString = pass(&Controller::overviewDidSearchForString);
    searchBar_->didClearSearch = pass(&Controller::overviewDidClearSearch);
    searchBar_->didExitSearch = pass(&Controller::overviewDidExitSearch);
    searchBar_->didSelectScope = pass(&Controller::overviewDidSelectScope);
    searchBar_->didSelectSearchCategoryAtIndex =
        pass(&Controller::overviewDidSelectSearchCategoryAtIndex);
    searchBar_->didSelectFilterItemAtIndexPath =
        pass(&Controller::overviewDidSelectFilterItemAtIndexPath);
    statusBar_->statusIconSelected = pass(&Controller::overviewStatusIconSelected);
    statusBar_->contextMenuForStatusIcon = [this]() -> std::shared_ptr<views::Menu> {
        const auto controller = this->controller();
        return controller ? controller->overviewContextMenuForStatusIcon() : nullptr;
    };
}

void CVMacOverview::forgetBars() {
    toolbar_->didInvokeAction = nullptr;
    navigationToolbar_->didInvokeAction = nullptr;
    searchBar_->didSearchForString = nullptr;
    searchBar_->didClearSearch = nullptr;
    searchBar_->didExitSearch = nullptr;
    searchBar_->didSelectScope = nullptr;
    searchBar_->didSelectSearchCategoryAtIndex = nullptr;
    searchBar_->didSelectFilterItemAtIndexPath = nullptr;
    statusBar_->statusIconSelected = nullptr;
    statusBar_->contextMenuForStatusIcon = nullptr;
}

bool CVMacOverview::showsOverviewSearchBar() const {
    return !searchBar_->isHidden();
}

void CVMacOverview::setOffersSearch(bool offers) {
    offersSearch_ = offers;
    if (!offers) hideOverviewSearchBar();
}

void CVMacOverview::showOverviewSearchBar() {
    const auto keepAlive = weak_from_this().lock();
    if (!offersSearch_) return;
    searchBar_->setHidden(false);
    layOutBars();
    mainPane_->layoutIfNeeded();
    searchBar_->focusSearchField();
}

void CVMacOverview::hideOverviewSearchBar() {
    if (!showsOverviewSearchBar()) return;
    const auto keepAlive = weak_from_this().lock();
    views::Window* window = this->window();
    const auto focused = window ? window->firstResponder() : nullptr;
    const bool hadFocus = focused && focused->isDescendantOf(*searchBar_);
    const bool searched = !searchBar_->string().empty();
    if (hadFocus) {
        const auto path = overviewTable_->indexPathForSelectedRow();
        const auto row = path ? overviewTable_->cellForRowAtIndexPath(*path) : nullptr;
        window->makeFirstResponder(row ? std::static_pointer_cast<views::View>(row)
                                       : overviewTable_);
    }
    searchBar_->setString({});
    searchBar_->setHidden(true);
    layOutBars();
    const auto controller = this->controller();
    if (searched && controller) controller->overviewDidClearSearch();
}

void CVMacOverview::setShowsStatusBar(bool shows) {
    statusBar_->setHidden(!shows);
    layOutBars();
}

bool CVMacOverview::keyDown(const views::KeyEvent& event) {
    constexpr std::uint64_t kOthers = views::kModifierShift | views::kModifierOption;
    const bool isShortcut =
        (event.has(views::kModifierCommand) || event.has(views::kModifierControl)) &&
        (event.modifierFlags() & kOthers) == 0;
    if (!offersSearch_ || !isShortcut || event.characters() != "f") return false;
    showOverviewSearchBar();
    return true;
}

// Questions.

void CVMacOverview::showConfirmationSheet(views::Alert alert) {
    views::Window* window = this->window();
    if (!window) return;
    window->beginSheet(alert, [controller = controller_, alert](int response) {
        if (const auto asked = controller.lock())
            asked->confirmationSheet(alert, response - views::kAlertFirstButtonReturn);
    });
}

}  // namespace corvane
