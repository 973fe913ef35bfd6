// A table over numbered rows, in a scroll view of a window that nobody sees.
#pragma once

#include "corvane/platform/Console.h"
#include "corvane/platform/ManualRunLoop.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/Event.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace corvane::test {

/// A row with a field that opens when the row is edited.
struct NumberedCell : CVMacTableViewCell {
    explicit NumberedCell(const CVIndexPath& path)
        : CVMacTableViewCell(path), field(std::make_shared<views::TextField>()) {
        field->setAction([this](views::Control& sender) {
            if (const auto table = delegate()) table->cellDidChangeValueForView(*this, sender);
        });
        contentView()->addSubview(field);
        addActivatableField(field);
        setFirstKeyView(field);
        setLastKeyView(field);
    }
    double rowHeightForContentWidth(double) override { return height; }

    std::shared_ptr<views::TextField> field;
    int number = 0;
    double height = -1;
};

/// Owns the numbers and notes every change that it is asked for.
struct NumberedSource : CVMacTableViewDataSource {
    using Table = CVMacTableView;
    NumberedSource() {
        tableViewCommitEditingStyle = [this](Table& table, CVMacTableViewEditingStyle style,
                                             const CVIndexPath& path) {
            commit(table, style, path);
        };
        tableViewMoveRowAtIndexPath = [this](Table&, const Path& from, const Path& to) {
            log += "move" + text(from) + text(to) + " ";
            auto& source = numbers[static_cast<std::size_t>(from.section())];
            const int number = source[static_cast<std::size_t>(from.row())];
            source.erase(source.begin() + from.row());
            auto& target = numbers[static_cast<std::size_t>(to.section())];
            target.insert(target.begin() + to.row(), number);
        };
        beginMovingRowsInTableView = [this](Table&) { log += "begin "; };
        commitMovingRowsInTableView = [this](Table&) { log += "commit "; };
        tableViewPlaceholderCellForRowAtIndexPath = [](Table&, const Path& path) {
            return std::make_shared<NumberedCell>(path);
        };
        tableViewCanInlineInsertRowAtIndexPath = [](Table&, const Path&) { return true; };
        tableViewCanInlineEditRowAtIndexPath = [](Table&, const Path&) { return true; };
    }
    static std::string text(const CVIndexPath& path) {
        return "(" + std::to_string(path.section()) + "," + std::to_string(path.row()) + ")";
    }
    CellPtr tableViewCellForRowAtIndexPath(Table&, const Path& path,
                                           const CellPtr& reusable) override {
        ++cellsAsked;
        auto cell = std::dynamic_pointer_cast<NumberedCell>(reusable);
        if (!cell) cell = std::make_shared<NumberedCell>(path);
        cell->number = numbers.at(static_cast<std::size_t>(path.section()))
                           .at(static_cast<std::size_t>(path.row()));
        cell->height = heights ? 10 + cell->number % 4 : -1;
        if (const auto act = whenAsked) act();
        return cell;
    }
    std::int64_t numberOfSectionsInTableView(Table&) override {
        return static_cast<std::int64_t>(numbers.size());
    }
    std::optional<std::string> tableViewTitleForHeaderInSection(Table&,
                                                                std::int64_t section) override {
        if (!titled.contains(section)) return std::nullopt;
        return "Section " + std::to_string(section);
    }
    std::int64_t tableViewNumberOfRowsInSection(Table&, std::int64_t section) override {
        if (const auto act = whenAsked) act();
        return static_cast<std::int64_t>(numbers.at(static_cast<std::size_t>(section)).size());
    }
    void commit(Table& table, CVMacTableViewEditingStyle style, const CVIndexPath& path) {
        auto& section = numbers[static_cast<std::size_t>(path.section())];
        const auto cell = std::static_pointer_cast<NumberedCell>(table.cellForRowAtIndexPath(path));
        if (style == CVMacTableViewEditingStyle::Insert) {
            cell->number = nextNumber++;
            section.insert(section.begin() + path.row(), cell->number);
        } else if (style == CVMacTableViewEditingStyle::Delete) {
            if (!cell->placeholderCell()) section.erase(section.begin() + path.row());
            table.deleteRowsAtIndexPaths({path}, 0);
        }
        log += (style == CVMacTableViewEditingStyle::Insert   ? "insert"
                : style == CVMacTableViewEditingStyle::Delete ? "delete"
                                                              : "edit") +
               text(path) + " ";
    }

    std::vector<std::vector<int>> numbers;
    std::set<std::int64_t> titled;
    std::function<void()> whenAsked;  ///< for a cell or a count
    bool heights = false;             ///< of their own, from 10 to 13
    int nextNumber = 1000;
    int cellsAsked = 0;
    std::string log;
};

struct TableFixture {
    explicit TableFixture(std::initializer_list<std::vector<int>> numbers = {}) {
        source->numbers = numbers;
        table->setDataSource(source);
        table->setDelegate(delegate);
        window.setContentView(scrollView);
        scrollView->setDocumentView(table);
        delegate->tableViewDidSelectRowAtIndexPath = [this](CVMacTableView&,
                                                            const CVIndexPath& path) {
            source->log += "select" + NumberedSource::text(path) + " ";
        };
        table->reloadData();
        loop.runTurn();
    }
    std::shared_ptr<NumberedCell> cell(std::int64_t section, std::int64_t row) const {
        return std::static_pointer_cast<NumberedCell>(table->cellForRowAtIndexPath({section, row}));
    }
    /// What stands in the table: numbers, "[" before a selected one, "P" for a placeholder, "." for
    /// a filtered one, "|" after each section.
    std::string rows() const {
        std::string text;
        for (const auto& section : table->rows().sections()) {
            for (const auto& one : section.cells) {
                if (!one) return "not loaded";
                const auto& row = static_cast<const NumberedCell&>(*one);
                text += row.selected() ? "[" : "";
                text += row.placeholderCell() ? "P"
                        : row.filtered()      ? "."
                                              : std::to_string(row.number);
                text += " ";
            }
            text += "|";
        }
        return text;
    }
    std::string takeLog() { return std::exchange(source->log, ""); }
    void press(char32_t key, std::uint64_t modifiers = 0) {
        window.keyDown(views::KeyEvent(key, modifiers));
    }
    void type(const char* text) { window.keyDown(views::KeyEvent(std::string(text))); }
    void click(views::Point point, std::uint64_t modifiers = 0, int count = 1) {
        window.mouseDown(views::MouseEvent(point, count, modifiers));
        window.mouseUp(views::MouseEvent(point, count, modifiers));
    }
    void focus(std::int64_t section, std::int64_t row) {
        table->performSelectRowAtIndexPath({section, row});
        takeLog();
    }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    platform::ManualRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    std::shared_ptr<NumberedSource> source = std::make_shared<NumberedSource>();
    std::shared_ptr<CVMacTableViewDelegate> delegate = std::make_shared<CVMacTableViewDelegate>();
    std::shared_ptr<CVMacTableView> table = std::make_shared<CVMacTableView>();
    std::shared_ptr<views::ScrollView> scrollView = std::make_shared<views::ScrollView>();
    views::Window window{{200, 300}};
};

}  // namespace corvane::test
