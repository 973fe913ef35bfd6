#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/TableTrace.h"

#include "tests/table/TableFixture.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::test;
using testing::ElementsAre;
using testing::StartsWith;

TEST(TableView, LaysOutSectionsFromTopToBottom) {
    TableFixture fixture({{1, 2}, {}, {3}});
    auto& table = *fixture.table;
    EXPECT_EQ(table.frame().size(), (views::Size{200, 300}));  // fills what is visible
    fixture.source->titled = {1, 2};
    fixture.source->heights = true;
    fixture.delegate->tableViewHeightForHeaderInSection = [](auto&, std::int64_t section) {
        return section == 1 ? 7.0 : -1.0;
    };
    table.setTop(5);
    table.setLeft(10);
    table.reloadData();
    EXPECT_EQ(fixture.cell(0, 0)->frame().height, 44);  // cells of the last load, until the turn
    fixture.loop.runTurn();
    // Heights: 11 and 12, header 7, header 25, 13; a line after each row.
    EXPECT_EQ(fixture.cell(0, 0)->frame(), (views::Rect{10, 5, 190, 11}));
    EXPECT_EQ(fixture.cell(0, 1)->frame(), (views::Rect{10, 17, 190, 12}));
    EXPECT_EQ(table.headerViewForSection(0), nullptr);
    EXPECT_EQ(table.headerViewForSection(1)->frame(), (views::Rect{10, 30, 190, 7}));
    EXPECT_EQ(table.headerViewForSection(2)->title(), "Section 2");
    EXPECT_EQ(fixture.cell(2, 0)->frame(), (views::Rect{10, 62, 190, 13}));
    EXPECT_EQ(table.preferredSizeThatFits({}), (views::Size{200, 76}));
    table.filterRowsWithIndexPaths(CVMacTableView::PathSet{{2, 0}});
    fixture.loop.runTurn();
    EXPECT_EQ(fixture.cell(2, 0)->frame().y, 37);
    EXPECT_EQ(table.preferredSizeThatFits({}).height, 53);  // hidden rows keep their lines here
    EXPECT_EQ(table.visibleCells(), std::vector<CVMacTableView::CellPtr>{fixture.cell(2, 0)});

    fixture.window.setSize({100, 40});
    fixture.loop.runTurn();
    EXPECT_EQ(table.frame().size(), (views::Size{100, 51}));
    EXPECT_EQ(fixture.cell(2, 0)->frame().width, 90);
    for (const bool asks : {true, false}) {
        if (!asks) table.setDataSource({});
        fixture.source->numbers.clear();
        table.reloadData();
        EXPECT_TRUE(table.subviews().empty());
        EXPECT_EQ(table.rows().sectionCount(), 0);
        fixture.source->numbers = {{1}};
        if (asks) table.reloadData();
    }
}

TEST(TableView, FindsRowsByPoint) {
    TableFixture fixture({{1, 2}, {3}});
    auto& table = *fixture.table;
    for (auto [y, path] : {std::pair{0.0, "(0,0)"},
                           {44.0, "(0,0)"},  // the line below it
                           {45.0, "(0,1)"},
                           {134.5, "(1,0)"},
                           {135.0, "none"},
                           {-1.0, "none"}}) {
        const auto found = table.indexPathForRowAtPoint({50, y});
        EXPECT_EQ(found ? NumberedSource::text(*found) : "none", path) << y;
    }
    EXPECT_FALSE(table.indexPathForRowInSection(0, {50, 100}));
    EXPECT_EQ(table.indexPathForRowInSection(1, {50, 100}), CVIndexPath(1, 0));
    for (const CVIndexPath& outside :
         {CVIndexPath(0, 2), CVIndexPath(2, 0), CVIndexPath(-1, 0), CVIndexPath(0, -1)}) {
        EXPECT_EQ(table.cellForRowAtIndexPath(outside), nullptr);
        EXPECT_EQ(table.cachedCellHeightForRowWithIndexPath(outside), 0);
        table.performSelectRowAtIndexPath(outside);
        table.moveRowAtIndexPath(outside, {0, 0});
        table.moveRowAtIndexPath({0, 0}, {outside.section(), outside.row() + 7});
    }
    EXPECT_EQ(fixture.rows(), "1 2 |3 |");
    EXPECT_EQ(table.nextCellForIndexPath(std::nullopt, true), nullptr);
    EXPECT_EQ(table.nextCellForIndexPath(CVIndexPath(0, 1), false), nullptr);
    EXPECT_EQ(table.nextCellForIndexPath(CVIndexPath(0, 1), true), fixture.cell(1, 0));
    EXPECT_EQ(table.previousCellForIndexPath(CVIndexPath(0, 0), true), nullptr);
}

TEST(TableView, ReusesTheCellsOfTheLastLoad) {
    TableFixture fixture({{1, 2, 3}});
    const auto last = fixture.cell(0, 2);
    const auto first = fixture.cell(0, 0);
    fixture.table->selectCell(first, true);
    fixture.table->reloadData();
    EXPECT_EQ(fixture.cell(0, 0), first);  // the pool is filled from the last row on
    EXPECT_EQ(fixture.cell(0, 2), last);
    EXPECT_EQ(fixture.rows(), "1 2 3 |");
    fixture.source->numbers = {{4}, {5, 6, 7}};
    fixture.table->reloadData();
    EXPECT_EQ(fixture.cell(0, 0), first);
    EXPECT_EQ(fixture.cell(1, 1), last);
    EXPECT_EQ(fixture.rows(), "4 |5 6 7 |");
    fixture.table->setAutoReuseCells(false);
    fixture.table->reloadData();
    EXPECT_NE(fixture.cell(0, 0), first);
    const int asked = fixture.source->cellsAsked;
    fixture.table->loadData();
    EXPECT_EQ(fixture.source->cellsAsked, asked);
}

TEST(TableView, KeepsCachesInStepThroughChangesOfSectionsAndRows) {
    TableFixture fixture({{1, 2}, {3}, {4, 5}});
    auto& table = *fixture.table;
    auto& numbers = fixture.source->numbers;
    table.selectCellWithIndexPath({2, 1});
    numbers.insert(numbers.begin() + 1, {6, 7});
    table.insertSections({1}, 5);
    EXPECT_EQ(fixture.rows(), "1 2 |6 7 |3 |4 [5 |");
    EXPECT_EQ(table.indexPathForSelectedRow(), CVIndexPath(3, 1));
    std::swap(numbers[0], numbers[3]);
    table.moveSection(3, 0);
    EXPECT_EQ(fixture.rows(), "4 [5 |1 2 |6 7 |3 |");
    EXPECT_EQ(fixture.cell(2, 1)->indexPath(), CVIndexPath(2, 1));
    table.deleteSections({0, 2}, 5);
    EXPECT_EQ(fixture.rows(), "1 2 |3 |");
    EXPECT_EQ(table.indexPathForSelectedRow(), std::nullopt);
    numbers = {{1, 2, 8, 9}, {3}};
    table.insertRowsAtIndexPaths({{0, 3}, {0, 2}, {9, 0}}, 5);
    EXPECT_EQ(fixture.rows(), "1 2 8 9 |3 |");
    table.deleteRowsAtIndexPaths({{0, 0}, {0, 1}, {1, 0}, {1, 1}, {0, 1}}, 5);
    EXPECT_EQ(fixture.rows(), "8 9 ||");
    numbers = {{10, 11}, {}};
    table.reloadSections({0, 7}, 5);
    EXPECT_EQ(fixture.rows(), "10 11 ||");
    EXPECT_EQ(table.subviews().size(), 2u);
    EXPECT_EQ(table.numberOfSections(), 2);
}

TEST(TableView, WritesItsProbes) {
    TableFixture fixture({{1}});
    const auto before = fixture.console.lines().size();
    EXPECT_THAT(fixture.console.lines(),
                testing::Contains("[CVMacTableView reloadData] for '(null)'"));
    fixture.table->setDebugName("inbox");
    fixture.table->setRowSeparatorColor(platform::Color());  // measures nothing
    fixture.table->reloadData();
    fixture.loop.runTurn();
    const auto& lines = fixture.console.lines();
    EXPECT_THAT(
        std::vector<std::string>(lines.begin() + static_cast<std::ptrdiff_t>(before), lines.end()),
        ElementsAre("[CVMacTableView reloadData] for 'inbox'", StartsWith("   Data loaded in 0.0"),
                    "[CVMacTableView applyLayout] for 'inbox'",
                    "[CVMacTableView preferredSize] for 'inbox'",
                    "[/CVMacTableView preferredSize] for 'inbox' returning 200.000000 x "
                    "45.000000",
                    StartsWith("   Data relayouted in 0.0"),
                    "[/CVMacTableView applyLayout] for 'inbox'"));
    EXPECT_EQ(secondsText(std::chrono::microseconds(61'042'999)), "61.042");
}

TEST(TableView, CutsNoRowAtTheEndOfAPage) {
    TableFixture fixture({{1, 2, 3}, {4, 5}});
    fixture.source->titled = {1};  // rows take 45, headers 25
    fixture.table->reloadData();
    fixture.table->beginPagination();
    std::vector<double> pages;
    while (const double page = fixture.table->adjustRemainingPageHeight(115))
        pages.push_back(page);
    EXPECT_THAT(pages, ElementsAre(90, 115, 70));
    fixture.table->beginPagination();
    EXPECT_EQ(fixture.table->adjustRemainingPageHeight(10), 45);  // it would never end
    EXPECT_EQ(fixture.table->nextPageStartRow(), 1);
}

TEST(TableView, SurvivesADataSourceThatChangesItWhileItLoads) {
    TableFixture fixture({{1, 2, 3}, {4}});
    auto& source = *fixture.source;
    const auto onceWhenAsked = [&](const std::function<void(CVMacTableView&)>& act) {
        source.whenAsked = [&fixture, &source, act] {
            source.whenAsked = {};
            act(*fixture.table);
        };
    };
    for (const auto& act : std::vector<std::function<void(CVMacTableView&)>>{
             [](auto& table) { table.reloadData(); },
             [](auto& table) {
                 table.deleteRowsAtIndexPaths({{0, 0}, {0, 1}, {0, 2}}, 0);
             },
             [](auto& table) {
                 table.deleteSections({0, 1}, 0);
             },
             [](auto& table) { table.removeFromSuperview(); },
             [&](auto& table) { table.setDataSource({}); }}) {
        onceWhenAsked(act);
        fixture.table->reloadData();
        fixture.loop.runTurn();
        std::size_t built = 0;
        for (const auto& section : fixture.table->rows().sections())
            built +=
                section.cells.size() - static_cast<std::size_t>(std::count(
                                           section.cells.begin(), section.cells.end(), nullptr));
        EXPECT_EQ(fixture.table->subviews().size(), built);  // each view is a row
        onceWhenAsked(act);
        fixture.table->reloadRowsAtIndexPaths({{0, 0}, {0, 1}, {1, 0}}, 5);
        source.whenAsked = {};
        fixture.table->setDataSource(fixture.source);
        fixture.table->reloadData();
        EXPECT_EQ(fixture.rows(), "1 2 3 |4 |");
        EXPECT_EQ(fixture.table->subviews().size(), 4u);
    }
    struct Cellless : NumberedSource {
        CellPtr tableViewCellForRowAtIndexPath(Table& table, const Path& path,
                                               const CellPtr& reusable) override {
            if (path.row() == missing) return nullptr;
            return NumberedSource::tableViewCellForRowAtIndexPath(table, path, reusable);
        }
        int missing = 1;
    };
    const auto cellless = std::make_shared<Cellless>();
    cellless->numbers = {{1, 2, 3}};
    fixture.table->setDataSource(cellless);
    fixture.table->reloadData();
    EXPECT_THAT(fixture.console.lines(),
                testing::Contains("ERROR: CVMacTableViewCell reloadRowsAtIndexPaths got NULL cell "
                                  "from data source"));
    EXPECT_EQ(fixture.table->nextCellForIndexPath(CVIndexPath(0, 0), true), fixture.cell(0, 2));
    for (const auto& [y, row] : {std::pair{10.0, 0}, {50.0, 2}})
        EXPECT_EQ(fixture.table->indexPathForRowAtPoint({50, y}), CVIndexPath(0, row));
    EXPECT_EQ(fixture.table->visibleCells().size(), 2u);
    cellless->missing = -1;
    fixture.table->reloadRowsAtIndexPaths({{0, 1}}, 5, true);
    EXPECT_EQ(fixture.table->frame().height, 2 * 45 + 44);
}
