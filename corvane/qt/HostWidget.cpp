#include "corvane/qt/HostWidget.h"

#include "corvane/qt/Appearance.h"
#include "corvane/qt/Colors.h"
#include "corvane/qt/DragOut.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/Keys.h"
#include "corvane/qt/Menus.h"
#include "corvane/qt/QtCanvas.h"
#include "corvane/qt/Scrolling.h"
#include "corvane/qt/Sheets.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QStyleHints>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

namespace corvane::qt {

using views::Point;

HostWidget::HostWidget(QWidget* parent)
    : QWidget(parent),
      editor_(*this, window_,
              {[this] { updateActive(); },
               [this](const views::KeyEvent& key) { return keyDown(key); }}) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setAcceptDrops(true);
    // A press gives the focus to a view, which may want it in the live editor.
    setFocusPolicy(Qt::TabFocus);
    const QStyleHints& hints = *QGuiApplication::styleHints();
    clicks_.setInterval(hints.mouseDoubleClickInterval());
    clicks_.setDistance(hints.mouseDoubleClickDistance());
    views::setDoubleClickInterval(hints.mouseDoubleClickInterval() / 1000.0);
    installViewAccessibility();
    window_.setHost(this);
    window_.setActive(false);
    updateAppearance();
}

HostWidget::~HostWidget() {
    window_.setHost(nullptr);
}

// Painting.

void HostWidget::windowNeedsDisplay(const platform::Rect& rect) {
    const QRect area = qRectAround(rect).intersected(this->rect());
    // Thousands of views may ask at once for what is asked for already.
    if (!area.isEmpty() && !awaitsPaint_.contains(area)) {
        awaitsPaint_ |= area;
        // With what lies in between, which counts as asked for from then on.
        update(awaitsPaint_);
    }
    if (!editor_.isEditing() || editorMoves_) return;
    // Whatever moved the field made it draw.
    editorMoves_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            editorMoves_ = false;
            editor_.place();
        },
        Qt::QueuedConnection);
}

void HostWidget::paintEvent(QPaintEvent* event) {
    awaitsPaint_ = {};
    window_.takeDirtyRect();
    QPainter painter(this);
    painter.fillRect(event->rect(), qColor(views::theme().background, appearance_));
    QtCanvas canvas(painter, appearance_);
    const auto dirty = rectOf(event->rect());
    window_.draw(canvas, dirty);
    scrollers_.draw(canvas, dirty);
}

void HostWidget::resizeEvent(QResizeEvent*) {
    window_.setSize({static_cast<double>(width()), static_cast<double>(height())});
}

void HostWidget::updateAppearance() {
    appearance_ = appearanceOf(palette());
    editor_.takeStyle(appearance_);
    update();
}

void HostWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        updateAppearance();
    if (event->type() == QEvent::FontChange) window_.textSizesDidChange();
    if (event->type() == QEvent::ActivationChange) updateActive();
    QWidget::changeEvent(event);
}

// The pointer.

void HostWidget::mousePressEvent(QMouseEvent* event) {
    pressed(*event, false);
}

void HostWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    pressed(*event, true);
}

void HostWidget::pressed(QMouseEvent& event, bool isDoubleClick) {
    const Point point = pointOf(event.position());
    const int count =
        clicks_.pressed(isDoubleClick, event.button(), event.position(), event.timestamp());
    const bool onBar = event.button() == Qt::LeftButton && scrollers_.mouseDown(point);
    const QPointer<HostWidget> alive(this);
    if (!onBar) takeFocus(Qt::MouseFocusReason);
    if (!alive || onBar || event.button() != Qt::LeftButton) return;
    const auto before = window_.fieldEditor().client();
    window_.mouseDown(views::MouseEvent(point, count, modifierFlags(event.modifiers())));
    if (!alive) return;
    const auto client = window_.fieldEditor().client();
    editorHasPointer_ = client && client != before;
    // So that the cursor stands where the user pointed.
    if (editorHasPointer_) editor_.forward(event);
}

void HostWidget::mouseMoveEvent(QMouseEvent* event) {
    const Point point = pointOf(event->position());
    if (!event->buttons().testFlag(Qt::LeftButton)) return showCursorAt(point);
    if (scrollers_.mouseDragged(point)) return;
    if (editorHasPointer_) return editor_.forward(*event);
    window_.mouseDragged(
        views::MouseEvent(point, clicks_.count(), modifierFlags(event->modifiers())));
}

void HostWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || scrollers_.mouseUp()) return;
    // A drag that began now would hang on the pointer until the next click.
    const auto dragged = std::exchange(awaitsDrag_, nullptr);
    if (std::exchange(editorHasPointer_, false)) editor_.forward(*event);
    window_.mouseUp(views::MouseEvent(pointOf(event->position()), clicks_.count(),
                                      modifierFlags(event->modifiers())));
    if (dragged) dragged->end(views::kDragOperationNone);
}

void HostWidget::leaveEvent(QEvent*) {
    scrollers_.mouseMoved({-1, -1});
}

void HostWidget::wheelEvent(QWheelEvent* event) {
    event->setAccepted(scrollAt(window_, pointOf(event->position()), scrollDistance(*event)));
}

void HostWidget::contextMenuEvent(QContextMenuEvent* event) {
    Point point = pointOf(event->pos());
    const auto first = window_.firstResponder();
    if (event->reason() == QContextMenuEvent::Keyboard && first) {
        const auto visible = first->convertToWindow(first->visibleRect());
        point = {visible.x + visible.width / 2, visible.y + visible.height / 2};
    }
    const views::MouseEvent mouse(point, 1, modifierFlags(event->modifiers()));
    event->setAccepted(window_.contextMenu(mouse) != nullptr);
}

void HostWidget::showCursorAt(Point point) {
    if (scrollers_.mouseMoved(point)) return unsetCursor();
    const auto view = window_.viewAt(point);
    const auto wanted =
        view ? view->cursorAt(view->convertFromWindow(point)) : views::Cursor::Arrow;
    switch (wanted) {
        case views::Cursor::Text:
            return setCursor(Qt::IBeamCursor);
        case views::Cursor::PointingHand:
            return setCursor(Qt::PointingHandCursor);
        case views::Cursor::ResizeLeftRight:
            return setCursor(Qt::SplitHCursor);
        case views::Cursor::ResizeUpDown:
            return setCursor(Qt::SplitVCursor);
        default:
            return unsetCursor();
    }
}

bool HostWidget::showToolTip(const QHelpEvent& event) {
    const auto hit = window_.viewAt(pointOf(event.pos()));
    for (const views::View* view = hit.get(); view; view = view->superview()) {
        const std::string text = view->toolTip();
        if (text.empty()) continue;
        const QRect area = qRectAround(view->convertToWindow(view->visibleRect()));
        // As a paragraph, which is never taken for a markup of its own, and is broken where long.
        QToolTip::showText(event.globalPos(),
                           Qt::convertFromPlainText(qString(text), Qt::WhiteSpaceNormal), this,
                           area);
        return true;
    }
    QToolTip::hideText();
    return false;
}

// The keyboard.

bool HostWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        event->setAccepted(showToolTip(static_cast<QHelpEvent&>(*event)));
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        // Tab too: the desktop would move the focus with it before anybody is asked.
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

void HostWidget::keyPressEvent(QKeyEvent* event) {
    const auto key = keyEventOf(*event);
    // Escape comes from the editor only after that has offered it in vain.
    const bool wasOffered =
        editor_.isEditing() && views::commandForKey(key) == views::Command::CancelOperation;
    if (key.characters().empty() || wasOffered) return event->ignore();
    // What nobody here wants goes on to the widgets around, such as Escape to a dialog.
    event->setAccepted(keyDown(key));
}

bool HostWidget::keyDown(const views::KeyEvent& event) {
    const auto command = views::commandForKey(event);
    const bool forward = command == views::Command::InsertTab;
    const bool moves = forward || command == views::Command::InsertBacktab;
    const QPointer<HostWidget> alive(this);
    // A grid or a row of choices has a use for them; whatever has none is scrolled.
    const bool scrolls = isScrollKey(event.firstCharacter());
    const bool endsDialogs =
        command == views::Command::CancelOperation || command == views::Command::InsertNewline;
    keysAreTried_ = moves || scrolls || endsDialogs;
    const bool done = window_.keyDown(event);
    if (!alive) return true;
    keysAreTried_ = false;
    if (done) return true;
    if (moves) passFocusOn(forward);
    if (scrolls) scrollByKey(window_, event.firstCharacter());
    return moves || scrolls;
}

void HostWidget::beep() {
    if (!keysAreTried_) QApplication::beep();
}

// Focus.

void HostWidget::focusInEvent(QFocusEvent* event) {
    updateActive();
    // Who types must see it.
    if (editor_.isEditing()) return editor_.takeFocus();
    const bool forward = event->reason() == Qt::TabFocusReason;
    const bool backward = event->reason() == Qt::BacktabFocusReason;
    if ((!forward && !backward) || window_.firstResponder()) return;
    keysAreTried_ = true;
    window_.keyDown(views::KeyEvent(forward ? views::kKeyTab : views::kKeyBacktab));
    keysAreTried_ = false;
}

void HostWidget::focusOutEvent(QFocusEvent*) {
    updateActive();
}

void HostWidget::takeFocus(Qt::FocusReason reason) {
    const bool wantsIt = focusPolicy() != Qt::NoFocus && !editor_.isLosingFocus();
    if (wantsIt && !hasFocus() && !editor_.hasFocus()) setFocus(reason);
}

void HostWidget::passFocusOn(bool forward) {
    // Seen from the live editor, this widget itself would be the nearest one.
    const QPointer<HostWidget> alive(this);
    const auto policy = focusPolicy();
    setFocusPolicy(Qt::NoFocus);
    focusNextPrevChild(forward);
    if (alive) setFocusPolicy(policy);
}

void HostWidget::updateActive() {
    window_.setActive(isActiveWindow() && (hasFocus() || editor_.hasFocus()));
}

void HostWidget::firstResponderDidChange(const std::shared_ptr<views::View>& view) {
    // The live editor of a field takes the focus by itself.
    if (view && !dynamic_cast<views::TextField*>(view.get())) takeFocus(Qt::OtherFocusReason);
    if (view) tellFocusOf(*this, *view);
}

void HostWidget::editingDidBegin(views::TextField& field) {
    editor_.begin(field, appearance_);
}

void HostWidget::editingWillEnd(views::TextField&) {
    editor_.finishComposing();
}

void HostWidget::editingDidEnd(views::TextField&) {
    editor_.end();
}

void HostWidget::editedTextDidChange(views::TextField&) {
    editor_.takeText();
}

// What else a window asks for.

void HostWidget::showSheet(const views::Alert& alert) {
    const QPointer<HostWidget> alive(this);
    qt::showSheet(alert, *this, [alive](int response) {
        if (alive) alive->window_.endSheet(response);
    });
}

void HostWidget::showMenu(const std::shared_ptr<views::Menu>& menu, platform::Point inWindow) {
    auto* shown = qt::showMenu(menu, *this, mapToGlobal(qPoint(inWindow).toPoint()));
    if (shown)
        connect(
            shown, &QMenu::triggered, this, [this] { window_.eventFollowers().eventHappened(); },
            Qt::QueuedConnection);  // after the item
}

void HostWidget::beginDragging(const std::shared_ptr<views::DragSession>& session) {
    editorHasPointer_ = false;
    if (const auto before = std::exchange(awaitsDrag_, session))
        before->end(views::kDragOperationNone);
    // Not from within the view that began it: the drag runs an event loop of its own.
    QMetaObject::invokeMethod(
        this,
        [this, session] {
            if (awaitsDrag_ != session) return;
            awaitsDrag_ = nullptr;
            carryOut(session, *this, appearance_, [this](QDrag& drag, Qt::DropActions possible) {
                return runDrag(drag, possible);
            });
        },
        Qt::QueuedConnection);
}

Qt::DropAction HostWidget::runDrag(QDrag& drag, Qt::DropActions possible) {
    return drag.exec(possible, Qt::MoveAction);
}

}  // namespace corvane::qt
