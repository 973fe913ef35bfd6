// Shows menus of views as menus of the desktop. Functions without state; the main thread.
#pragma once

#include "corvane/views/Menu.h"

#include <QPoint>
#include <memory>

class QMenu;
class QWidget;

namespace corvane::qt {

/// Shares the items, of which each is asked now whether it is valid. The menu belongs to the
/// parent. What is chosen is done by the event loop, soon after the menu is done with it, and not
/// once the parent was destroyed.
QMenu* qMenuOf(const std::shared_ptr<views::Menu>& menu, QWidget& parent);

/// Returns at once. The menu goes away by itself. One without items is not shown, and null.
QMenu* showMenu(const std::shared_ptr<views::Menu>& menu, QWidget& parent, QPoint positionOnScreen);

}  // namespace corvane::qt
