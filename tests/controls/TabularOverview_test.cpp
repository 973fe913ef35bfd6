#include "corvane/controls/CVMacTabularCell.h"
#include "corvane/controls/CVMacTabularOverview.h"
#include "corvane/controls/TabularHeader.h"
#include "corvane/models/CVOverviewController.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/UserDefaults.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/toolkit/EXValue.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include "tests/controls/BarsFixture.h"
#include "tests/support/TemporaryDirectory.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::vector<double> widths(const std::vector<views::Rect>& frames) {
    std::vector<double> result;
    for (const auto& frame : frames)
        result.push_back(frame.width);
    return result;
}

/// Three rows whose texts can be edited.
struct TextsController : CVOverviewController {
    std::int64_t numberOfSectionsInOverview() const override { return 1; }
    std::int64_t numberOfRowsInOverviewSection(std::int64_t) const override { return 3; }
    void configureOverviewCell(CVMacTableViewCell& row, const CVIndexPath& path) override {
        auto& cell = dynamic_cast<CVMacTabularCell&>(row);
        cell.setTextForColumn("title", "Task " + std::to_string(path.row()));
        if (path.row() == 1) cell.setTextForColumn("due", "today");
        cell.setTextForColumn("no such column", "x");
        cell.setColumnEditable("title", true);
        cell.setColumnEditable("due", true);
    }
    bool overviewCanInlineEditRowAtIndexPath(const CVIndexPath&) const override { return true; }
    void overviewCommitEditingStyle(CVMacTableViewEditingStyle, const CVIndexPath& path) override {
        committed.push_back(path);
        if (didCommit) didCommit();
    }
    std::function<void()> didCommit;
    std::vector<CVIndexPath> committed;
};

struct TabularOverviewTest : test::BarsFixture {
    ~TabularOverviewTest() override { controller->setOverview(nullptr); }

    void open() {
        overview->setColumns({{.identifier = "title", .title = "Title", .stretches = true},
                              {.identifier = "due", .title = "Due", .width = 100, .sortable = true},
                              {.identifier = "size",
                               .title = "Size",
                               .width = 80,
                               .alignment = views::TextAlignment::Trailing,
                               .sortable = true}});
        overview->didSelectColumnForSorting = [this](const std::string& column, bool ascending) {
            heard += column + (ascending ? "+ " : "- ");
        };
        overview->didResizeColumn = [this](const std::string& column, double width) {
            heard += column + " " + std::to_string(static_cast<int>(width)) + " ";
        };
        overview->setShowsStatusBar(false);
        overview->setController(controller);
        show(overview, {0, 0, 600, 300});
    }
    std::shared_ptr<CVMacTabularCell> row(std::int64_t number) const {
        return std::dynamic_pointer_cast<CVMacTabularCell>(
            overview->overviewTable()->cellForRowAtIndexPath({0, number}));
    }
    views::View& title(std::size_t column) const {
        return *overview->columnHeader()->subviews().at(column);
    }
    void drag(double from, double to) {
        const double y = overview->columnHeader()->convertToWindow(views::Point{0, 8}).y;
        window.mouseDown(views::MouseEvent({from, y}));
        window.mouseDragged(views::MouseEvent({(from + to) / 2, y}));
        window.mouseDragged(views::MouseEvent({to, y}));
        window.mouseUp(views::MouseEvent({to, y}));
        loop.runTurn();
    }
    std::string take() { return std::exchange(heard, {}); }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    std::shared_ptr<CVMacTabularOverview> overview = std::make_shared<CVMacTabularOverview>();
    std::shared_ptr<TextsController> controller = std::make_shared<TextsController>();
    std::string heard;
};

}  // namespace

TEST(TabularColumns, ShareTheWidth) {
    TabularColumns columns;
    EXPECT_THAT(columns.framesIn(300, 20), IsEmpty());
    columns.setColumns({{.identifier = "a", .width = 100},
                        {.identifier = "b", .width = 100, .minimumWidth = 50, .stretches = true},
                        {.identifier = "c", .width = 10, .minimumWidth = 30}});
    const struct {
        double width;
        std::vector<double> expected;
    } cases[] = {{300, {100, 170, 30}}, {230, {100, 100, 30}}, {190, {100, 60, 30}},
                 {150, {70, 50, 30}},   {60, {40, 50, 30}},    {-5, {40, 50, 30}},
                 {NAN, {40, 50, 30}}};
    for (const auto& [width, expected] : cases)
        EXPECT_EQ(widths(columns.framesIn(width, 20)), expected) << width;
    EXPECT_EQ(columns.moveEdge(0, 500, 300), 0u);  // as far as there is room
    EXPECT_THAT(widths(columns.framesIn(300, 20)), ElementsAre(220, 50, 30));
    EXPECT_EQ(columns.moveEdge(1, -60, 300), TabularColumns::kNone);  // nor is there room here
    EXPECT_THAT(widths(columns.framesIn(300, 20)), ElementsAre(220, 50, 30));
    columns.moveEdge(0, -1000, 300);
    EXPECT_THAT(widths(columns.framesIn(300, 20)), ElementsAre(40, 230, 30));
    EXPECT_EQ(columns.moveEdge(2, 10, 300), TabularColumns::kNone);
    columns.setColumns({{.identifier = "a", .width = 50}, {.identifier = "b", .width = 50}});
    EXPECT_THAT(widths(columns.framesIn(300, 20)), ElementsAre(50, 250));
}

TEST_F(TabularOverviewTest, FieldsStandBelowTheirTitles) {
    for (const char* locale : {"en_US", "ar_EG"}) {
        const platform::ScopedLocale scope{platform::Locale(locale)};
        overview = std::make_shared<CVMacTabularOverview>();
        open();
        const auto cell = row(1);
        cell->layoutIfNeeded();
        for (const std::size_t column : {0, 1}) {
            const auto field = cell->fieldForColumn(overview->columns()[column].identifier);
            const auto above = title(column).convertToWindow(title(column).bounds());
            const auto below = field->convertToWindow(field->bounds());
            EXPECT_GE(below.x, above.x) << locale;
            EXPECT_LE(below.right(), above.right()) << locale;
            EXPECT_GE(below.width, above.width - 14) << locale;
        }
        EXPECT_EQ(title(0).frame().x == 0, std::string(locale) == "en_US");
        overview->removeFromSuperview();
    }
    EXPECT_EQ(row(1)->accessibilityName(), "Task 1, today");
    row(1)->prepareForReuse();
    EXPECT_EQ(row(1)->accessibilityName(), "");
    overview->setColumns({{.identifier = "due", .title = "Due"}});
    EXPECT_EQ(row(1)->accessibilityName(), "today");
    EXPECT_EQ(row(1)->textForColumn("title"), "");
}

TEST_F(TabularOverviewTest, TitlesSortByPointerAndKeys) {
    open();
    click(title(1));
    click(title(1));
    click(title(0));  // cannot be sorted by
    EXPECT_EQ(take(), "due+ due- ");
    EXPECT_EQ(title(1).accessibilityValue(), EXLocalizable::localize("SortedDescending"));
    EXPECT_EQ(title(0).accessibilityCanPress(), false);
    title(2).accessibilityPress();
    EXPECT_EQ(take(), "size+ ");
    EXPECT_EQ(title(1).accessibilityValue(), "");

    window.makeFirstResponder(title(0).shared_from_this());
    press(views::kKeyLeftArrow);
    type(" ");
    press(views::kKeyRightArrow);
    type(" ");
    press(views::kKeyReturn);
    press(views::kKeyRightArrow, views::kModifierOption);
    EXPECT_EQ(take(), "due+ due- size 70 ");
    press(views::kKeyTab);
    EXPECT_EQ(focus(), overview->overviewTable());
    press(views::kKeyBacktab);
    EXPECT_EQ(focus().get(), &title(1));
    overview->setSorting("title", true);
    EXPECT_EQ(take(), "");
}

TEST_F(TabularOverviewTest, EdgesAreDragged) {
    open();
    // 420, 100 and 80 wide.
    drag(418, 378);
    EXPECT_EQ(take(), "due 120 due 140 ");
    EXPECT_EQ(title(1).frame(), views::Rect(380, 0, 140, 24));
    EXPECT_EQ(title(0).cursorAt({379, 5}), views::Cursor::ResizeLeftRight);
    EXPECT_EQ(title(0).cursorAt({200, 5}), views::Cursor::Arrow);
    drag(522, 900);
    EXPECT_EQ(overview->widthOfColumn("size"), 40);
    overview->setWidthOfColumn("size", 90);
    loop.runTurn();
    row(1)->layoutIfNeeded();
    EXPECT_EQ(row(1)->fieldForColumn("due")->frame().width, 140 - 12);
    const platform::ScopedLocale arabic{platform::Locale("ar_EG")};
    overview->columnHeader()->setNeedsApplyLayout();
    take();
    drag(90, 100);  // the edge that was at 510
    EXPECT_EQ(overview->widthOfColumn("size"), 100);
    EXPECT_EQ(overview->widthOfColumn("gone"), 0);
    overview->setWidthOfColumn("gone", 10);
}

TEST_F(TabularOverviewTest, FieldsAreEditedAndLeftByTab) {
    open();
    overview->overviewTable()->performSelectRowAtIndexPath({0, 1});
    press(views::kKeyReturn);
    EXPECT_EQ(focus(), row(1)->fieldForColumn("title"));
    type("!");
    press(views::kKeyTab);
    EXPECT_EQ(focus(), row(1)->fieldForColumn("due"));
    EXPECT_THAT(controller->committed, ElementsAre(CVIndexPath(0, 1)));
    press(views::kKeyTab);
    EXPECT_EQ(focus(), row(2)->fieldForColumn("title"));
    press(views::kKeyEscape);
    row(2)->setColumnEditable("title", false);
    EXPECT_EQ(row(2)->firstKeyView(), row(2)->fieldForColumn("due"));
    const auto view = std::make_shared<views::View>();
    row(2)->setViewForColumn("title", view);
    row(2)->layoutIfNeeded();
    EXPECT_TRUE(row(2)->fieldForColumn("title")->isHidden());
    EXPECT_GT(view->frame().width, 400);
}

TEST_F(TabularOverviewTest, ColumnsMayGoWhileTheyAreEdited) {
    open();
    overview->overviewTable()->performSelectRowAtIndexPath({0, 1});
    press(views::kKeyReturn);
    type("!");
    const auto editedRow = row(1);
    controller->didCommit = [&] {
        for (const char* added : {"a", "b", "c", "d"})
            editedRow->setTextForColumn(added, "x");
        overview->overviewTable()->reloadData();
    };
    overview->setColumns({{.identifier = "a"},
                          {.identifier = "b"},
                          {.identifier = "c"},
                          {.identifier = "d"},
                          {.identifier = "due"}});
    EXPECT_THAT(controller->committed, ElementsAre(CVIndexPath(0, 1)));
    EXPECT_EQ(row(1)->accessibilityName(), "today");
    CVMacTabularCell({0, 0}, nullptr).setTextForColumn("a", "x");
}

TEST_F(TabularOverviewTest, WidthsAndSortingAreRemembered) {
    const tests::TemporaryDirectory directory;
    platform::UserDefaults defaults(directory.path() + "/settings.plist");
    const platform::ScopedUserDefaults scope(defaults);
    open();
    overview->setColumnsAutosaveName("tasks");
    const auto again = [&](const char* name) {
        platform::UserDefaults kept(directory.path() + "/settings.plist");
        const platform::ScopedUserDefaults keptScope(kept);
        const auto next = std::make_shared<CVMacTabularOverview>();
        next->setColumnsAutosaveName(name);
        next->setColumns({{.identifier = "due", .width = 100},
                          {.identifier = "size", .width = 80, .sortable = true},
                          {.identifier = "new", .width = 70}});
        std::string result = next->sortIdentifier() + (next->sortsAscending() ? "+" : "-");
        for (const Column& column : next->columns())
            result += " " + std::to_string(static_cast<int>(column.width));
        return result;
    };
    drag(418, 378);
    EXPECT_EQ(again("tasks"), "+ 140 80 70");
    click(title(2));
    click(title(2));
    EXPECT_EQ(again("tasks"), "size- 140 80 70");
    EXPECT_EQ(again("others"), "+ 100 80 70");
    overview->setColumns({{.identifier = "new", .sortable = true}, {.identifier = "old"}});
    overview->columnHeader()->sortBy(0);
    EXPECT_EQ(again("tasks"), "+ 140 80 120");  // by the new one it is not sorted there
    platform::ValueMap widthsOnly;
    widthsOnly.items.emplace("widths", platform::ValueMap{{{"due", "wide"}}});
    widthsOnly.items.emplace("sortedBy", 7);
    for (const EXValue& damaged : {EXValue("x"), EXValue(widthsOnly)}) {
        defaults.setValue("HGCorvane columns tasks", damaged);
        EXPECT_EQ(again("tasks"), "+ 100 80 70");
    }
}
