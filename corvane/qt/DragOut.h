// Carries drags out that begin in a view of this process. The main thread.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/Drag.h"

#include <QPixmap>
#include <functional>
#include <memory>

class QDrag;
class QWidget;

namespace corvane::qt {

/// Those that the desktop can carry.
Qt::DropActions actionsOf(views::DragOperation operations);
views::DragOperation operationOf(Qt::DropAction action);
/// The nearest one to what a view would do, of those that the source allows.
Qt::DropAction actionFor(views::DragOperation operation, Qt::DropActions possible);

/// The drag that is under way from this process; null for none. Drags of the desktop do not tell
/// which view they came from.
const std::shared_ptr<views::DragSession>& currentDragSession();
/// Told by the window of this process in which the drag was dropped, and taken.
void dropWasTaken(views::DragOperation operation);

/// The view as it is drawn, a little transparent, at most as large as is handy below the pointer.
QPixmap pictureOf(views::View& view, double scale, platform::Appearance appearance);

using RunDrag = std::function<Qt::DropAction(QDrag&, Qt::DropActions)>;

/// Returns when the drag has ended, which it tells the session then; other events go on meanwhile.
/// `run` lets the desktop carry it, and answers what it did.
void carryOut(const std::shared_ptr<views::DragSession>& session, QWidget& source,
              platform::Appearance appearance, const RunDrag& run);

}  // namespace corvane::qt
