// Brings the drags of the desktop to the views of a window. One for a host; the main thread.
#pragma once

#include "corvane/views/Drag.h"

#include <QObject>
#include <QTimer>
#include <optional>

class QDragEnterEvent;
class QDragMoveEvent;
class QDropEvent;
class QMimeData;

namespace corvane::views {
class Window;
}

namespace corvane::qt {

/// Near the upper or lower edge of what scrolls, it scrolls for as long as the drag stays there.
class DropTarget {
  public:
    /// The window outlives it.
    explicit DropTarget(views::Window& window);

    void enter(QDragEnterEvent& event);
    void move(QDragMoveEvent& event);
    void leave();
    void drop(QDropEvent& event);

  private:
    void begin(const QMimeData& data, QPointF position);
    void scroll();

    views::Window& window_;
    std::optional<views::DraggingInfo> info_;
    QTimer scrollTimer_;
};

}  // namespace corvane::qt
