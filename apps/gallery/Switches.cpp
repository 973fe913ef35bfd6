#include "apps/gallery/Switches.h"

#include "apps/gallery/TaskTable.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <functional>

namespace corvane::gallery {

namespace {

using Table = CVMacTableView;

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
        {"A click on nothing selects nothing", table.clearSelectionOnBackgroundClick(),
         [](TaskTable& one, bool on) { one.table().setClearSelectionOnBackgroundClick(on); }},
        {"Menus and drags tell what they select", table.informDelegateWhenAutoSelecting(),
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

void addButton(QFormLayout& layout, const char* title, const TaskTables& tables,
               const std::function<void(TaskTable&)>& act) {
    auto* button = new QPushButton(title);
    QObject::connect(button, &QPushButton::clicked, button, [tables, act] {
        for (const auto& table : tables)
            act(*table);
    });
    layout.addRow(button);
}

}  // namespace

QWidget* makeSwitches(const TaskTables& tables, QWidget* parent) {
    auto* panel = new QWidget(parent);
    auto* layout = new QFormLayout(panel);
    auto* filter = new QLineEdit;
    filter->setPlaceholderText("Filter");
    filter->setClearButtonEnabled(true);
    QObject::connect(filter, &QLineEdit::textChanged, filter, [tables](const QString& text) {
        for (const auto& table : tables)
            table->filter(text.toStdString());
    });
    layout->addRow(filter);
    for (const auto& [title, on, set] : switchesOf(tables.front()->table())) {
        auto* box = new QCheckBox(title);
        box->setChecked(on);
        QObject::connect(box, &QCheckBox::toggled, box, [tables, act = set](bool checked) {
            for (const auto& table : tables)
                act(*table, checked);
        });
        layout->addRow(box);
    }
    for (const auto& [title, value, least, set] : measuresOf(tables.front()->table())) {
        auto* box = new QSpinBox;
        box->setRange(least, 99);
        box->setValue(value);
        QObject::connect(box, &QSpinBox::valueChanged, box, [tables, act = set](int changed) {
            for (const auto& table : tables)
                act(table->table(), changed);
        });
        layout->addRow(title, box);
    }
    addButton(*layout, "Reload", tables, [](TaskTable& one) { one.table().reloadData(); });
    addButton(*layout, "Select All", tables, [](TaskTable& one) { one.table().selectAllCells(); });
    addButton(*layout, "10,000 Tasks", {tables.back()},
              [](TaskTable& one) { one.setSections(manyExampleTasks(10000)); });
    return panel;
}

}  // namespace corvane::gallery
