#include "corvane/table/DropIndicator.h"
#include "corvane/views/Drag.h"

#include "tests/table/TableFixture.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::test;
using views::DraggingInfo;
using views::MouseEvent;

namespace {

/// Two tables side by side, the second one on the right.
struct Drops : TableFixture {
    Drops() : TableFixture({{1, 2}, {}, {3}}), other({{7, 8}}) {
        source->titled = other.source->titled = {1};
        for (auto* fixture : {static_cast<TableFixture*>(this), &other}) {
            auto& rowSource = *fixture->source;
            rowSource.tableViewCanEditRowAtIndexPath = [](auto&, auto&) { return true; };
            rowSource.tableViewCanMoveRowAtIndexPath = [](auto&, auto&) { return true; };
            rowSource.tableViewTargetIndexPathForMove = [](auto&, auto&, auto& proposed) {
                return proposed;
            };
            fixture->delegate->tableViewAllowsStartDrag = [](auto&) { return true; };
            fixture->table->setAllowsMultipleSelections(true);
        }
        table->reloadData();
        loop.runTurn();
    }
    /// Picks up the row at the height, with those selected besides it.
    static std::shared_ptr<views::DragSession> pickUp(TableFixture& from, double y) {
        from.window.mouseDown(MouseEvent({10, y}));
        from.window.mouseDragged(MouseEvent({12, y}));
        EXPECT_EQ(from.window.dragSession(), nullptr);  // a slip
        from.window.mouseDragged(MouseEvent({30, y}));
        return from.window.dragSession();
    }
    bool dropAt(DraggingInfo info, double y) {
        info.setDraggingLocation({50, y});
        return window.drop(info);
    }
    TableFixture other;
};

}  // namespace

TEST(DropGeometry, FindsTheRowAndTheLineBeforeIt) {
    TableFixture fixture({{1, 2}, {}, {}, {3}});
    fixture.source->titled = {1};
    fixture.table->setTop(6);
    fixture.table->reloadData();
    fixture.loop.runTurn();  // rows at 6 and 51, the header from 96 to 121, the last row to 165
    const struct {
        double y;
        CVIndexPath path;
        double line;
    } kCases[] = {{3, {0, 0}, 6},     {20, {0, 0}, 5},    {50.5, {0, 0}, 5}, {51, {0, 1}, 50},
                  {100, {1, 0}, 121}, {130, {3, 0}, 120}, {200, {3, 1}, 165}};
    for (const auto& [y, path, line] : kCases) {
        views::Point indicator;
        EXPECT_EQ(fixture.table->indexPathForMoveViaDragAtPoint({50, y}, indicator), path) << y;
        EXPECT_EQ(indicator, (views::Point{0, line})) << y;
    }
    views::Point indicator;
    EXPECT_EQ(fixture.table->tailAppendIndexPathForMoveViaDragInSection(1, indicator),
              CVIndexPath(1, 0));
    EXPECT_EQ(indicator.y, 121);
    fixture.table->tailAppendIndexPathForMoveViaDragInSection(2, indicator);
    EXPECT_EQ(indicator.y, 6);
    for (const auto& [y, section] : {std::pair{95.0, 0}, {96.0, 1}, {121.0, 3}, {999.0, 3}})
        EXPECT_EQ(fixture.table->sectionForDragAtPoint({50, y}), section) << y;
}

TEST(TableDrops, MoveRowsWithinTheTable) {
    struct Case {
        std::vector<int> selected;
        double from, to;
        const char* rows;
        const char* log;
    };
    for (const auto& [selected, from, to, rows, log] : std::vector<Case>{
             {{}, 10, 200, "2 ||3 [1 |", "begin move(0,0)(2,1) commit "},
             {{}, 10, 60, "[1 2 ||3 |", "begin move(0,0)(0,0) commit "},
             {{}, 10, 100, "2 |[1 |3 |", "begin move(0,0)(1,0) commit "},
             {{}, 120, 10, "[3 1 2 |||", "begin move(2,0)(0,0) commit "},
             {{0, 1}, 10, 130, "||[1 [2 3 |", "begin move(0,1)(2,0) move(0,0)(2,0) commit "}}) {
        Drops drops;
        for (const int row : selected)
            drops.table->selectCell(drops.cell(0, row), false);
        const auto session = Drops::pickUp(drops, from);
        ASSERT_TRUE(session);
        drops.takeLog();
        EXPECT_TRUE(drops.table->activeDragSourceCell());
        EXPECT_TRUE(drops.dropAt(DraggingInfo(*session), to));
        EXPECT_EQ(drops.rows(), rows);
        EXPECT_EQ(drops.takeLog(), log);
        session->end(views::kDragOperationGeneric);
        EXPECT_FALSE(drops.table->activeDragSourceCell());
    }
    Drops drops;
    const auto session = Drops::pickUp(drops, 10);
    const DraggingInfo info(*session);
    auto& source = *drops.source;
    source.tableViewTargetIndexPathForMove = [](auto&, auto& from, auto&) { return from; };
    EXPECT_FALSE(drops.dropAt(info, 130));
    source.tableViewTargetIndexPathForMove = {};
    EXPECT_FALSE(drops.dropAt(info, 130));
    EXPECT_EQ(drops.rows(), "[1 2 ||3 |");
    EXPECT_EQ(drops.table->dragIndicatorImageView(), nullptr);
}

TEST(TableDrops, ShowWhereTheyWouldLand) {
    Drops drops;
    const auto session = Drops::pickUp(drops, 10);
    const auto indicatorAt = [&](DraggingInfo info, double y) -> std::optional<views::Rect> {
        info.setDraggingLocation({50, y});
        drops.window.draggingMoved(info);
        const auto view = drops.table->dragIndicatorImageView();
        return view && !view->isHidden() ? std::optional(view->frame()) : std::nullopt;
    };
    DraggingInfo info(*session);
    EXPECT_EQ(indicatorAt(info, 60), (views::Rect{0, 43, 200, 2}));
    EXPECT_EQ(indicatorAt(info, 10), std::nullopt);  // itself
    session->end(views::kDragOperationNone);
    EXPECT_EQ(drops.table->dragIndicatorImageView(), nullptr);
    platform::PasteboardItem item;
    item.setValue(platform::kPasteboardTypeString, "text");
    platform::Pasteboard pasteboard;
    pasteboard.addItem(item);
    const DraggingInfo outside(pasteboard);
    drops.window.draggingExited(info);
    EXPECT_EQ(indicatorAt(outside, 60), (views::Rect{0, 45, 200, 44}));
    EXPECT_EQ(drops.window.viewAt({50, 60}), drops.table->dragIndicatorImageView());
    EXPECT_EQ(indicatorAt(outside, 250), std::nullopt);
}

TEST(TableDrops, TellTheDelegateOfDataFromElsewhere) {
    Drops drops;
    auto& delegate = *drops.delegate;
    std::string log;
    const auto item = [](std::initializer_list<std::pair<std::string_view, const char*>> forms) {
        platform::PasteboardItem result;
        for (const auto& [type, text] : forms)
            result.setValue(type, text);
        return result;
    };
    const auto drop = [&](std::vector<platform::PasteboardItem> items) {
        platform::Pasteboard pasteboard;
        for (const auto& one : items)
            pasteboard.addItem(one);
        log.clear();
        return drops.dropAt(DraggingInfo(pasteboard), 60) ? log : log + "refused";
    };
    using namespace platform;
    EXPECT_EQ(drop({item({{kPasteboardTypeString, "a"}})}), "refused");
    delegate.tableViewDidDropURL = [&](auto&, auto& url, auto& name, auto& path) {
        log += std::string(url.absoluteString()) + " " + name + NumberedSource::text(path);
        return true;
    };
    delegate.tableViewDidDropTexts = [&](auto&, auto& texts, auto&) {
        for (const auto& text : texts)
            log += text + ";";
        return true;
    };
    EXPECT_EQ(drop({item({{kPasteboardTypeURL, "http://a/b"}})}), "refused");  // without a question
    delegate.tableViewWillDropURL = [](auto&, auto&, auto& name, auto&) { return name != "no"; };
    delegate.tableViewWillDropTexts = [](auto&, auto&, auto&) { return true; };
    EXPECT_EQ(drop({item({{kPasteboardTypeURL, "http://a/b%20c"}})}), "http://a/b%20c b c(0,1)");
    EXPECT_EQ(drop({item({{kPasteboardTypeURL, "http://a/b"}}),
                    item({{kPasteboardTypeURLName, "Page"}, {kPasteboardTypeString, "x"}})}),
              "http://a/b Page(0,1)");
    EXPECT_EQ(drop({item({{kPasteboardTypeURL, "http://a/no"}})}), "refused");
    EXPECT_EQ(drop({item({{kPasteboardTypeString, "a"}}), item({{kPasteboardTypeString, "b"}})}),
              "a;b;");
    EXPECT_EQ(drop({}), "refused");

    const auto session = Drops::pickUp(drops.other, 60);
    EXPECT_FALSE(drops.dropAt(DraggingInfo(*session), 60));
    delegate.tableViewWillDropSourceIndexPaths = [](auto&...) { return true; };
    delegate.tableViewDidDropSourceIndexPaths = [&](auto&, auto& paths, auto& table, auto&) {
        return paths == CVMacTableView::Paths{{0, 1}} && &table == drops.other.table.get();
    };
    EXPECT_TRUE(drops.dropAt(DraggingInfo(*session), 60));
    EXPECT_EQ(session->pasteboard.items().size(), 1u);
}
