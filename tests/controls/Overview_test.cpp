// What reaches the hooks of an overview's controller: each question and each notice once, at the
// hook that is meant, with its arguments.

#include "corvane/controls/CVMacOverview.h"
#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/controls/CVMacTitleBar.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/controls/CVMacToolbarButton.h"
#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/views/Drag.h"
#include "corvane/views/ScrollView.h"

#include "tests/controls/BarsFixture.h"
#include "tests/controls/RecordingOverview.h"

#include <sstream>

using namespace corvane;
using corvane::test::RecordingOverview;
using corvane::test::textOf;
using Table = CVMacTableView;
using Path = CVIndexPath;
using Style = CVMacTableViewEditingStyle;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

struct OverviewTest : test::BarsFixture {
    OverviewTest() {
        controller->sections = 2;
        controller->rows = 3;
        other->setDataSource(overview);
        other->setDelegate(overview);
    }
    ~OverviewTest() override { controller->setOverview(nullptr); }

    void open() {
        overview->setController(controller);
        show(overview, {0, 0, 900, 500});
        controller->take();
    }
    /// Without the heights of headers, which the layout asks for as often as it is done.
    std::string heard() const {
        std::string acts;
        std::istringstream lines(controller->take());
        for (std::string line; std::getline(lines, line);)
            if (!line.starts_with("height") && !line.starts_with("navHeight")) acts += line + "\n";
        return acts;
    }

    std::shared_ptr<RecordingOverview> controller = std::make_shared<RecordingOverview>();
    std::shared_ptr<CVMacOverview> overview = std::make_shared<CVMacOverview>();
    std::shared_ptr<Table> other = std::make_shared<Table>();  ///< somebody else's
    std::shared_ptr<HGMacListView> list = std::make_shared<HGMacListView>();
};

/// An operation that a table calls, and the hook of the main list that is asked; that of the
/// navigation list is called the same behind "nav". Empty where there is none.
struct Operation {
    std::function<std::optional<bool>(Table&)> call;  ///< whether the answer says yes; none, none
    std::string hook;
    std::string arguments = {};
    bool ofOverviewAlone = false;
    std::string navigationArguments = arguments;

    std::string overviewLine() const { return hook.empty() ? "" : hook + arguments + "\n"; }
    std::string navigationLine() const {
        if (hook.empty() || ofOverviewAlone) return {};
        const char first = static_cast<char>(std::toupper(hook.front()));
        return "nav" + std::string(1, first) + hook.substr(1) + navigationArguments + "\n";
    }
};

template <class Function, class... Arguments>
std::function<std::optional<bool>(Table&)> call(const Function& function, Arguments... arguments) {
    return [=](Table& table) -> std::optional<bool> {
        if constexpr (std::is_void_v<decltype(function(table, arguments...))>) {
            function(table, arguments...);
            return std::nullopt;
        } else {
            return static_cast<bool>(function(table, arguments...));
        }
    };
}

std::vector<Operation> operations(CVMacOverview& view, HGMacListView& list, Table& source) {
    const CVMacTableViewDataSource& data = view;
    const CVMacTableViewDelegate& use = view;
    const auto required = [&view](auto question) {
        return [&view, question](Table& table, auto... section) {
            return (view.*question)(table, section...);
        };
    };
    using View = CVMacOverview;
    constexpr std::int64_t one = 1;
    const Path path(1, 2);
    const Path to(0, 1);
    const std::vector<Path> paths{{0, 0}, {0, 2}};
    const std::vector<std::string> texts{"a", "b"};
    const platform::URL url("http://example.org/x");
    const auto table = std::ref(source);
    const auto items = std::ref(list);
    const auto ofRow = [&](const auto& operation, const char* hook) {
        return Operation{call(operation, path), hook, " 1.2"};
    };
    const auto ofRowAlone = [&](const auto& operation, const char* hook) {
        return Operation{call(operation, path), hook, " 1.2", true};
    };
    const auto ofRows = [&](const auto& operation, const char* hook) {
        return Operation{call(operation, paths, table, path), hook,
                         " 0.0+0.2 " + textOf(source) + " 1.2", false,
                         " 0.0+0.2 " + textOf(view) + " 1.2"};
    };
    const auto ofItem = [&](const auto& operation, const char* hook) {
        return Operation{call(operation, 7, items, path), hook, " 7 " + textOf(list) + " 1.2",
                         true};
    };
    return {
        {call(required(&View::numberOfSectionsInTableView)), "sections"},
        {call(required(&View::tableViewTitleForHeaderInSection), one), "title", " 1"},
        {call(required(&View::tableViewNumberOfRowsInSection), one), "rows", " 1"},
        {call(use.tableViewHeightForHeaderInSection, one), "height", " 1"},
        ofRow(data.tableViewCanEditRowAtIndexPath, "canEdit"),
        {call(data.tableViewCommitEditingStyle, Style::Edit, path), "commit", " 3 1.2"},
        ofRow(data.tableViewCanMoveRowAtIndexPath, "canMove"),
        {call(data.beginMovingRowsInTableView), "begin"},
        {call(use.beginMovingRowsInTableView), ""},
        {call(data.tableViewMoveRowAtIndexPath, path, to), "move", " 1.2 0.1"},
        {call(data.commitMovingRowsInTableView), "moved"},
        {call(data.tableViewTargetIndexPathForMove, path, to), "target", " 1.2 0.1"},
        {call(use.tableViewTargetIndexPathForMove, path, to), "target", " 1.2 0.1"},
        ofRowAlone(data.tableViewCanStartInlineEditingRowAtIndexPath, "canStart"),
        {call(data.tableViewPlaceholderIndexPathForAppendingToSection, one), "appendAt", " 1",
         true},
        ofRowAlone(data.tableViewCanInlineInsertRowAtIndexPath, "canInsert"),
        ofRowAlone(data.tableViewCanInlineEditRowAtIndexPath, "canInline"),
        ofRow(use.tableViewDidSelectRowAtIndexPath, "select"),
        ofRow(use.tableViewDidDoubleClickRowAtIndexPath, "double"),
        {call(use.didClearSelectionForTableView), "clear"},
        ofRowAlone(use.tableViewWillTapAccessoryButtonForRowAtIndexPath, "willTap"),
        ofRowAlone(use.tableViewAccessoryButtonTappedForRowWithIndexPath, "tap"),
        ofRowAlone(use.tableViewAccessoryButtonDoubleTappedForRowWithIndexPath, "doubleTap"),
        {call(use.tableViewAllowsStartDrag), "drag"},
        ofRowAlone(use.tableViewDragableTextForRowAtIndexPath, "dragText"),
        ofRows(use.tableViewWillDropSourceIndexPaths, "willRows"),
        ofRows(use.tableViewDidDropSourceIndexPaths, "didRows"),
        ofItem(use.tableViewWillDropSourceIndex, "willItem"),
        ofItem(use.tableViewDidDropSourceIndex, "didItem"),
        {call(use.tableViewWillDropTexts, texts, path), "willTexts", " 'a'+'b' 1.2"},
        {call(use.tableViewDidDropTexts, texts, path), "didTexts", " 'a'+'b' 1.2"},
        {call(use.tableViewWillDropURL, url, "X", path), "willURL", " " + textOf(url) + " 'X' 1.2"},
        {call(use.tableViewDidDropURL, url, "", path), "didURL", " " + textOf(url) + " none 1.2"},
        ofRow(use.tableViewContextMenuForRowAtIndexPath, "menu"),
        ofRowAlone(use.tableViewContextMenuForAccessoryViewOfRow, "accessoryMenu"),
    };
}

}  // namespace

TEST_F(OverviewTest, EachQuestionArrivesOnceAtItsHook) {
    overview->setController(controller);
    controller->take();
    for (const Operation& one : operations(*overview, *list, *other)) {
        SCOPED_TRACE(one.hook);
        EXPECT_NE(one.call(*overview->navigationTable()), one.ofOverviewAlone);
        EXPECT_EQ(controller->take(), one.navigationLine());
        EXPECT_NE(one.call(*overview->overviewTable()), false);
        EXPECT_EQ(controller->take(), one.overviewLine());
        EXPECT_NE(one.call(*other), true);
        EXPECT_EQ(controller->take(), "");
    }
    // Rows of no overview are nothing for the navigation.
    other->setDataSource({});
    EXPECT_FALSE(overview->tableViewWillDropSourceIndexPaths(*overview->navigationTable(), {{0, 0}},
                                                             *other, {0, 0}));
    overview->setController(nullptr);
    for (const Operation& one : operations(*overview, *list, *other))
        EXPECT_NE(one.call(*overview->overviewTable()), true) << one.hook;
    EXPECT_EQ(controller->take(), "");
}

TEST_F(OverviewTest, TheScreenComesAndGoesInOrder) {
    overview->setController(controller);
    EXPECT_EQ(controller->take(), "didLoad\n");
    EXPECT_EQ(controller->overview(), overview);
    const auto around = std::make_shared<views::View>();
    around->addSubview(overview);
    EXPECT_EQ(controller->take(), "");  // nobody sees it there
    window.root().addSubview(around);
    const std::string last = textOf(*overview->overviewTable()->cellForRowAtIndexPath({1, 2}));
    EXPECT_THAT(controller->take(),
                AllOf(StartsWith("willAppear\nnavSections\nnavTitle 0\nnavRows 0\n"),
                      EndsWith("cell " + last + " 1.2\ndidAppear\n")));
    around->removeFromSuperview();
    EXPECT_EQ(controller->take(), "willDisappear\ndidDisappear\n");
    window.root().addSubview(around);
    EXPECT_EQ(controller->take(), "willAppear\ndidAppear\n");  // its rows are there
    {
        views::Window passing;
        passing.setContentView(overview);
        EXPECT_EQ(controller->take(), "willDisappear\ndidDisappear\nwillAppear\ndidAppear\n");
    }
    EXPECT_EQ(controller->take(), "willDisappear\ndidDisappear\n");
    around->addSubview(overview);
    controller->take();

    const auto next = std::make_shared<RecordingOverview>();
    overview->setController(next);
    EXPECT_EQ(controller->take(), "willDisappear\ndidDisappear\n");
    EXPECT_EQ(controller->overview(), nullptr);
    EXPECT_EQ(next->take(), "didLoad\nwillAppear\nnavSections\nsections\ndidAppear\n");
    EXPECT_EQ(overview->overviewTable()->numberOfSections(), 0);
    next->setOverview(nullptr);
}

TEST_F(OverviewTest, ShowsWhatTheControllerHas) {
    overview->setSidebarView(std::make_shared<views::View>());
    controller->overviewActions = {std::make_shared<CVAction>("delete", 0)};
    controller->overviewActions[0]->createImageButtonForCustomView();
    controller->overviewActions[0]->customView()->setFrame({0, 0, 60, 60});
    open();
    auto& panes = *overview->splitView();
    auto& table = *overview->overviewTable();
    EXPECT_EQ(panes.paneCount(), 3);
    EXPECT_EQ(overview->titleBar()->title(), "Tasks");
    EXPECT_EQ(overview->navigationTitleBar()->title(), "Lists");
    EXPECT_EQ(overview->titleBar()->frame().height, overview->navigationTitleBar()->frame().height);
    table.setSectionHeaderHeight(31);
    table.performSelectRowAtIndexPath({0, 1});
    panes.setSizeOfPane(0, 180);
    panes.setPaneCollapsed(2, true);
    loop.runTurn();
    EXPECT_EQ(table.headerViewForSection(1)->frame().height, 31);
    EXPECT_EQ(overview->navigationTable()->headerViewForSection(0)->frame().height, 25);
    controller->hasLists = false;
    overview->reloadNavigation();
    EXPECT_EQ(panes.paneCount(), 2);
    EXPECT_FALSE(overview->navigationTable()->window());
    EXPECT_TRUE(panes.isPaneCollapsed(1));
    EXPECT_EQ(focus(), table.cellForRowAtIndexPath({0, 1}));
    controller->hasLists = true;
    overview->reloadNavigation();
    panes.setSizeOfPane(0, 170);
    panes.setPaneCollapsed(0, true);
    overview->setSidebarView(nullptr);  // which is behind it
    panes.setPaneCollapsed(0, false);
    overview->setShowsStatusBar(false);
    loop.runTurn();
    EXPECT_EQ(panes.sizeOfPane(0), 170);
    EXPECT_EQ(table.enclosingScrollView()->frame().bottom(), 500);
    EXPECT_EQ(table.enclosingScrollView()->frame().y, overview->titleBar()->frame().bottom());
}

TEST_F(OverviewTest, RowsAreDraggedOntoTheNavigation) {
    open();
    const auto row = overview->overviewTable()->cellForRowAtIndexPath({1, 1});
    const auto start = row->convertToWindow(views::Point{40, 10});
    window.mouseDown(views::MouseEvent(start));
    window.mouseDragged(views::MouseEvent(start + views::Point{-30, 0}));
    EXPECT_EQ(heard(), "drag\nselect 1.1\ndragText 1.1\n");
    ASSERT_TRUE(window.dragSession());
    const auto target = overview->navigationTable()->cellForRowAtIndexPath({0, 2});
    views::DraggingInfo info(*window.dragSession(), target->convertToWindow(views::Point{20, 10}));
    EXPECT_EQ(window.draggingMoved(info), views::kDragOperationGeneric);
    EXPECT_TRUE(window.drop(info));
    const std::string rest = "Rows 1.1 " + textOf(*overview) + " 0.2\n";
    EXPECT_EQ(heard(), "navWill" + rest + "navDid" + rest);
    window.dragSession()->end(views::kDragOperationGeneric);
}

TEST_F(OverviewTest, PlaceholdersAreOnlyWhereSomethingCanBeInserted) {
    open();
    Table& table = *overview->overviewTable();
    controller->yes = false;
    EXPECT_FALSE(table.insertPlaceholderCellAtIndexPath({1, 3}));
    controller->yes = true;
    controller->take();
    table.startInlineEditingRowAtIndexPath(std::nullopt);
    const auto cell = table.placeholderCell();
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->indexPath(), Path(1, 3));
    EXPECT_EQ(heard(), "appendAt 1\ncanStart 1.9\ncanInsert 1.3\nplaceholder 1.3\nnewCell " +
                           textOf(*cell) + " 1.3\n");
    EXPECT_FALSE(overview->navigationTable()->insertPlaceholderCellAtIndexPath({0, 0}));
    table.cellDidChangeValueForView(*cell, *cell);
    EXPECT_EQ(heard(), "canInsert 1.3\ncanInline 1.3\ncommit 2 1.3\n");
}

TEST_F(OverviewTest, TheSearchBarComesByKeyAndGoesByEscape) {
    open();
    overview->searchBar()->setSearchDelay(0);
    window.makeFirstResponder(overview->overviewTable());
    type("f");
    EXPECT_FALSE(overview->showsOverviewSearchBar());
    window.keyDown(views::KeyEvent("f", views::kModifierCommand));
    EXPECT_TRUE(overview->showsOverviewSearchBar());
    type("milk");
    press(views::kKeyReturn);
    loop.runTurn();
    EXPECT_EQ(heard(), "search 'milk'\n");
    overview->searchBar()->focusSearchField();
    press(views::kKeyEscape);
    EXPECT_EQ(heard(), "clearSearch\n");
    EXPECT_TRUE(overview->showsOverviewSearchBar());
    press(views::kKeyEscape);
    EXPECT_EQ(heard(), "exitSearch\n");
    EXPECT_FALSE(overview->showsOverviewSearchBar());
    EXPECT_EQ(focus(), overview->overviewTable());

    overview->showOverviewSearchBar();
    overview->searchBar()->setString("eggs");
    overview->hideOverviewSearchBar();
    EXPECT_EQ(heard(), "clearSearch\n");
    overview->setOffersSearch(false);
    EXPECT_FALSE(window.keyDown(views::KeyEvent("f", views::kModifierControl)));
    EXPECT_FALSE(overview->showsOverviewSearchBar());
}

TEST_F(OverviewTest, BarsAndSheetsAreHeard) {
    open();
    const auto& search = *overview->searchBar();
    search.didSelectScope(2);
    search.didSelectSearchCategoryAtIndex(1);
    search.didSelectFilterItemAtIndexPath({0, 4});
    EXPECT_EQ(controller->take(), "scope 2\ncategory 1\nfilter 0.4\n");
    overview->statusBar()->statusIconSelected();
    EXPECT_EQ(overview->statusBar()->contextMenuForStatusIcon(), controller->menu);
    EXPECT_EQ(controller->take(), "statusIcon\nstatusMenu\n");
    overview->showConfirmationSheet({"Delete?", "", {"Delete", "Cancel"}});
    ASSERT_TRUE(window.sheet());
    window.endSheet(views::kAlertSecondButtonReturn);
    EXPECT_EQ(controller->take(), "sheet 'Delete?' 1\n");
    overview->showConfirmationSheet({"Delete?", "", {"Delete"}});
    overview->setController(nullptr);
    controller->take();
    window.endSheet(views::kAlertFirstButtonReturn);  // still the one who asked
    EXPECT_EQ(controller->take(), "sheet 'Delete?' 0\n");
}

TEST_F(OverviewTest, ActionsAreToldToTheirGroup) {
    const auto action = [](const char* name, std::int64_t index) {
        return std::make_shared<CVAction>(name, index);
    };
    const auto withMenu = action("menu", 2);
    withMenu->setSubActions({action("below", 0)});
    controller->globalActions = {action("global", 0), nullptr, withMenu};
    controller->navigationActions = {action("navigation", 0)};
    controller->overviewActions = {action("overview", 1)};
    open();
    for (const auto& bar : {overview->toolbar(), overview->navigationToolbar()})
        for (const auto& shownAction : bar->actions())
            bar->buttonForAction(*shownAction)->performClick();
    ASSERT_TRUE(menu);
    menu->items().front()->perform();
    EXPECT_EQ(controller->take(),
              "globalAction global\noverviewAction overview\n"
              "navigationAction navigation\nglobalAction below\n");
    controller->overviewActions.clear();
    overview->reloadActions();
    EXPECT_EQ(overview->toolbar()->actions().size(), 2u);
}

TEST_F(OverviewTest, TabGoesThroughThePartsAndOut) {
    overview->setSidebarView(std::make_shared<views::TextField>());
    open();
    overview->showOverviewSearchBar();
    std::vector<const views::View*> parts{
        overview->navigationTable().get(), overview->searchBar().get(),
        overview->overviewTable().get(), overview->sidebarView().get()};
    for (const char32_t key : {views::kKeyTab, views::kKeyBacktab}) {
        std::vector<const views::View*> met;
        for (const views::View* stop : tabStops(key))
            for (const views::View* part : parts)
                if (stop->isDescendantOf(*part) && (met.empty() || met.back() != part))
                    met.push_back(part);
        EXPECT_EQ(met, parts);
        EXPECT_EQ(focus(), key == views::kKeyTab ? behind : before);
        std::reverse(parts.begin(), parts.end());
    }
}

TEST_F(OverviewTest, AHookMaySetAnotherController) {
    struct Leaving : RecordingOverview {
        void overviewWillAppear() override { pass(atStart); }
        void overviewWillDisappear() override { pass(atEnd); }
        void pass(const std::shared_ptr<RecordingOverview>& next) const {
            if (next) dynamic_cast<CVMacOverview&>(*overview()).setController(next);
        }
        std::shared_ptr<RecordingOverview> atStart, atEnd;
    };
    const auto leaving = std::make_shared<Leaving>();
    leaving->atStart = controller;
    overview->setController(leaving);
    show(overview, {0, 0, 900, 500});
    EXPECT_EQ(overview->controller(), controller);
    EXPECT_EQ(overview->overviewTable()->numberOfRowsInSection(1), 3);
    EXPECT_THAT(controller->take(),
                AllOf(StartsWith("didLoad\nwillAppear\n"), HasSubstr("\ndidAppear\n")));
    EXPECT_EQ(leaving->take(), "didLoad\ndidDisappear\n");

    std::swap(leaving->atStart, leaving->atEnd);
    overview->setController(leaving);
    overview->setController(std::make_shared<RecordingOverview>());
    EXPECT_EQ(overview->controller(), controller);
    overview->setController(leaving);
    controller->take();
    overview->removeFromSuperview();
    EXPECT_EQ(overview->controller(), controller);
    EXPECT_THAT(controller->take(), EndsWith("didAppear\nwillDisappear\ndidDisappear\n"));
}

TEST_F(OverviewTest, OutlivesItsController) {
    // The window holds the view until it is taken out; the controller dies with its own share.
    overview->setController(std::make_shared<RecordingOverview>());
    show(overview, {0, 0, 900, 500});
    EXPECT_EQ(overview->controller(), nullptr);
    overview->reloadOverview();
    overview->reloadNavigation();
    overview->reloadActions();
    EXPECT_EQ(overview->overviewTable()->numberOfSections(), 0);

    overview->setController(controller);
    const auto bar = overview->searchBar();
    controller->setOverview(nullptr);
    overview->removeFromSuperview();
    shown.reset();
    overview.reset();
    EXPECT_FALSE(bar->didExitSearch);
    overview = std::make_shared<CVMacOverview>();
}
