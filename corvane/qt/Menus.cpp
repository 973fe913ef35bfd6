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

/// A title with an ampersand in it would lose it to a mnemonic.
QString titleOf(const std::string& title) {
    return qString(title).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// What stands behind a tabulator goes to the other side, as the keys of a command do.
QString textOf(const MenuItem& item) {
    const QString title = titleOf(item.title());
    return item.detail().empty() ? title : title + QLatin1Char('\t') + titleOf(item.detail());
}

QIcon iconOf(const platform::ImagePtr& image, const QWidget& widget) {
    const QImage pixels =
        renderedImage(image, widget.devicePixelRatioF(), appearanceOf(widget.palette()));
    return pixels.isNull() ? QIcon() : QIcon(QPixmap::fromImage(pixels));
}

void addItem(QMenu& qMenu, const std::shared_ptr<MenuItem>& item) {
    if (item->isSeparator()) {
        qMenu.addSeparator();
        return;
    }
    QAction* action = nullptr;
    if (item->submenu()) {
        QMenu* submenu = qMenuOf(item->submenu(), qMenu);
        submenu->setTitle(titleOf(item->title()));
        action = qMenu.addMenu(submenu);
        action->setEnabled(item->isEnabled());
    } else {
        action = qMenu.addAction(textOf(*item));
        action->setEnabled(item->isValid());
        QObject::connect(action, &QAction::triggered, action, [item] {
            const auto keepAlive = item;  // what it does may take the menu away
            keepAlive->perform();
        });
    }
    action->setCheckable(item->isOn());
    action->setChecked(item->isOn());
    action->setIcon(iconOf(item->image(), qMenu));
}

}  // namespace

QMenu* qMenuOf(const std::shared_ptr<Menu>& menu, QWidget& parent) {
    auto* qMenu = new QMenu(titleOf(menu->title()), &parent);
    qMenu->setLayoutDirection(layoutDirection());
    for (const auto& item : menu->items())
        addItem(*qMenu, item);
    return qMenu;
}

QMenu* showMenu(const std::shared_ptr<Menu>& menu, QWidget& parent, QPoint positionOnScreen) {
    if (!menu || menu->items().empty()) return nullptr;
    QMenu* qMenu = qMenuOf(menu, parent);
    // After the chosen item has done its work, which comes later than the menu's going away.
    QObject::connect(qMenu, &QMenu::aboutToHide, qMenu, &QObject::deleteLater,
                     Qt::QueuedConnection);
    qMenu->popup(positionOnScreen);
    return qMenu;
}

}  // namespace corvane::qt
