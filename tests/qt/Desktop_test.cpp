#include "corvane/views/Button.h"
#include "corvane/views/Label.h"
#include "corvane/views/Menu.h"

#include "tests/qt/HostFixture.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

using namespace corvane;
using namespace corvane::qt;
using views::Rect;
using views::Role;

namespace {

using DesktopTest = HostTest;

struct RowView : NotingView {
    using NotingView::NotingView;
    Role accessibilityRole() const override { return Role::Row; }
    bool accessibilitySelected() const override { return true; }
    std::shared_ptr<views::Menu> menuForEvent(const views::MouseEvent&) override { return menu; }
    std::shared_ptr<views::Menu> menu = std::make_shared<views::Menu>();
};

std::string described(QAccessibleInterface* interface, int indent = 0) {
    std::string text = std::string(static_cast<std::size_t>(indent), ' ') +
                       std::to_string(interface->role()) + " " +
                       interface->text(QAccessible::Name).toStdString() + "\n";
    for (int i = 0; i < interface->childCount(); ++i) {
        EXPECT_EQ(interface->indexOfChild(interface->child(i)), i);
        EXPECT_EQ(interface->child(i)->parent(), interface);
        text += described(interface->child(i), indent + 1);
    }
    return text;
}

}  // namespace

TEST_F(DesktopTest, ShowsMenus) {
    const auto row = add<RowView>({0, 0, 100, 50});
    show();
    std::string log;
    const auto note = [&](views::MenuItem& item) { log += item.title() + "; "; };
    row->menu->addItem("Cut & paste", note).setOn(true);
    row->menu->addItem("Without action");
    row->menu->addSeparator();
    const auto submenu = std::make_shared<views::Menu>();
    submenu->addItem("Inside", note).setValidation([&] { return log.empty(); });
    row->menu->addItem("More").setSubmenu(submenu);
    QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 10}, host.mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(&host, &event);
    auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    const auto actions = menu->actions();
    ASSERT_EQ(actions.size(), 4);
    EXPECT_EQ(actions[0]->text(), "Cut && paste");
    EXPECT_TRUE(actions[0]->isChecked() && actions[0]->isEnabled());
    EXPECT_FALSE(actions[1]->isEnabled());
    EXPECT_TRUE(actions[2]->isSeparator());
    actions[0]->trigger();
    QApplication::processEvents();
    EXPECT_EQ(log, "Cut & paste; ");
    actions[3]->menu()->actions()[0]->trigger();
    QApplication::processEvents();
    EXPECT_EQ(log, "Cut & paste; ") << "it has become invalid meanwhile";
    menu->close();
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(host.findChildren<QMenu*>().isEmpty());
}

TEST_F(DesktopTest, DoesWhatAnItemIsForWhenItsMenuIsDone) {
    auto* doomed = new HostWidget;
    const auto row = std::make_shared<RowView>(Rect{0, 0, 100, 50});
    doomed->viewWindow().root().addSubview(row);
    doomed->show();
    row->menu->addItem("Close", [&](views::MenuItem&) { delete std::exchange(doomed, nullptr); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 10},
                            doomed->mapToGlobal(QPoint(10, 10)));
    QApplication::sendEvent(doomed, &event);
    auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    menu->setActiveAction(menu->actions()[0]);
    QKeyEvent choose(QEvent::KeyPress, Qt::Key_Return, {});
    QApplication::sendEvent(menu, &choose);
    EXPECT_TRUE(doomed);
    QApplication::processEvents();
    EXPECT_FALSE(doomed);
}

TEST_F(DesktopTest, ShowsAlertsOneAfterTheOther) {
    show();
    std::vector<int> answers;
    const auto note = [&](int response) { answers.push_back(response); };
    const auto box = [&] {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return host.findChild<QMessageBox*>();
    };
    host.viewWindow().beginSheet({"Delete <it>?", "<b>Really</b>", {"Cut & delete", "Keep"}}, note);
    host.viewWindow().beginSheet({"Done", "", {"OK"}}, note);
    host.viewWindow().beginSheet({"Again?", "", {"Yes", "No"}}, note);
    ASSERT_TRUE(box());
    EXPECT_EQ(box()->text(), "Delete <it>?");
    for (const auto* label : box()->findChildren<QLabel*>())
        EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
    EXPECT_EQ(box()->informativeText(), "<b>Really</b>");
    EXPECT_EQ(box()->defaultButton()->text(), "Cut && delete");
    EXPECT_EQ(box()->windowModality(), Qt::WindowModal);
    box()->defaultButton()->click();
    ASSERT_TRUE(box());
    EXPECT_EQ(box()->text(), "Done");
    for (int i = 0; i < 2; ++i) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
        QApplication::sendEvent(box(), &escape);
    }
    EXPECT_FALSE(box());
    EXPECT_EQ(answers, (std::vector{1000, 1000, 1001}));
}

TEST_F(DesktopTest, LetsAnAnswerCloseTheWindow) {
    auto* doomed = new HostWidget;
    doomed->show();
    doomed->viewWindow().beginSheet({"Close?", "", {"Close"}},
                                    [&](int) { delete std::exchange(doomed, nullptr); });
    doomed->findChild<QMessageBox*>()->defaultButton()->click();
    EXPECT_TRUE(doomed) << "not while the box is at work";
    QApplication::processEvents();
    EXPECT_FALSE(doomed);
}

TEST_F(DesktopTest, ShowsViewsToAssistiveTechnology) {
    const auto plain = add({0, 0, 200, 90});
    for (int i = 0; i < 2; ++i) {
        const auto row = std::make_shared<RowView>(Rect{0, i * 40.0, 200, 40});
        plain->addSubview(row);
        const auto field = std::make_shared<views::TextField>(Rect{0, 0, 100, 20});
        field->setStringValue(i ? "milk" : "bread");
        row->addSubview(field);
    }
    const auto button = add<views::Button>({0, 90, 100, 10});
    button->setTitle("Add");
    int pressed = 0;
    button->setAction([&](views::Control&) { ++pressed; });
    show();
    auto* interface = QAccessible::queryAccessibleInterface(&host);
    ASSERT_TRUE(interface);
    const auto role = [](QAccessible::Role one) { return std::to_string(one); };
    const std::string row = " " + role(QAccessible::ListItem) + " ";
    const std::string field = "  " + role(QAccessible::EditableText) + " \n";
    EXPECT_EQ(described(interface), role(QAccessible::Grouping) + " \n" + row + "bread\n" + field +
                                        row + "milk\n" + field + " " + role(QAccessible::Button) +
                                        " Add\n");
    auto* second = interface->child(1);
    EXPECT_TRUE(second->state().selected);
    EXPECT_EQ(second->rect(), QRect(host.mapToGlobal(QPoint(0, 40)), QSize(200, 40)));
    const auto at = host.mapToGlobal(QPoint(10, 50));
    EXPECT_EQ(interface->childAt(at.x(), at.y()), second->child(0));
    EXPECT_EQ(second->child(0)->text(QAccessible::Value), "milk");
    auto* actions = interface->child(2)->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(pressed, 1);
    const auto above = std::make_shared<RowView>(Rect{0, 0, 50, 20});
    plain->subviews()[1]->addSubview(above);
    EXPECT_EQ(second->childAt(at.x(), at.y())->role(), QAccessible::ListItem) << "the topmost";
    above->removeFromSuperview();
    const auto modal = std::make_shared<NotingView>(Rect());
    host.viewWindow().modalViews().begin(modal);
    EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(pressed, 1) << "what lies below a sheet";
    host.viewWindow().modalViews().end(*modal);
    plain->subviews()[1]->removeFromSuperview();
    EXPECT_FALSE(second->isValid());
    EXPECT_EQ(second->childCount(), 0);
    EXPECT_EQ(interface->childCount(), 2);
}
