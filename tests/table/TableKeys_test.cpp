#include "corvane/platform/Locale.h"
#include "corvane/views/Command.h"
#include "corvane/views/Menu.h"
#include "corvane/views/TextView.h"

#include "tests/table/TableFixture.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::test;
using namespace corvane::views;

TEST(TableSelection, FollowsClicksAndTheirModifiers) {
    struct Step {
        int row;
        std::uint64_t modifiers;
        const char* rows;
    };
    for (const bool multiple : {false, true}) {
        TableFixture fixture({{1, 2}, {}, {3, 4, 5}});
        fixture.table->setAllowsMultipleSelections(multiple);
        const Step kMany[] = {{1, 0, "1 [2 ||3 4 5 |"},
                              {3, kModifierShift, "1 [2 ||[3 [4 5 |"},
                              {0, kModifierShift, "[1 [2 ||3 4 5 |"},
                              {4, kModifierCommand, "[1 [2 ||3 4 [5 |"},
                              {0, kModifierCommand, "1 [2 ||3 4 [5 |"},
                              {2, kModifierShift, "1 [2 ||[3 [4 [5 |"},
                              {2, 0, "1 2 ||[3 4 5 |"}};
        const Step kOne[] = {{1, 0, "1 [2 ||3 4 5 |"}, {3, kModifierShift, "1 2 ||3 [4 5 |"}};
        for (const auto& [row, modifiers, rows] :
             multiple ? std::vector<Step>(std::begin(kMany), std::end(kMany))
                      : std::vector<Step>(std::begin(kOne), std::end(kOne))) {
            fixture.click({10, row * 45.0 + 5}, modifiers);
            EXPECT_EQ(fixture.rows(), rows);
            EXPECT_TRUE(fixture.window.firstResponder());
        }
        fixture.table->selectAllCells();
        EXPECT_EQ(fixture.rows(), multiple ? "[1 [2 ||[3 [4 [5 |" : "1 2 ||3 [4 5 |");
        int cleared = 0;
        fixture.delegate->didClearSelectionForTableView = [&](auto&) { ++cleared; };
        fixture.click({10, 290});  // the background
        EXPECT_EQ(cleared, 1);
        EXPECT_EQ(fixture.rows(), "1 2 ||3 4 5 |");
        fixture.takeLog();
        fixture.delegate->tableViewWillSelectRowAtIndexPath = [](auto&, auto&) {
            return CVIndexPath(0, 0);
        };
        fixture.click({10, 50});
        EXPECT_EQ(fixture.rows(), "1 2 ||3 4 5 |");
        EXPECT_EQ(fixture.takeLog(), "");
    }
}

TEST(TableSelection, IsWhatMenusAndDragsAreAbout) {
    TableFixture fixture({{1, 2, 3}});
    auto& table = *fixture.table;
    using Paths = CVMacTableView::Paths;
    EXPECT_EQ(table.sortedContextIndexPathsByAutoSelectingIndexPath(std::nullopt), std::nullopt);
    table.selectCell(fixture.cell(0, 2), true);
    table.selectCell(fixture.cell(0, 0), false);
    EXPECT_EQ(table.sortedContextIndexPathsByAutoSelectingIndexPath(CVIndexPath(0, 2)),
              (Paths{{0, 0}, {0, 2}}));
    EXPECT_EQ(table.sortedContextIndexPathsByAutoSelectingIndexPath(CVIndexPath(0, 1)),
              (Paths{{0, 1}}));
    EXPECT_EQ(fixture.rows(), "1 [2 3 |");
    fixture.delegate->tableViewContextMenuForRowAtIndexPath = [](auto&, auto&) {
        return std::make_shared<Menu>();
    };
    EXPECT_TRUE(fixture.window.contextMenu(MouseEvent({10, 100})));
    EXPECT_EQ(fixture.rows(), "1 2 [3 |");
}

TEST(TableCell, DefersItsSingleClick) {
    TableFixture fixture({{1}});
    const auto cell = fixture.cell(0, 0);
    struct Accessory : View {};
    const auto note = [&](const char* what) {
        return
            [&fixture, what](CVMacTableView&, const CVIndexPath&) { fixture.source->log += what; };
    };
    fixture.delegate->tableViewDidSelectRowAtIndexPath = {};
    fixture.delegate->tableViewWillTapAccessoryButtonForRowAtIndexPath = note("will ");
    fixture.delegate->tableViewAccessoryButtonTappedForRowWithIndexPath = note("tap ");
    fixture.delegate->tableViewAccessoryButtonDoubleTappedForRowWithIndexPath = note("taptap ");
    fixture.delegate->tableViewDidDoubleClickRowAtIndexPath = note("double ");
    const auto accessory = std::make_shared<View>();
    cell->setAccessoryView(accessory);
    fixture.window.viewAt({5, 5});  // lays it out: with no room for the accessory
    accessory->setFrame({0, 0, 20, 44});
    fixture.click({5, 5});
    EXPECT_EQ(fixture.takeLog(), "will ");
    fixture.loop.advance(0.4);
    EXPECT_EQ(fixture.takeLog(), "");
    fixture.loop.advance(0.2);
    EXPECT_EQ(fixture.takeLog(), "tap ");
    fixture.click({5, 5});
    fixture.click({5, 5}, 0, 2);
    fixture.loop.advance(1);
    EXPECT_EQ(fixture.takeLog(), "will taptap ");
    fixture.click({100, 5}, 0, 2);
    EXPECT_EQ(fixture.takeLog(), "double ");
    fixture.click({5, 5});
    accessory->setHidden(true);
    fixture.loop.advance(1);
    EXPECT_EQ(fixture.takeLog(), "will ");
    fixture.type(" ");
    EXPECT_EQ(fixture.takeLog(), "tap ");
    accessory->setHidden(false);
    accessory->setFrame({0, 0, 20, 44});
    fixture.click({5, 5});
    fixture.table->reloadData();  // another row may have the cell now
    fixture.loop.advance(1);
    EXPECT_EQ(fixture.takeLog(), "will ");
    fixture.click({5, 5});
    fixture.source->numbers.clear();
    fixture.table->setAutoReuseCells(false);
    fixture.table->reloadData();  // while a click is waiting
    fixture.loop.advance(1);
}

TEST(TableKeys, LeadToTheNextSectionAtTheLeftWhereLinesBeginAtTheRight) {
    const platform::ScopedLocale locale{platform::Locale("he_IL")};
    TableFixture fixture({{1}, {2}});
    fixture.table->setSupportsLeftRightCursorMovement(true);
    fixture.focus(0, 0);
    fixture.press(kKeyLeftArrow);
    EXPECT_EQ(fixture.rows(), "1 |[2 |");
    fixture.press(kKeyRightArrow);
    EXPECT_EQ(fixture.rows(), "[1 |2 |");
}

TEST(TableKeys, WalkRowsAndSections) {
    TableFixture fixture({{1, 2, 3}, {}, {4}, {5, 6}});
    auto& table = *fixture.table;
    table.setAllowsMultipleSelections(true);
    table.setSupportsLeftRightCursorMovement(true);
    table.filterRowsWithIndexPaths(CVMacTableView::PathSet{{0, 0}, {0, 2}, {2, 0}, {3, 0}, {3, 1}});
    fixture.window.makeFirstResponder(fixture.table);
    const struct {
        char32_t key;
        std::uint64_t modifiers;
        const char* rows;
        const char* log;
    } kSteps[] = {{kKeyDownArrow, 0, "[1 . 3 ||4 |5 6 |", ""},  // the table's own key tells nobody
                  {kKeyDownArrow, 0, "1 . [3 ||4 |5 6 |", "select(0,2) "},
                  {kKeyRightArrow, 0, "1 . 3 ||[4 |5 6 |", "select(2,0) "},
                  {kKeyDownArrow, kModifierShift, "1 . 3 ||[4 |[5 6 |", "select(3,0) "},
                  {kKeyDownArrow, kModifierShift, "1 . 3 ||[4 |[5 [6 |", "select(3,1) "},
                  {kKeyDownArrow, kModifierShift, "1 . 3 ||[4 |[5 [6 |", ""},
                  {kKeyUpArrow, kModifierShift, "1 . 3 ||[4 |[5 6 |", "select(3,0) "},
                  {kKeyUpArrow, kModifierShift, "1 . 3 ||[4 |5 6 |", "select(2,0) "},
                  {kKeyUpArrow, kModifierShift, "1 . [3 ||[4 |5 6 |", "select(0,2) "},
                  {kKeyLeftArrow, 0, "1 . [3 ||[4 |5 6 |", ""},
                  {kKeyUpArrow, 0, "[1 . 3 ||4 |5 6 |", "select(0,0) "}};
    for (const auto& [key, modifiers, rows, log] : kSteps) {
        fixture.press(key, modifiers);
        EXPECT_EQ(fixture.rows(), rows);
        EXPECT_EQ(fixture.takeLog(), log);
    }
    table.setAllowsMultipleSelections(false);
    fixture.press(kKeyDownArrow, kModifierShift);  // moves
    EXPECT_EQ(fixture.rows(), "1 . [3 ||4 |5 6 |");
    fixture.delegate->tableViewDidSelectRowAtIndexPath = {};
    fixture.press(kKeyRightArrow);
    EXPECT_TRUE(fixture.console.lines().back().starts_with("ERROR: CVMacTableView cursor moves"));
    EXPECT_EQ(fixture.rows(), "1 . 3 ||[4 |5 6 |");
    int exits = 0;
    fixture.delegate->didExitTableView = [&](auto&) { ++exits; };
    fixture.press(kKeyEscape);
    fixture.window.makeFirstResponder(fixture.table);
    fixture.press(kKeyEscape);
    EXPECT_EQ(exits, 2);
    fixture.press(kKeyUpArrow);
    EXPECT_EQ(fixture.rows(), "1 . 3 ||4 |5 [6 |");
    table.filterRowsWithIndexPaths(CVMacTableView::PathSet());
    EXPECT_EQ(fixture.rows(), ". . . ||. |. [. |");
    table.filterRowsWithIndexPaths(std::nullopt);
    EXPECT_EQ(fixture.rows(), "1 2 3 ||4 |5 [6 |");
}

TEST(TableEditing, InsertsRowsAsTheyAreTyped) {
    TableFixture fixture({{1, 2}});
    fixture.focus(0, 0);
    const auto turn = [&] { fixture.loop.runTurn(); };
    fixture.press(kKeyReturn);
    EXPECT_TRUE(fixture.cell(0, 0)->field->isEditing());
    EXPECT_EQ(fixture.takeLog(), "select(0,0) ");
    fixture.type("a");
    fixture.press(kKeyReturn);  // commits, and goes on in a new row
    EXPECT_EQ(fixture.takeLog(), "edit(0,0) select(0,1) ");
    EXPECT_EQ(fixture.rows(), "1 [P 2 |");
    turn();
    EXPECT_EQ(fixture.cell(0, 2)->indexPath(), CVIndexPath(0, 2));
    EXPECT_EQ(fixture.cell(0, 2)->frame().y, 90);
    fixture.type("b");
    fixture.press(kKeyReturn);
    EXPECT_EQ(fixture.takeLog(), "insert(0,1) select(0,2) ");
    EXPECT_EQ(fixture.rows(), "1 1000 [P 2 |");
    turn();
    EXPECT_EQ(fixture.rows(), "1 1000 [P 2 |");
    fixture.press(kKeyEscape);  // out of the field: nothing was typed
    EXPECT_EQ(fixture.rows(), "1 1000 [P 2 |");
    turn();
    EXPECT_EQ(fixture.rows(), "1 1000 2 |");
    EXPECT_EQ(fixture.takeLog(), "delete(0,2) ");
    EXPECT_EQ(fixture.table->placeholderCell(), nullptr);
    EXPECT_EQ(fixture.window.firstResponder(), fixture.table);

    fixture.focus(0, 2);
    fixture.press(kKeyReturn);
    fixture.press(kKeyTab);  // past the last row: a new one
    EXPECT_EQ(fixture.rows(), "1 1000 2 [P |");
    fixture.press(kKeyTab);  // past that: no further one
    fixture.press(kKeyBacktab);
    turn();
    EXPECT_EQ(fixture.rows(), "1 1000 2 |");
    fixture.focus(0, 1);
    fixture.press(kKeyReturn);
    fixture.press(kKeyBacktab);
    EXPECT_TRUE(fixture.cell(0, 0)->field->isEditing());
    EXPECT_FALSE(fixture.cell(0, 1)->field->isEditable());
    fixture.window.makeFirstResponder(fixture.cell(0, 0));
    fixture.type("x");  // typing opens the field
    EXPECT_EQ(fixture.cell(0, 0)->field->stringValue(), "x");
    fixture.table->reloadData();  // commits what is being typed
    EXPECT_TRUE(fixture.takeLog().ends_with("edit(0,0) "));
}

TEST(TableEditing, StartsInTheSectionForInsertion) {
    for (const auto& [reverse, section, path, rows] :
         std::vector<std::tuple<bool, int, std::optional<CVIndexPath>, const char*>>{
             {false, -1, std::nullopt, "1 |2 [P |"},
             {true, -1, std::nullopt, "1 |2 [P |"},
             {false, -1, CVIndexPath(0, 7), "1 [P |2 |"},
             {false, -1, CVIndexPath(0, 0), "[1 |2 |"},
             {false, -1, CVIndexPath(2, 0), "1 |2 |"},
             {false, 1, std::nullopt, "1 |2 [P |"}}) {
        TableFixture fixture({{1}, {2}});
        fixture.table->setReverseInsertionDirection(reverse);
        fixture.table->setDefaultInsertionSection(section);
        EXPECT_EQ(fixture.table->sectionForInsertion(), section != -1 ? section : reverse ? 0 : 1);
        fixture.table->startInlineEditingRowAtIndexPath(path);
        EXPECT_EQ(fixture.rows(), rows);
        fixture.source->tableViewPlaceholderIndexPathForAppendingToSection =
            [](auto&, std::int64_t asked) { return CVIndexPath(asked, 0); };
        fixture.source->tableViewCanStartInlineEditingRowAtIndexPath = [](auto&, auto& target) {
            return target.section() == 0;
        };
        fixture.table->startInlineEditingRowInSection(std::nullopt, 1);
        EXPECT_EQ(fixture.rows(), rows);
        fixture.table->startInlineEditingRowInSection(std::nullopt, 0);
        EXPECT_TRUE(fixture.rows().starts_with("[P "));
    }
    TableFixture fixture({{1}});
    fixture.source->tableViewPlaceholderCellForRowAtIndexPath = {};
    fixture.table->cellRequestsNextKeyViewByInsert(*fixture.cell(0, 0));
    EXPECT_EQ(fixture.console.lines().back(),
              "ASSERT: New insert cell could not be inserted/appended");
}

TEST(TableEditing, GrowsARowWithItsText) {
    TableFixture fixture({{1, 2}});
    struct Growing : NumberedCell {
        explicit Growing(const CVIndexPath& path) : NumberedCell(path), label(createLabelView()) {
            addActivatableField(label);
            setFirstKeyView(label);
        }
        double rowHeightForContentWidth(double) override { return label->frame().height + 2; }
        std::shared_ptr<TextView> label;
    };
    const auto cell = std::make_shared<Growing>(CVIndexPath(0, 0));
    cell->label->setFrame({0, 0, 73, 25});
    fixture.source->tableViewPlaceholderCellForRowAtIndexPath = [&](auto&, auto&) { return cell; };
    fixture.table->insertPlaceholderCellAtIndexPath({0, 0});
    fixture.loop.runTurn();
    EXPECT_EQ(fixture.cell(0, 1)->frame().y, 28);
    fixture.window.makeFirstResponder(cell);
    fixture.press(kKeyReturn);
    fixture.type("one two three");
    EXPECT_EQ(cell->label->frame().height, 2 * 17 + 4 + 4);
    fixture.loop.runTurn();
    EXPECT_EQ(fixture.cell(0, 1)->frame().y, 45);
}

TEST(TableMoves, SelectedRowsByKeys) {
    struct Case {
        std::vector<CVIndexPath> selected;
        Command command;
        const char* rows;
        const char* log;
    };
    const Command kDown = Command::MoveSelectedRowsDown;
    const Command kUp = Command::MoveSelectedRowsUp;
    for (const auto& [selected, command, rows, log] :
         std::vector<Case>{{{{0, 0}}, kDown, "2 [1 3 ||4 |", "begin move(0,0)(0,1) commit "},
                           {{{0, 0}, {0, 1}},
                            kDown,
                            "3 [1 [2 ||4 |",
                            "begin move(0,1)(0,2) move(0,0)(0,1) commit "},
                           {{{0, 2}}, kDown, "1 2 ||[3 4 |", "begin move(0,2)(2,0) commit "},
                           {{{0, 1}, {0, 2}},
                            kDown,
                            "1 ||[2 [3 4 |",
                            "begin move(0,2)(2,0) move(0,1)(2,0) commit "},
                           {{{2, 0}}, kDown, "1 2 3 ||[4 |", "begin "},
                           {{{0, 0}, {2, 0}}, kDown, "[1 2 3 ||[4 |", "begin "},
                           {{{0, 1}}, kUp, "[2 1 3 ||4 |", "begin move(0,1)(0,0) commit "},
                           {{{2, 0}}, kUp, "1 2 3 [4 |||", "begin move(2,0)(0,3) commit "},
                           {{{0, 0}}, kUp, "[1 2 3 ||4 |", "begin "}}) {
        TableFixture fixture({{1, 2, 3}, {}, {4}});
        for (const auto& path : selected)
            fixture.table->selectCell(fixture.table->cellForRowAtIndexPath(path), false);
        fixture.window.makeFirstResponder(fixture.cell(0, 0));
        fixture.cell(0, 0)->doCommand(command);
        EXPECT_EQ(fixture.takeLog(), "");  // the delegate does not want it
        fixture.delegate->beginMovingRowsInTableView = [](auto&) { FAIL(); };
        fixture.cell(0, 0)->doCommand(command);
        EXPECT_EQ(fixture.rows(), rows);
        EXPECT_EQ(fixture.takeLog(), log);
        const auto& lines = fixture.console.lines();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "after check-move"),
                  std::string(log).ends_with("commit "));
    }
    TableFixture fixture({{1, 2}});
    fixture.focus(0, 0);
    fixture.delegate->beginMovingRowsInTableView = [](auto&) {};
    const auto stays = [&] {
        fixture.press(kKeyDownArrow, kModifierOption);
        return fixture.rows() == "[1 2 |";
    };
    fixture.source->tableViewCanEditRowAtIndexPath = [](auto&, auto&) { return false; };
    EXPECT_TRUE(stays());
    fixture.source->tableViewCanEditRowAtIndexPath = {};
    fixture.delegate->tableViewTargetIndexPathForMove = [](auto&, auto& from, auto&) {
        return from;
    };
    EXPECT_TRUE(stays());
    fixture.delegate->tableViewTargetIndexPathForMove = {};
    fixture.table->setSupportsRowMovementViaCursorKeys(false);
    EXPECT_TRUE(stays());
    fixture.table->setSupportsRowMovementViaCursorKeys(true);
    EXPECT_FALSE(stays());
}
