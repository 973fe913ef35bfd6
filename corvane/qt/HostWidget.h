// The widget that shows a window of views: it paints them, brings them the user's events, and does
// what a window asks of its host.
#pragma once

#include "corvane/qt/ClickCounter.h"
#include "corvane/qt/DropTarget.h"
#include "corvane/qt/LiveEditor.h"
#include "corvane/qt/Scrollers.h"
#include "corvane/qt/ViewAccessibility.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <QWidget>

class QDrag;
class QHelpEvent;

namespace corvane::qt {

/// A program has as many as it likes, also side by side in one window of the desktop; each is a
/// window of its own to its views, and active while it has the focus. The main run loop in force
/// must be Qt's (QtRunLoop), and so must the text measurer. The main thread.
class HostWidget : public QWidget, public views::WindowHost {
  public:
    explicit HostWidget(QWidget* parent = nullptr);
    ~HostWidget() override;

    views::Window& viewWindow() { return window_; }
    void setContentView(const std::shared_ptr<views::View>& view) { window_.setContentView(view); }
    platform::Appearance appearance() const { return appearance_; }
    /// The text widget that edits the field in focus; null for none.
    QWidget* liveEditor() const { return editor_.widget(); }

    QSize sizeHint() const override { return {480, 320}; }

  protected:
    /// Lets the desktop carry a drag, until it ends. Answers what came of it.
    virtual Qt::DropAction runDrag(QDrag& drag, Qt::DropActions possible);

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override { drops_.enter(*event); }
    void dragMoveEvent(QDragMoveEvent* event) override { drops_.move(*event); }
    void dragLeaveEvent(QDragLeaveEvent*) override { drops_.leave(); }
    void dropEvent(QDropEvent* event) override { drops_.drop(*event); }

  private:
    void windowNeedsDisplay(const platform::Rect& rect) override;
    void firstResponderDidChange(const std::shared_ptr<views::View>& view) override;
    void editingDidBegin(views::TextField& field) override;
    void editingWillEnd(views::TextField& field) override;
    void editingDidEnd(views::TextField& field) override;
    void editedTextDidChange(views::TextField& field) override;
    void showSheet(const views::Alert& alert) override;
    void showMenu(const std::shared_ptr<views::Menu>& menu, platform::Point inWindow) override;
    void beginDragging(const std::shared_ptr<views::DragSession>& session) override;
    void accessibilityDidChange(views::View& view, views::AccessibilityChange change) override {
        tellChangeOf(*this, view, change);
    }
    void beep() override;

    void pressed(QMouseEvent& event, bool isDoubleClick);
    bool keyDown(const views::KeyEvent& event);
    void takeFocus(Qt::FocusReason reason);
    void passFocusOn(bool forward);
    void updateActive();
    void updateAppearance();
    void showCursorAt(views::Point point);
    bool showToolTip(const QHelpEvent& event);

    views::Window window_;
    LiveEditor editor_;
    DropTarget drops_{window_};
    Scrollers scrollers_{window_};
    ClickCounter clicks_;
    platform::Appearance appearance_ = platform::Appearance::Light;
    QRect awaitsPaint_;
    std::shared_ptr<views::DragSession> awaitsDrag_;  ///< which has not begun yet
    bool editorMoves_ = false;                        ///< its place is about to be looked at
    bool editorHasPointer_ = false;  ///< from a press that began its editing until the release
    bool keysAreTried_ = false;      ///< a key that nobody wants goes elsewhere, without a sound
};

}  // namespace corvane::qt
