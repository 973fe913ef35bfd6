#include "corvane/views/Drag.h"
#include "corvane/views/Menu.h"

#include "tests/table/TableFixture.h"

#include <gtest/gtest.h>

#include <random>

using namespace corvane;
using namespace corvane::test;
using namespace corvane::views;

namespace {

/// A table whose delegate and data source change it whenever they are asked or told something.
struct Hostile : TableFixture {
    explicit Hostile(std::uint32_t seed) : TableFixture({{1, 2, 3}, {4}, {5, 6}}), random(seed) {
        table->setAllowsMultipleSelections(true);
        table->setSupportsLeftRightCursorMovement(true);
        const auto answer = [this](auto& question, auto value) {
            question = [this, value](auto&&...) {
                meddle();
                return value;
            };
        };
        const auto notice = [this](auto& one) { one = [this](auto&&...) { meddle(); }; };
        const auto agree = [this](auto& question) {
            question = [this](auto&, auto&, auto& proposed) {
                meddle();
                return proposed;
            };
        };
        auto& d = *delegate;
        d.tableViewWillSelectRowAtIndexPath = [this](auto&, auto& path) {
            meddle();
            return path;
        };
        for (auto* one :
             {&d.tableViewDidSelectRowAtIndexPath, &d.tableViewDidDoubleClickRowAtIndexPath,
              &d.tableViewWillTapAccessoryButtonForRowAtIndexPath,
              &d.tableViewAccessoryButtonTappedForRowWithIndexPath})
            notice(*one);
        notice(d.didClearSelectionForTableView);
        notice(d.didExitTableView);
        notice(d.beginMovingRowsInTableView);
        agree(d.tableViewTargetIndexPathForMove);
        answer(d.tableViewAllowsStartDrag, true);
        answer(d.tableViewDragableTextForRowAtIndexPath, std::string("text"));
        answer(d.tableViewHeightForHeaderInSection, 20.0);
        answer(d.tableViewContextMenuForRowAtIndexPath, std::make_shared<Menu>());
        auto& s = *source;
        s.titled = {1};
        s.whenAsked = [this] {
            if (pick(4) == 0) meddle();
        };
        for (auto* one :
             {&s.tableViewCanEditRowAtIndexPath, &s.tableViewCanMoveRowAtIndexPath,
              &s.tableViewCanStartInlineEditingRowAtIndexPath,
              &s.tableViewCanInlineInsertRowAtIndexPath, &s.tableViewCanInlineEditRowAtIndexPath})
            answer(*one, true);
        notice(s.beginMovingRowsInTableView);
        notice(s.commitMovingRowsInTableView);
        agree(s.tableViewTargetIndexPathForMove);
        s.tableViewMoveRowAtIndexPath = [this](auto&...) {
            followTable();
            meddle();
        };
        s.tableViewCommitEditingStyle = [this](auto& sender, auto style, auto& path) {
            const auto row = cell(path.section(), path.row());
            if (row && style == CVMacTableViewEditingStyle::Insert)
                row->number = source->nextNumber++;
            if (style == CVMacTableViewEditingStyle::Delete)
                sender.deleteRowsAtIndexPaths({path}, 0);
            followTable();
            meddle();
        };
        s.tableViewPlaceholderCellForRowAtIndexPath = [this](auto&, auto& path) {
            meddle();
            return std::make_shared<NumberedCell>(path);
        };
    }
    std::size_t pick(std::size_t count) { return random() % count; }
    /// The rows are those of the source, each with its cell.
    bool isComplete() const {
        const std::string text = rows();
        return text.find('P') == std::string::npos && text != "not loaded";
    }
    /// Placeholders may stand among the rows, so that paths do not lead to the numbers.
    void followTable() {
        // Of rows that are being loaded, the table does not know which they are.
        if (rows() == "not loaded") return table->reloadData();
        const auto& sections = table->rows().sections();
        for (std::size_t section = 0; section < sections.size(); ++section) {
            source->numbers[section].clear();
            for (const auto& one : sections[section].cells)
                if (one && !one->placeholderCell())
                    source->numbers[section].push_back(
                        static_cast<const NumberedCell&>(*one).number);
        }
    }
    void meddle();
    void act();
    void check() const;

    std::mt19937 random;
    int depth = 0;
};

void Hostile::meddle() {
    if (depth > 1 || pick(3)) return;
    ++depth;
    auto& numbers = source->numbers;
    const std::size_t section = pick(numbers.size());
    const auto row = static_cast<std::int64_t>(pick(numbers[section].size() + 1));
    const CVIndexPath path(static_cast<std::int64_t>(section), row);
    const bool exists = row < static_cast<std::int64_t>(numbers[section].size());
    switch (isComplete() ? pick(8) : pick(4)) {
        case 0:
            table->reloadData();
            break;
        case 1:
            table->filterRowsWithIndexPaths(CVMacTableView::PathSet{path, {0, 0}, {0, 2}});
            break;
        case 2:
            window.makeFirstResponder(nullptr);
            break;
        case 3:
            table->performClearSelection();
            break;
        case 4:
            if (!exists) break;
            numbers[section].erase(numbers[section].begin() + row);
            table->deleteRowsAtIndexPaths({path}, 0);
            break;
        case 5:
            numbers[section].insert(numbers[section].begin() + row, source->nextNumber++);
            table->insertRowsAtIndexPaths({path}, 0);
            break;
        case 6:
            if (!exists) break;
            std::rotate(numbers[section].begin(), numbers[section].begin() + row,
                        numbers[section].begin() + row + 1);
            table->moveRowAtIndexPath(path, {path.section(), 0});
            break;
        default:
            table->removeFromSuperview();
            scrollView->setDocumentView(nullptr);
            scrollView->setDocumentView(table);
    }
    --depth;
}

void Hostile::act() {
    constexpr char32_t kKeys[] = {kKeyDownArrow, kKeyUpArrow, kKeyLeftArrow, kKeyRightArrow,
                                  kKeyReturn,    kKeyTab,     kKeyBacktab,   kKeyEscape,
                                  kKeyBackspace, U'a',        U'b',          U' '};
    constexpr std::uint64_t kModifiers[] = {0, 0, kModifierShift, kModifierOption};
    const Point point{10, static_cast<double>(pick(300))};
    if (!window.firstResponder()) window.makeFirstResponder(table->firstCell());
    switch (pick(10)) {
        case 0:
            return click(point, kModifiers[pick(3)], 1 + static_cast<int>(pick(2)));
        case 1: {
            window.mouseDown(MouseEvent(point));
            window.mouseDragged(MouseEvent({point.x + 10, point.y}));
            const auto session = window.dragSession();
            if (!session) return;
            DraggingInfo info(*session, {10, static_cast<double>(pick(300))});
            window.draggingMoved(info);
            window.drop(info);
            return session->end(kDragOperationGeneric);
        }
        case 2:
            loop.advance(1);
            return;
        case 3:
            window.contextMenu(MouseEvent(point));
            return;
        case 4:
            return table->startInlineEditingRowAtIndexPath(std::nullopt);
        default:
            press(kKeys[pick(std::size(kKeys))], kModifiers[pick(std::size(kModifiers))]);
    }
}

void Hostile::check() const {
    std::size_t views = 0;
    std::size_t selected = 0;
    const bool complete = isComplete();
    const auto& sections = table->rows().sections();
    ASSERT_EQ(sections.size(), source->numbers.size());
    for (std::size_t section = 0; section < sections.size(); ++section) {
        const auto& [header, cells, heights] = sections[section];
        ASSERT_EQ(cells.size(), heights.size());
        if (complete) {
            ASSERT_EQ(cells.size(), source->numbers[section].size());
        }
        views += cells.size() + (header ? 1 : 0);
        for (std::size_t row = 0; row < cells.size(); ++row) {
            const auto& one = static_cast<const NumberedCell&>(*cells[row]);
            ASSERT_EQ(NumberedSource::text(one.indexPath()),
                      NumberedSource::text(
                          {static_cast<std::int64_t>(section), static_cast<std::int64_t>(row)}));
            ASSERT_EQ(one.superview(), table.get());
            if (complete) {
                ASSERT_EQ(one.number, source->numbers[section][row]);
            }
            selected += one.selected();
        }
    }
    ASSERT_EQ(table->subviews().size(), views);
    const auto paths = table->allIndexPathsForSelectedRows();
    ASSERT_EQ(paths.size(), selected);
    if (const auto primary = table->indexPathForSelectedRow()) {
        ASSERT_TRUE(paths.contains(*primary));
    }
    if (const auto first = window.firstResponder()) {
        ASSERT_EQ(first->window(), &window);
    }
}

}  // namespace

TEST(TableView, StaysWholeWhateverItsDelegatesDoWhileTheyAreCalled) {
    for (std::uint32_t seed = 1; seed <= 25; ++seed) {
        SCOPED_TRACE(seed);
        Hostile hostile(seed);
        for (int step = 0; step < 300; ++step) {
            SCOPED_TRACE(step);
            hostile.act();
            hostile.check();
            if (testing::Test::HasFailure()) return;
        }
    }
}
