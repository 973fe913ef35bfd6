#include "corvane/qt/Menus.h"

#include "corvane/qt/Appearance.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/QtImage.h"

#include <QIcon>
#include <QMenu>
#include <QPixmap>

namespace corvane::qt {

using views::Menu;
using views::MenuItem;

namespace {

/// What stands behind a tabulator goes to the other side, as the keys of a command do.
QString textOf(const MenuItem& item) {
    const QString title = titleWithoutMnemonic(item.title());
    return item.detail().empty() ? title
                                 : title + QLatin1Char('\t') + titleWithoutMnemonic(item.detail());
}

QIcon iconOf(const platform::ImagePtr& image, const QWidget& widget) {
    const QImage pixels =
        renderedImage(image, widget.devicePixelRatioF(), appearanceOf(widget.palette()));
    return pixels.isNull() ? QIcon() : QIcon(QPixmap::fromImage(pixels));
}

QMenu* filled(const Menu& menu, QWidget& parent, QWidget& owner);

void addItem(QMenu& qMenu, const std::shared_ptr<MenuItem>& item, QWidget& owner) {
    if (item->isSeparator()) {
        qMenu.addSeparator();
        return;
    }
    QAction* action = nullptr;
    if (item->submenu()) {
        QMenu* submenu = filled(*item->submenu(), qMenu, owner);
        submenu->setTitle(titleWithoutMnemonic(item->title()));
        action = qMenu.addMenu(submenu);
        action->setEnabled(item->isEnabled());
    } else {
        action = qMenu.addAction(textOf(*item));
        action->setEnabled(item->isValid());
        // When the menu is done with the click: what the item does may run an event loop, or take
        // away the owner and the menu with it, which Qt 6.4 does not outlive.
        QObject::connect(
            action, &QAction::triggered, &owner, [item] { item->perform(); }, Qt::QueuedConnection);
    }
    action->setCheckable(item->isOn());
    action->setChecked(item->isOn());
    action->setIcon(iconOf(item->image(), qMenu));
}

QMenu* filled(const Menu& menu, QWidget& parent, QWidget& owner) {
    auto* qMenu = new QMenu(titleWithoutMnemonic(menu.title()), &parent);
    qMenu->setLayoutDirection(layoutDirection());
    for (const auto& item : menu.items())
        addItem(*qMenu, item, owner);
    return qMenu;
}

}  // namespace

QMenu* qMenuOf(const std::shared_ptr<Menu>& menu, QWidget& parent) {
    return filled(*menu, parent, parent);
}

QMenu* showMenu(const std::shared_ptr<Menu>& menu, QWidget& parent, QPoint positionOnScreen) {
    if (!menu || menu->items().empty()) return nullptr;
    QMenu* qMenu = qMenuOf(menu, parent);
    // After the chosen item was told, which comes later than the menu's going away.
    QObject::connect(qMenu, &QMenu::aboutToHide, qMenu, &QObject::deleteLater,
                     Qt::QueuedConnection);
    qMenu->popup(positionOnScreen);
    return qMenu;
}

}  // namespace corvane::qt
