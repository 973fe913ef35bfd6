// The view of a screen with lists: a navigation list at the side, the main list with its bars, and
// a sidebar. Everything that it shows comes from an overview controller, which also hears of
// everything that is done in it.
#pragma once

#include "corvane/models/CVOverview.h"
#include "corvane/table/CVMacTableViewDataSource.h"
#include "corvane/table/CVMacTableViewDelegate.h"
#include "corvane/views/Alert.h"
#include "corvane/views/CompoundView.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class BarStack;
class CVAction;
class CVMacSearchBar;
class CVMacSplitView;
class CVMacStatusBar;
class CVMacTitleBar;
class CVMacToolbar;
class CVOverviewController;

/// Data source and delegate of its two tables: each question goes to the one hook of the controller
/// that is meant for the list, once. A table that is neither of them, and one without a controller,
/// has no rows and may do nothing.
///
/// The controller is held weakly and owns the view; it may change the view, or drop it, from any
/// hook. One thread, the window's.
///
///     auto controller = std::make_shared<TasksController>();
///     auto overview = std::make_shared<CVMacOverview>();
///     overview->setController(controller);        // and controller->overview() == overview
///     window.setContentView(overview);
class CVMacOverview : public views::CompoundView,
                      public CVOverview,
                      public CVMacTableViewDataSource,
                      public CVMacTableViewDelegate {
  public:
    using Table = CVMacTableView;
    using Path = CVIndexPath;
    using Index = std::int64_t;
    using TablePtr = std::shared_ptr<CVMacTableView>;
    using Controller = CVOverviewController;
    using ControllerPtr = std::shared_ptr<CVOverviewController>;

    CVMacOverview();
    ~CVMacOverview() override;

    ControllerPtr controller() const { return controller_.lock(); }
    /// Becomes the controller's view and tells it that it was loaded; the rows are asked for when
    /// the screen first appears. The controller before loses the view. Null for an empty screen.
    void setController(const ControllerPtr& controller);

    // What the controller is asked for again.

    void reloadNavigation();  ///< whether there is one, its title and rows
    void reloadOverview();    ///< title and rows
    void reloadTitles();      ///< of both lists
    void reloadActions();     ///< of all three groups
    void reloadSidebar();     ///< whether there is one

    /// In a pane at the trailing side, where the controller has a sidebar; null for none.
    void setSidebarView(const std::shared_ptr<views::View>& view);
    const std::shared_ptr<views::View>& sidebarView() const { return sidebarView_; }

    /// The views of rows before the controller fills them; plain cells where these are left empty.
    std::function<CellPtr(const Path&)> makeNavigationCell;
    std::function<CellPtr(const Path&)> makeOverviewCell;

    // The search bar is hidden until it is asked for, by the program or by Command or Control and
    // F. Hiding it ends the search.

    bool offersSearch() const { return offersSearch_; }  ///< at first true
    void setOffersSearch(bool offers);
    bool showsOverviewSearchBar() const;
    void showOverviewSearchBar();  ///< and gives it the focus
    void hideOverviewSearchBar() override;
    void setShowsStatusBar(bool shows);  ///< at first true

    /// Asks the user something on the window. The controller is told which of the alert's buttons
    /// was chosen, counted from 0. Nothing in no window.
    void showConfirmationSheet(views::Alert alert);

    // Parts, which stay. Texts, icons, scopes, categories and filters are set on them; what the
    // user does with them goes to the controller.

    const TablePtr& navigationTable() const { return navigationTable_; }
    const TablePtr& overviewTable() const { return overviewTable_; }
    const std::shared_ptr<CVMacTitleBar>& navigationTitleBar() const { return navigationTitleBar_; }
    const std::shared_ptr<CVMacToolbar>& navigationToolbar() const { return navigationToolbar_; }
    const std::shared_ptr<CVMacTitleBar>& titleBar() const { return titleBar_; }
    const std::shared_ptr<CVMacToolbar>& toolbar() const { return toolbar_; }
    const std::shared_ptr<CVMacSearchBar>& searchBar() const { return searchBar_; }
    const std::shared_ptr<CVMacStatusBar>& statusBar() const { return statusBar_; }
    /// With an autosave name it remembers the sizes of the panes.
    const std::shared_ptr<CVMacSplitView>& splitView() const { return splitView_; }

    // In points, what the tables are set to.

    double navigationSectionHeaderHeight() const override;
    double overviewSectionHeaderHeight() const override;

    // As a view.

    void applyLayout() override;
    views::Size preferredSizeThatFits(views::Size available) override;
    bool keyDown(const views::KeyEvent& event) override;
    views::Role accessibilityRole() const override { return views::Role::Group; }
    void willMoveToWindow(views::Window* window) override;
    void didMoveToWindow() override;

    // As the data source of its tables; the optional operations are there, too.

    CellPtr tableViewCellForRowAtIndexPath(Table& table, const Path& path,
                                           const CellPtr& reusableCell) override;
    Index numberOfSectionsInTableView(Table& table) override;
    std::optional<std::string> tableViewTitleForHeaderInSection(Table& table,
                                                                Index section) override;
    Index tableViewNumberOfRowsInSection(Table& table, Index section) override;

  protected:
    /// Stands between the bars and the main list; null for none.
    void setOverviewHeader(const std::shared_ptr<views::View>& header);
    void layOutBars();  ///< where one of them has another height

  private:
    enum class List { None, Navigation, Overview };
    enum class Screen { Away, Appearing, Shown, Disappearing };  ///< in the order of its life
    using Actions = std::vector<std::shared_ptr<CVAction>>;
    struct Hooks;

    void makePanes();
    void stackMainPane();
    void passRows();
    void passEditing();
    void passSelection();
    void passDrops();
    void passMenus();
    void passSearch();
    void passActions();
    /// Somebody may keep them longer than the view.
    void forgetBars();

    List listOf(const Table& table) const;
    CellPtr makeCell(List list, const Path& path) const;
    CellPtr makePlaceholder(const Path& path);
    void reachScreen(Screen screen);
    void updatePanes();

    std::weak_ptr<CVOverviewController> controller_;
    TablePtr navigationTable_;
    TablePtr overviewTable_;
    std::shared_ptr<CVMacTitleBar> navigationTitleBar_;
    std::shared_ptr<CVMacToolbar> navigationToolbar_;
    std::shared_ptr<CVMacTitleBar> titleBar_;
    std::shared_ptr<CVMacToolbar> toolbar_;
    std::shared_ptr<CVMacSearchBar> searchBar_;
    std::shared_ptr<CVMacStatusBar> statusBar_;
    std::shared_ptr<CVMacSplitView> splitView_;
    std::shared_ptr<BarStack> navigationPane_;
    std::shared_ptr<BarStack> mainPane_;
    std::shared_ptr<views::ScrollView> overviewScrollView_;
    std::shared_ptr<views::View> overviewHeader_;
    std::shared_ptr<views::View> sidebarView_;
    Actions globalActions_;  ///< which share the main toolbar with those of the overview
    Screen screen_ = Screen::Away;
    bool offersSearch_ = true;
};

}  // namespace corvane
