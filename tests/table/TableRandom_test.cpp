#include "tests/table/TableFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace corvane;
using namespace corvane::test;

namespace {

/// What a table should be: lists of numbers, and which of them are selected and hidden.
struct PlainTable {
    struct Place {
        std::size_t section, row;
        auto operator<=>(const Place&) const = default;
    };
    std::vector<std::vector<int>> sections;
    std::set<int> selected, hidden;
    std::optional<int> primary, anchor, rangeEnd;

    std::vector<int> all() const {
        std::vector<int> numbers;
        for (const auto& section : sections)
            numbers.insert(numbers.end(), section.begin(), section.end());
        return numbers;
    }
    Place placeOf(int number) const {
        for (std::size_t section = 0; section < sections.size(); ++section)
            for (std::size_t row = 0; row < sections[section].size(); ++row)
                if (sections[section][row] == number) return {section, row};
        throw std::logic_error("no such number");
    }
    void clear() {
        selected.clear();
        primary = anchor = rangeEnd = std::nullopt;
    }
    void select(int number, bool clears) {
        if (clears) clear();
        selected.insert(number);
        primary = anchor = number;
        rangeEnd = std::nullopt;
    }
    void deselect(int number) {
        selected.erase(number);
        if (primary == number) primary = std::nullopt;
    }
    /// Everything from the anchor, without it, to the other end.
    std::vector<int> range(int end) const {
        const auto numbers = all();
        auto from = std::find(numbers.begin(), numbers.end(), *anchor);
        auto to = std::find(numbers.begin(), numbers.end(), end);
        if (from <= to) return {from == to ? to : from + 1, from == to ? to : to + 1};
        return {to, from};
    }
    void selectRange(int end) {
        if (!anchor) return select(end, true);
        if (rangeEnd)
            for (const int number : range(*rangeEnd))
                selected.erase(number);
        for (const int number : range(end))
            if (!hidden.contains(number)) selected.insert(number);
        rangeEnd = end;
        if (primary && !selected.contains(*primary)) primary = std::nullopt;
    }
    void selectAll() {
        const auto before = primary;
        clear();
        for (const int number : all())
            if (!hidden.contains(number)) {
                selected.insert(number);
                if (!primary) primary = number;
            }
        if (before && selected.contains(*before)) primary = before;
    }
    void remove(int number) {
        const Place place = placeOf(number);
        auto& section = sections[place.section];
        section.erase(section.begin() + static_cast<std::ptrdiff_t>(place.row));
        deselect(number);
        hidden.erase(number);
        if (anchor == number) anchor = rangeEnd = std::nullopt;
        if (rangeEnd == number) rangeEnd = std::nullopt;
    }
    std::optional<int> visibleBeside(int number, int step) const {
        const auto numbers = all();
        auto at = std::find(numbers.begin(), numbers.end(), number) - numbers.begin();
        for (at += step; at >= 0 && at < static_cast<std::ptrdiff_t>(numbers.size()); at += step)
            if (!hidden.contains(numbers[static_cast<std::size_t>(at)]))
                return numbers[static_cast<std::size_t>(at)];
        return std::nullopt;
    }
    /// One step for each selected row; false where one cannot.
    bool moveSelection(int step) {
        auto numbers = all();
        std::erase_if(numbers, [&](int number) { return !selected.contains(number); });
        if (step > 0) std::reverse(numbers.begin(), numbers.end());
        const auto everything = all();
        if (!numbers.empty() &&
            selected.contains(step > 0 ? everything.back() : everything.front()))
            return false;
        for (const int number : numbers) {
            const auto [section, row] = placeOf(number);
            const auto take = [&, from = section] { std::erase(sections[from], number); };
            const auto next = static_cast<std::ptrdiff_t>(row) + step;
            if (next >= 0 && next < static_cast<std::ptrdiff_t>(sections[section].size())) {
                std::swap(sections[section][row],
                          sections[section][static_cast<std::size_t>(next)]);
                continue;
            }
            auto target = section;
            do
                target += static_cast<std::size_t>(step);
            while (sections[target].empty());
            take();
            auto& list = sections[target];
            list.insert(step > 0 ? list.begin() : list.end(), number);
        }
        return true;
    }
};

struct Trial : TableFixture {
    explicit Trial(std::uint32_t seed) : random(seed) {
        table->setAllowsMultipleSelections(true);
        table->setAutoReuseCells(seed % 2 == 0);
        delegate->beginMovingRowsInTableView = [](auto&) {};
        source->heights = true;
        reload();
    }
    std::size_t pick(std::size_t count) { return random() % count; }
    int newNumber() { return source->nextNumber++; }
    void reload() {
        source->numbers.assign(1 + pick(4), {});
        for (auto& section : source->numbers)
            for (std::size_t count = pick(12); count > 0; --count)
                section.push_back(newNumber());
        table->filterRowsWithIndexPaths(std::nullopt);
        table->reloadData();
        plain = {};
        plain.sections = source->numbers;
    }
    CVIndexPath pathOf(int number) const {
        const auto [section, row] = plain.placeOf(number);
        return {static_cast<std::int64_t>(section), static_cast<std::int64_t>(row)};
    }
    void step();
    void check() const;
    void key(int number, int direction, bool extends);
    void filter();
    void insert();
    void remove(int number);
    void move(int number);
    void placeholder(int number, bool commits);

    std::mt19937 random;
    PlainTable plain;
};

void Trial::key(int number, int direction, bool extends) {
    window.makeFirstResponder(table->cellForRowAtIndexPath(pathOf(number)));
    press(direction > 0 ? views::kKeyDownArrow : views::kKeyUpArrow,
          extends ? views::kModifierShift : 0);
    const auto target = plain.visibleBeside(number, direction);
    EXPECT_EQ(takeLog(), target ? "select" + NumberedSource::text(pathOf(*target)) + " " : "");
    if (target) extends ? plain.selectRange(*target) : plain.select(*target, true);
}

void Trial::filter() {
    plain.hidden.clear();
    CVMacTableView::PathSet kept;
    for (const int number : plain.all())
        pick(3) ? (void)kept.insert(pathOf(number)) : (void)plain.hidden.insert(number);
    if (pick(3) == 0) plain.hidden.clear();
    table->filterRowsWithIndexPaths(plain.hidden.empty() ? std::nullopt : std::optional(kept));
}

void Trial::insert() {
    const std::size_t section = pick(plain.sections.size());
    auto& list = plain.sections[section];
    const std::size_t first = pick(list.size() + 1);
    CVMacTableView::Paths paths;
    for (std::size_t row = first; row <= first + pick(3); ++row) {
        list.insert(list.begin() + static_cast<std::ptrdiff_t>(row), newNumber());
        paths.emplace_back(section, row);
    }
    source->numbers = plain.sections;
    table->insertRowsAtIndexPaths(paths, 5);
}

void Trial::remove(int number) {
    const CVIndexPath path = pathOf(number);
    if (pick(2)) {
        table->performDeleteRowsAtIndexPaths({path});
        EXPECT_EQ(takeLog(), "delete" + NumberedSource::text(path) + " ");
        plain.remove(number);
        return;
    }
    plain.remove(number);
    source->numbers = plain.sections;
    table->deleteRowsAtIndexPaths({path}, 5);
}

void Trial::move(int number) {
    const CVIndexPath from = pathOf(number);
    std::erase(plain.sections[static_cast<std::size_t>(from.section())], number);
    const std::size_t section = pick(plain.sections.size());
    auto& list = plain.sections[section];
    const std::size_t row = pick(list.size() + 1);
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(row), number);
    source->numbers = plain.sections;
    table->moveRowAtIndexPath(
        from, CVIndexPath(static_cast<std::int64_t>(section), static_cast<std::int64_t>(row)));
}

void Trial::placeholder(int number, bool commits) {
    table->cellRequestsNextKeyViewByInsert(*cell(pathOf(number).section(), pathOf(number).row()));
    const auto added = table->placeholderCell();
    ASSERT_TRUE(added);
    const CVIndexPath path(pathOf(number).section(), pathOf(number).row() + 1);
    EXPECT_EQ(takeLog(), "select" + NumberedSource::text(path) + " ");
    plain.select(-1, true);
    if (commits) type("x");
    press(views::kKeyEscape);
    EXPECT_EQ(takeLog(), commits ? "insert" + NumberedSource::text(path) + " " : "");
    loop.runTurn();
    EXPECT_EQ(takeLog(), commits ? "" : "delete" + NumberedSource::text(path) + " ");
    plain.clear();
    plain.sections = source->numbers;
    if (commits)
        plain.select(plain.sections[static_cast<std::size_t>(path.section())]
                                   [static_cast<std::size_t>(path.row())],
                     true);
}

void Trial::step() {
    const auto numbers = plain.all();
    const std::size_t what = pick(22);
    if (numbers.empty() || what == 0) return pick(4) && !numbers.empty() ? insert() : reload();
    const int number = numbers[pick(numbers.size())];
    takeLog();
    using Mode = CVMacTableViewSelectionMode;
    switch (what) {
        case 1:
            table->selectAllCells();
            return plain.selectAll();
        case 2:
            return filter();
        case 3:
            return insert();
        case 4:
            return remove(number);
        case 5:
            return move(number);
        case 6:
        case 7: {
            const int direction = what == 6 ? 1 : -1;
            const auto before = plain.selected;
            const bool moved = plain.moveSelection(direction);
            window.makeFirstResponder(table->cellForRowAtIndexPath(pathOf(number)));
            direction > 0 ? table->cellDidMoveSelectedRowsDown(*table->firstCell())
                          : table->cellDidMoveSelectedRowsUp(*table->firstCell());
            EXPECT_EQ(takeLog().ends_with("commit "), moved);
            return;
        }
        case 8:
            return placeholder(number, pick(2));
        case 9:
        case 10:
        case 11:
            return key(number, pick(2) ? 1 : -1, what != 9);
        default: {
            const auto mode =
                static_cast<Mode>(what < 16 ? what - 12 : 2 + what % 2);  // ranges, mostly
            table->didSelectRowAtIndexPath(pathOf(number), mode);
            EXPECT_EQ(takeLog(), "select" + NumberedSource::text(pathOf(number)) + " ");
            if (mode == Mode::Remove) return plain.deselect(number);
            if (mode == Mode::Range) return plain.selectRange(number);
            return plain.select(number, mode == Mode::Alone);
        }
    }
}

void Trial::check() const {
    const auto& sections = table->rows().sections();
    ASSERT_EQ(sections.size(), plain.sections.size());
    std::set<CVIndexPath> selected;
    for (std::size_t section = 0; section < sections.size(); ++section) {
        const auto& [header, cells, heights] = sections[section];
        ASSERT_EQ(cells.size(), plain.sections[section].size());
        ASSERT_EQ(heights.size(), cells.size());
        for (std::size_t row = 0; row < cells.size(); ++row) {
            const int number = plain.sections[section][row];
            const auto& one = static_cast<const NumberedCell&>(*cells[row]);
            const CVIndexPath path(static_cast<std::int64_t>(section),
                                   static_cast<std::int64_t>(row));
            ASSERT_EQ(one.number, number);
            ASSERT_EQ(one.indexPath(), path);
            ASSERT_EQ(one.selected(), plain.selected.contains(number)) << number;
            ASSERT_EQ(one.filtered(), plain.hidden.contains(number)) << number;
            ASSERT_EQ(one.superview(), table.get());
            if (one.filtered()) {
                ASSERT_EQ(heights[row], 0);
            }
            if (one.selected()) selected.insert(path);
        }
    }
    ASSERT_EQ(table->allIndexPathsForSelectedRows(), selected);
    const auto pathOrNone = [&](const std::optional<int>& number) {
        return number ? std::optional(pathOf(*number)) : std::nullopt;
    };
    ASSERT_EQ(table->indexPathForSelectedRow(), pathOrNone(plain.primary));
    ASSERT_EQ(table->rangeSelectionStartIndexPath(), pathOrNone(plain.anchor));
    ASSERT_EQ(table->rangeSelectionEndIndexPath(), pathOrNone(plain.rangeEnd));
}

}  // namespace

TEST(TableView, AgreesWithAPlainModelThroughThousandsOfChanges) {
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        Trial trial(seed);
        for (int step = 0; step < 400; ++step) {
            SCOPED_TRACE(step);
            trial.step();
            trial.check();
            if (testing::Test::HasFailure()) return;
            if (step % 7 == 0) trial.loop.runTurn();
        }
    }
}
