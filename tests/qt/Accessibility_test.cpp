// What assistive technology is told, by a handler in the place of the desktop's.

#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/Button.h"
#include "corvane/views/Label.h"

#include "tests/qt/HostFixture.h"

#include <QAccessible>

using namespace corvane;
using namespace corvane::qt;
using views::Role;

namespace {

struct NotingListener final : AccessibilityListener {
    bool isActive() override { return active; }
    void hear(QAccessibleEvent& event) override;

    bool active = true;
    std::string heard;
};

void NotingListener::hear(QAccessibleEvent& event) {
    auto* interface = event.accessibleInterface();
    const auto text = [&](QAccessible::Text kind) { return interface->text(kind).toStdString(); };
    const auto state = interface->state();
    switch (event.type()) {
        case QAccessible::NameChanged:
            heard += "name " + text(QAccessible::Name);
            break;
        case QAccessible::DescriptionChanged:
            heard += "description " + text(QAccessible::Description);
            break;
        case QAccessible::TextUpdated: {
            const auto& update = static_cast<QAccessibleTextUpdateEvent&>(event);
            heard += "text '" + update.textRemoved().toStdString() + "' to '" +
                     update.textInserted().toStdString() + "'";
            break;
        }
        case QAccessible::ValueChanged:
            heard +=
                "value " + interface->valueInterface()->currentValue().toString().toStdString();
            break;
        case QAccessible::Selection:
            heard += text(QAccessible::Name) + (state.selected ? " selected" : " not selected");
            break;
        case QAccessible::StateChanged: {
            const auto changed = static_cast<QAccessibleStateChangeEvent&>(event).changedStates();
            if (changed.checked) heard += state.checked ? "checked" : "not checked";
            if (changed.disabled) heard += state.disabled ? "disabled" : "enabled";
            break;
        }
        default:
            return;
    }
    heard += "; ";
}

struct AccessibilityTest : HostTest {
    std::string takeHeard() { return std::exchange(listener.heard, ""); }

    NotingListener listener;
    ScopedAccessibilityListener scope{listener};
};

struct Measured : views::View {
    using View::View;
    Role accessibilityRole() const override { return role; }
    std::string accessibilityValue() const override { return value; }
    std::optional<double> accessibilityNumber() const override { return number; }
    void setValue(std::string text, std::optional<double> measured = {}) {
        value = std::move(text);
        number = measured;
        accessibilityDidChange(views::AccessibilityChange::Value);
    }
    Role role = Role::ProgressBar;
    std::string value;
    std::optional<double> number;
};

struct Rows : CVMacTableViewDataSource {
    CellPtr tableViewCellForRowAtIndexPath(Table&, const Path& path, const CellPtr&) override {
        auto cell = std::make_shared<CVMacTableViewCell>(path);
        CVMacTableViewCell::setTextForLabelView("row " + std::to_string(path.row()),
                                                *cell->createLabelView());
        return cell;
    }
    std::int64_t numberOfSectionsInTableView(Table&) override { return 1; }
    std::optional<std::string> tableViewTitleForHeaderInSection(Table&, std::int64_t) override {
        return {};
    }
    std::int64_t tableViewNumberOfRowsInSection(Table&, std::int64_t) override { return 3; }
};

}  // namespace

TEST_F(AccessibilityTest, TellsChangesOfControls) {
    const auto button = add<views::Button>({0, 0, 80, 20});
    const auto label = std::make_shared<views::Label>();
    host.viewWindow().root().addSubview(label);
    const auto field = add<views::TextField>({0, 40, 80, 20});
    show();
    button->setToggles(true);
    button->performClick();
    button->setEnabled(false);
    button->setEnabled(false);
    button->setTitle("Mute");
    button->setAccessibilityName("Mute all");
    label->setText("Ready");
    EXPECT_EQ(takeHeard(), "checked; disabled; name Mute; name Mute all; name Ready; ");
    field->setStringValue("tea");
    field->setStringValue("teä");
    EXPECT_EQ(takeHeard(), "text '' to 'tea'; text 'tea' to 'teä'; ");
    auto* text = QAccessible::queryAccessibleInterface(&host)->child(2)->textInterface();
    ASSERT_TRUE(text);
    EXPECT_EQ(text->characterCount(), 3);
    EXPECT_EQ(text->text(1, 3), "eä");
    host.viewWindow().makeFirstResponder(field);
    press(Qt::Key_A, "a");
    EXPECT_EQ(field->stringValue(), "a");
    EXPECT_EQ(takeHeard(), "") << "the live editor tells of what is typed";
    label->removeFromSuperview();
    label->setText("Gone");
    EXPECT_EQ(takeHeard(), "");
}

TEST_F(AccessibilityTest, TellsValuesAsNumbersOrInWords) {
    const auto view = add<Measured>({0, 0, 80, 20});
    show();
    auto* interface = QAccessible::queryAccessibleInterface(&host)->child(0);
    view->setValue("");
    EXPECT_FALSE(interface->valueInterface());
    view->setValue("%40", 40);
    ASSERT_TRUE(interface->valueInterface());
    EXPECT_EQ(interface->valueInterface()->maximumValue(), 100.0);
    view->role = Role::Splitter;
    EXPECT_EQ(interface->valueInterface()->maximumValue(), host.height());
    EXPECT_FALSE(interface->textInterface());
    view->role = Role::PopUpButton;
    view->setToolTip("How often");
    view->setValue("2 weeks");
    EXPECT_FALSE(interface->valueInterface());
    EXPECT_EQ(takeHeard(), "description ; value 40; description 2 weeks, How often; ");
}

TEST_F(AccessibilityTest, TellsTheSelectionOfATable) {
    const auto source = std::make_shared<Rows>();
    const auto table = add<CVMacTableView>({0, 0, 200, 100});
    table->setDataSource(source);
    table->setAllowsMultipleSelections(true);
    table->reloadData();
    show();
    takeHeard();
    table->selectCellWithIndexPath({0, 1});
    table->selectCellWithIndexPath({0, 2});
    EXPECT_EQ(takeHeard(), "row 1 selected; row 1 not selected; row 2 selected; ");
    table->selectAllCells();
    EXPECT_EQ(takeHeard(), "row 2 not selected; row 0 selected; row 1 selected; row 2 selected; ");
    listener.active = false;
    table->clearSelection();
    EXPECT_EQ(takeHeard(), "") << "nobody listens";

    auto* rows = QAccessible::queryAccessibleInterface(&host)->child(0);
    const auto name = [&](int row) {
        auto* interface = rows->child(row);
        return interface ? interface->text(QAccessible::Name).toStdString() : "none";
    };
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(name(row), "row " + std::to_string(row));
    EXPECT_EQ(name(3), "none");
    table->deleteRowsAtIndexPaths({{0, 1}}, 0);
    EXPECT_EQ(name(1), "row 2");
}
