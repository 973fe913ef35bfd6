#include "apps/gallery/TableSettingsPanel.h"

#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/views/Button.h"
#include "corvane/views/Label.h"

#include "apps/gallery/NumberField.h"
#include "apps/gallery/Panels.h"
#include "apps/gallery/TaskTable.h"
#include "apps/gallery/Texts.h"

#include <functional>

namespace corvane::gallery {

namespace {

using Table = CVMacTableView;

constexpr double kMargin = 12;
constexpr double kCaptionWidth = 216;

struct Switch {
    const char* title;
    bool on;
    std::function<void(TaskTable&, bool)> set;
};

struct Measure {
    const char* title;
    int value;
    int least;
    std::function<void(Table&, int)> set;
};

std::vector<Switch> switchesOf(const Table& table) {
    return {
        {"Several rows can be selected", table.allowsMultipleSelections(),
         [](TaskTable& one, bool on) { one.table().setAllowsMultipleSelections(on); }},
        {"A click on nothing deselects", table.clearSelectionOnBackgroundClick(),
         [](TaskTable& one, bool on) { one.table().setClearSelectionOnBackgroundClick(on); }},
        {"Menus tell what they select", table.informDelegateWhenAutoSelecting(),
         [](TaskTable& one, bool on) { one.table().setInformDelegateWhenAutoSelecting(on); }},
        {"Left and right go by sections", table.supportsLeftRightCursorMovement(),
         [](TaskTable& one, bool on) { one.table().setSupportsLeftRightCursorMovement(on); }},
        {"Alt and arrows move rows", table.supportsRowMovementViaCursorKeys(),
         [](TaskTable& one, bool on) { one.table().setSupportsRowMovementViaCursorKeys(on); }},
        {"New rows go above", table.reverseInsertionDirection(),
         [](TaskTable& one, bool on) { one.table().setReverseInsertionDirection(on); }},
        {"Rows are used again", table.autoReuseCells(),
         [](TaskTable& one, bool on) { one.table().setAutoReuseCells(on); }},
        {"Line beside the boxes", table.accessoryLineOffset() >= 0,
         [](TaskTable& one, bool on) { one.table().setAccessoryLineOffset(on ? 30 : -1); }},
        {"Tasks can be changed", true, [](TaskTable& one, bool on) { one.setEditable(on); }},
    };
}

std::vector<Measure> measuresOf(const Table& table) {
    const auto reload = [](auto setter) {
        return [setter](Table& one, int value) {
            (one.*setter)(value);
            one.reloadData();
        };
    };
    return {
        {"Header", static_cast<int>(table.sectionHeaderHeight()), 0,
         reload(&Table::setSectionHeaderHeight)},
        {"Above", static_cast<int>(table.top()), 0, reload(&Table::setTop)},
        {"Below", static_cast<int>(table.bottom()), 0, reload(&Table::setBottom)},
        {"Left", static_cast<int>(table.left()), 0, reload(&Table::setLeft)},
        {"Right", static_cast<int>(table.right()), 0, reload(&Table::setRight)},
        {"Separator from", static_cast<int>(table.rowSeparatorIndentation()), 0,
         reload(&Table::setRowSeparatorIndentation)},
        {"New rows in section", static_cast<int>(table.defaultInsertionSection()), -1,
         reload(&Table::setDefaultInsertionSection)},
    };
}

std::shared_ptr<views::View> filterOf(const TaskTables& tables) {
    auto filter = std::make_shared<CVMacSearchBar>();
    filter->setPlaceholder(localized("Filter"));
    filter->didSearchForString = [tables](const std::string& text) {
        for (const auto& table : tables)
            table->filter(text);
    };
    filter->didClearSearch = [tables] {
        for (const auto& table : tables)
            table->filter("");
    };
    return filter;
}

void addButton(Stack& panel, const char* title, const TaskTables& tables,
               const std::function<void(TaskTable&)>& act) {
    panel.add(button(localized(title), [tables, act] {
        for (const auto& table : tables)
            act(*table);
    }));
}

}  // namespace

std::shared_ptr<views::View> makeTableSettingsPanel(const TaskTables& tables) {
    auto panel = stackDown(6, kMargin);
    panel->add(filterOf(tables));
    for (const auto& [title, on, set] : switchesOf(tables.front()->table())) {
        auto one = std::make_shared<CVMacSwitch>();
        one->setOn(on);
        one->setAction([tables, act = set](views::Control& sender) {
            for (const auto& table : tables)
                act(*table, static_cast<CVMacSwitch&>(sender).isOn());
        });
        panel->add(captioned(localized(title), one, kCaptionWidth));
    }
    for (const auto& [title, value, least, set] : measuresOf(tables.front()->table())) {
        const auto change = [tables, act = set](int changed) {
            for (const auto& table : tables)
                act(table->table(), changed);
        };
        panel->add(captioned(localized(title),
                             std::make_shared<NumberField>(value, least, 99, change),
                             kCaptionWidth));
    }
    addButton(*panel, "Reload", tables, [](TaskTable& one) { one.table().reloadData(); });
    addButton(*panel, "Select All", tables, [](TaskTable& one) { one.table().selectAllCells(); });
    addButton(*panel, "10,000 Tasks", {tables.back()},
              [](TaskTable& one) { one.setSections(manyExampleTasks(10000)); });
    return panel;
}

}  // namespace corvane::gallery
