#include "corvane/controls/CVMacOverview.h"

#include "corvane/controls/BarStack.h"
#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/controls/CVMacTitleBar.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/models/CVOverviewController.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

using Pane = CVMacSplitView::Pane;

const Pane kNavigationPane{140, 210, false, true, nullptr};
const Pane kMainPane{240, 480, true, false, nullptr};
const Pane kSidebarPane{160, 240, false, true, nullptr};

std::shared_ptr<views::ScrollView> scrollViewOf(const std::shared_ptr<CVMacTableView>& table) {
    auto scrollView = std::make_shared<views::ScrollView>();
    scrollView->setDocumentView(table);
    return scrollView;
}

void showInTitleBar(CVMacTitleBar& bar, const std::string& title,
                    const std::shared_ptr<CVMacToolbar>& toolbar) {
    const bool hasActions = !toolbar->actions().empty();
    bar.setTitle(title);
    bar.setAccessoryView(hasActions ? toolbar : nullptr);
    bar.setHidden(title.empty() && !hasActions);
}

}  // namespace

CVMacOverview::CVMacOverview()
    : navigationTable_(std::make_shared<CVMacTableView>()),
      overviewTable_(std::make_shared<CVMacTableView>()),
      navigationTitleBar_(std::make_shared<CVMacTitleBar>()),
      navigationToolbar_(std::make_shared<CVMacToolbar>()),
      titleBar_(std::make_shared<CVMacTitleBar>()),
      toolbar_(std::make_shared<CVMacToolbar>()),
      searchBar_(std::make_shared<CVMacSearchBar>()),
      statusBar_(std::make_shared<CVMacStatusBar>()),
      splitView_(std::make_shared<CVMacSplitView>()),
      navigationPane_(std::make_shared<BarStack>()),
      mainPane_(std::make_shared<BarStack>()),
      overviewScrollView_(scrollViewOf(overviewTable_)) {
    makePanes();
    passRows();
    passEditing();
    passSelection();
    passDrops();
    passMenus();
    passSearch();
    passActions();
}

CVMacOverview::~CVMacOverview() {
    forgetBars();
}

void CVMacOverview::makePanes() {
    // These two follow the colours of the screen.
    navigationTable_->setBackgroundColor(std::nullopt);
    overviewTable_->setBackgroundColor(std::nullopt);
    backgroundColorForTableView = [this](Table& table) {
        const bool navigation = listOf(table) == List::Navigation;
        return navigation ? std::optional(views::theme().controlBackground) : std::nullopt;
    };
    overviewTable_->setAllowsMultipleSelections(true);
    searchBar_->setHidden(true);
    navigationPane_->setViews({navigationTitleBar_}, scrollViewOf(navigationTable_),
                              navigationTable_, {});
    stackMainPane();
    splitView_->addPane(mainPane_, kMainPane);
    addSubview(splitView_);
    setKeyViewParts({splitView_});
    reloadTitles();
}

void CVMacOverview::stackMainPane() {
    mainPane_->setViews({titleBar_, searchBar_, overviewHeader_}, overviewScrollView_,
                        overviewTable_, {statusBar_});
}

void CVMacOverview::setOverviewHeader(const std::shared_ptr<views::View>& header) {
    overviewHeader_ = header;
    stackMainPane();
}

void CVMacOverview::layOutBars() {
    double height = 0;
    for (const auto& bar : {navigationTitleBar_, titleBar_})
        if (!bar->isHidden())
            height = std::max(height, bar->preferredSizeThatFits(bounds().size()).height);
    navigationPane_->setLeastHeightOfFirstBar(height);
    mainPane_->setLeastHeightOfFirstBar(height);
    navigationPane_->setNeedsApplyLayout();
    mainPane_->setNeedsApplyLayout();
}

// The controller.

void CVMacOverview::setController(const ControllerPtr& controller) {
    const auto keepAlive = std::static_pointer_cast<CVMacOverview>(shared_from_this());
    const auto before = this->controller();
    if (controller == before) return;
    reachScreen(Screen::Disappearing);
    reachScreen(Screen::Away);
    // Any hook may have set another one, which is then shown already.
    if (before != this->controller()) return;
    if (before && before->overview() == keepAlive) before->setOverview(nullptr);
    controller_ = controller;
    navigationTable_->setDataSource(keepAlive);
    navigationTable_->setDelegate(keepAlive);
    overviewTable_->setDataSource(keepAlive);
    overviewTable_->setDelegate(keepAlive);
    if (controller) {
        controller->setOverview(keepAlive);
        controller->overviewDidLoad();
    }
    if (controller != this->controller()) return;
    updatePanes();
    reloadActions();
    if (window()) reachScreen(Screen::Appearing);
    if (controller != this->controller()) return;
    if (window() || overviewTable_->dataLoaded()) {
        navigationTable_->reloadData();
        overviewTable_->reloadData();
    }
    if (window()) reachScreen(Screen::Shown);
}

void CVMacOverview::reachScreen(Screen screen) {
    static constexpr void (Controller::*kNotices[])() = {
        &Controller::overviewDidDisappear, &Controller::overviewWillAppear,
        &Controller::overviewDidAppear, &Controller::overviewWillDisappear};
    // Round and round; but the screen may go before it has quite come.
    const int step = static_cast<int>(screen);
    const bool follows = step == (static_cast<int>(screen_) + 1) % 4 ||
                         (screen == Screen::Disappearing && screen_ == Screen::Appearing);
    if (!follows) return;
    screen_ = screen;
    if (const auto controller = this->controller()) ((*controller).*kNotices[step])();
}

void CVMacOverview::willMoveToWindow(views::Window* window) {
    reachScreen(window ? Screen::Appearing : Screen::Disappearing);
}

void CVMacOverview::didMoveToWindow() {
    // What comes first is for a controller that the one before has set just then.
    reachScreen(window() ? Screen::Appearing : Screen::Disappearing);
    if (!window()) return reachScreen(Screen::Away);
    if (navigationPane_->window()) navigationTable_->loadData();
    overviewTable_->loadData();
    reachScreen(Screen::Shown);
}

// What it shows.

void CVMacOverview::reloadNavigation() {
    const auto keepAlive = weak_from_this().lock();
    updatePanes();
    reloadTitles();
    const auto controller = this->controller();
    if (controller && controller->hasNavigation()) navigationTable_->reloadData();
}

void CVMacOverview::reloadOverview() {
    reloadTitles();
    overviewTable_->reloadData();
}

void CVMacOverview::reloadSidebar() {
    updatePanes();
}

void CVMacOverview::setSidebarView(const std::shared_ptr<views::View>& view) {
    if (view == sidebarView_) return;
    sidebarView_ = view;
    updatePanes();
}

void CVMacOverview::updatePanes() {
    const auto controller = this->controller();
    std::vector<std::pair<std::shared_ptr<views::View>, Pane>> panes;
    if (controller && controller->hasNavigation())
        panes.emplace_back(navigationPane_, kNavigationPane);
    panes.emplace_back(mainPane_, kMainPane);
    if (sidebarView_ && controller && controller->hasSidebar())
        panes.emplace_back(sidebarView_, kSidebarPane);

    // Those in front of a change stay as they are, and whatever is being typed there.
    const auto paneAt = [&](std::size_t i) {
        return splitView_->paneAtIndex(static_cast<std::int64_t>(i));
    };
    std::size_t same = 0;
    while (same < panes.size() && paneAt(same) == panes[same].first)
        ++same;
    if (same == panes.size() && !paneAt(same)) return;
    // Whoever loses the focus may let go of the view.
    const auto keepAlive = weak_from_this().lock();
    const auto focused = window() ? window()->firstResponder() : nullptr;
    std::shared_ptr<views::View> collapsed;
    while (paneAt(same)) {
        const std::int64_t index = splitView_->paneCount() - 1;
        const auto before = splitView_->paneAtIndex(index);
        const double size = splitView_->sizeOfPane(index);
        for (auto& [view, pane] : panes)
            if (view == before && size > 0) pane.preferred = size;
        if (splitView_->isPaneCollapsed(index)) collapsed = before;
        splitView_->removePane(*before);
    }
    for (; same < panes.size(); ++same) {
        const auto& [view, pane] = panes[same];
        splitView_->addPane(view, pane);
        if (view == collapsed) splitView_->setPaneCollapsed(static_cast<std::int64_t>(same), true);
    }
    if (focused && focused->window()) focused->window()->makeFirstResponder(focused);
}

void CVMacOverview::reloadTitles() {
    const auto controller = this->controller();
    const std::string navigationTitle =
        controller ? controller->navigationTitle().value_or("") : std::string();
    const std::string title = controller ? controller->overviewTitle().value_or("") : std::string();
    showInTitleBar(*navigationTitleBar_, navigationTitle, navigationToolbar_);
    showInTitleBar(*titleBar_, title, toolbar_);
    navigationTable_->setAccessibilityName(navigationTitle);
    overviewTable_->setAccessibilityName(title);
    layOutBars();
}

double CVMacOverview::navigationSectionHeaderHeight() const {
    return static_cast<double>(navigationTable_->sectionHeaderHeight());
}

double CVMacOverview::overviewSectionHeaderHeight() const {
    return static_cast<double>(overviewTable_->sectionHeaderHeight());
}

// As a view.

void CVMacOverview::applyLayout() {
    splitView_->setFrame(bounds());
}

views::Size CVMacOverview::preferredSizeThatFits(views::Size available) {
    return splitView_->preferredSizeThatFits(available);
}

}  // namespace corvane
