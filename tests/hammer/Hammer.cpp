#include "tests/hammer/Hammer.h"

#include "corvane/models/CVIndexPath.h"
#include "corvane/qt/PasteboardMime.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFont>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QStyle>
#include <QThread>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace corvane::hammer {

namespace {

constexpr int kMostChildren = 200;

constexpr std::array kKeys{Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,        Qt::Key_Down,
                           Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Return,    Qt::Key_Enter,
                           Qt::Key_Escape, Qt::Key_Space,   Qt::Key_Backspace, Qt::Key_Delete,
                           Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp,    Qt::Key_PageDown,
                           Qt::Key_F2,     Qt::Key_F5,      Qt::Key_Menu,      Qt::Key_A,
                           Qt::Key_C,      Qt::Key_F,       Qt::Key_N,         Qt::Key_V,
                           Qt::Key_X,      Qt::Key_Z,       Qt::Key_Question,  Qt::Key_Period};

const std::array<QString, 22> kTexts{
    "today",        "tomorrow", "morgen", "31.12.", "9:30",         "25:99",
    "+3",           "mo",       "0",      "-1",     "999999999999", "a",
    "Milk & bread", "Жук",      "حليب",   "牛乳",   "e\u0301",      "👩‍👩‍👧",
    "\u202Eright",  "  ",       "%s%n\\", "<b>"};

template <class Event>
void send(QWidget* widget, Event&& event) {
    if (widget) QApplication::sendEvent(widget, &event);
}

/// The least views that assistive technology sees, with a place on the screen.
void collectLeaves(QAccessibleInterface* interface, std::vector<QAccessibleInterface*>& leaves) {
    if (!interface || !interface->isValid() || leaves.size() > 2000) return;
    const int count = interface->childCount();
    for (int i = 0; i < std::min(count, kMostChildren); ++i)
        collectLeaves(interface->child(i), leaves);
    if (count == 0 && !interface->rect().isEmpty()) leaves.push_back(interface);
}

}  // namespace

Hammer::Hammer(std::uint64_t seed) : random_(seed) {
    addAction("click", 22, [this] { click(); });
    addAction("drag", 10, [this] { drag(); });
    addAction("hover", 4, [this] { hover(); });
    addAction("menu", 4, [this] { askForMenu(); });
    addAction("wheel", 6, [this] { wheel(); });
    addAction("keys", 28, [this] { pressKeys(); });
    addAction("typing", 10, [this] { type(); });
    addAction("composed text", 1, [this] { composeText(); });
    addAction("drop", 3, [this] { dropSomething(); });
    addAction("resize", 3, [this] { resize(); });
    addAction("palette", 1, [this] { changePalette(); });
    addAction("focus", 2, [this] { changeFocus(); });
    addAction("accessibility", 2, [this] { useAccessibility(); });
    addAction("paint", 1, [this] { paint(); });
    addAction("time", 3, [this] { letTimePass(); });
}

void Hammer::addAction(std::string name, int weight, std::function<void()> act) {
    actions_.push_back({std::move(name), weight, std::move(act)});
    weights_ += weight;
}

std::uint64_t Hammer::below(std::uint64_t count) {
    // Not by a distribution of the library, which may do otherwise elsewhere.
    return count == 0 ? 0 : random_() % count;
}

void Hammer::strike() {
    auto rest = static_cast<int>(below(static_cast<std::uint64_t>(weights_)));
    for (const Action& action : actions_) {
        rest -= action.weight;
        if (rest >= 0) continue;
        present_ = action.name.c_str();
        ++counts_[action.name];
        action.act();
        break;
    }
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Where.

/// Who gets input: a menu before a question, that before the windows.
QWidget* Hammer::root() {
    if (auto* popup = QApplication::activePopupWidget()) return popup;
    if (auto* modal = QApplication::activeModalWidget()) return modal;
    QWidgetList shown;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible()) shown.append(widget);
    if (shown.isEmpty()) return nullptr;
    return shown[static_cast<qsizetype>(below(static_cast<std::uint64_t>(shown.size())))];
}

Hammer::Target Hammer::targetIn(QWidget& widget) {
    QPointF point(static_cast<double>(below(static_cast<std::uint64_t>(widget.width()) + 8)) - 4,
                  static_cast<double>(below(static_cast<std::uint64_t>(widget.height()) + 8)) - 4);
    // Most of a window is nothing; often somebody aims.
    if (chance(50)) {
        std::vector<QAccessibleInterface*> leaves;
        collectLeaves(QAccessible::queryAccessibleInterface(&widget), leaves);
        if (!leaves.empty()) {
            const QRect rect = leaves[below(leaves.size())]->rect();
            point = widget.mapFromGlobal(QPointF(rect.center()));
        }
    }
    QWidget* child = widget.childAt(point.toPoint());
    if (!child) return {&widget, point};
    return {child, child->mapFrom(&widget, point)};
}

Hammer::Target Hammer::target() {
    QWidget* widget = root();
    return widget ? targetIn(*widget) : Target();
}

Qt::KeyboardModifiers Hammer::modifiers() {
    if (chance(75)) return {};
    Qt::KeyboardModifiers result;
    for (const auto each : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        if (chance(40)) result |= each;
    return result;
}

// The pointer.

bool Hammer::sendMouse(const Target& target, int type, Qt::MouseButton button,
                       Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
    if (!target.widget) return false;
    send(target.widget,
         QMouseEvent(static_cast<QEvent::Type>(type), target.point,
                     target.widget->mapToGlobal(target.point), button, held, modifiers));
    return target.widget != nullptr;
}

void Hammer::click() {
    const Target at = target();
    const auto keys = modifiers();
    const auto button = chance(92) ? Qt::LeftButton : Qt::RightButton;
    if (!sendMouse(at, QEvent::MouseButtonPress, button, button, keys)) return;
    sendMouse(at, QEvent::MouseButtonRelease, button, Qt::NoButton, keys);
    if (!chance(15) || button != Qt::LeftButton) return;
    sendMouse(at, QEvent::MouseButtonDblClick, button, button, keys);
    sendMouse(at, QEvent::MouseButtonRelease, button, Qt::NoButton, keys);
}

void Hammer::drag() {
    Target at = target();
    const auto keys = modifiers();
    if (!sendMouse(at, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, keys)) return;
    const bool isShort = chance(50);
    for (auto steps = 1 + below(8); steps > 0; --steps) {
        const auto reach = isShort ? 30 : 600;
        at.point += QPointF(static_cast<double>(below(reach)) - reach / 2.0,
                            static_cast<double>(below(reach)) - reach / 2.0);
        sendMouse(at, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, keys);
        if (chance(30)) QApplication::processEvents();
    }
    // Now and then the release goes elsewhere.
    if (!chance(97)) return;
    sendMouse(at, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, keys);
}

void Hammer::hover() {
    const Target at = target();
    sendMouse(at, QEvent::MouseMove, Qt::NoButton, Qt::NoButton, {});
    if (!at.widget) return;
    const QPoint global = at.widget->mapToGlobal(at.point.toPoint());
    if (chance(50)) send(at.widget, QHelpEvent(QEvent::ToolTip, at.point.toPoint(), global));
    if (chance(10)) send(at.widget, QEvent(QEvent::Leave));
}

void Hammer::askForMenu() {
    const Target at = target();
    if (!at.widget) return;
    const auto reason = chance(60) ? QContextMenuEvent::Mouse : QContextMenuEvent::Keyboard;
    send(at.widget,
         QContextMenuEvent(reason, at.point.toPoint(), at.widget->mapToGlobal(at.point.toPoint())));
}

void Hammer::wheel() {
    const Target at = target();
    if (!at.widget) return;
    const QPoint pixels(static_cast<int>(below(41)) - 20, static_cast<int>(below(2001)) - 1000);
    const QPoint angle(0, static_cast<int>(below(7)) * 120 - 360);
    send(at.widget,
         QWheelEvent(at.point, at.widget->mapToGlobal(at.point), chance(50) ? pixels : QPoint(),
                     angle, Qt::NoButton, modifiers(), Qt::NoScrollPhase, false));
}

// The keyboard.

void Hammer::sendKey(int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    const auto receiver = [this]() -> QWidget* {
        if (auto* popup = QApplication::activePopupWidget()) return popup;
        if (auto* focused = QApplication::focusWidget()) return focused;
        return root();
    };
    QKeyEvent shortcut(QEvent::ShortcutOverride, key, modifiers, text);
    send(receiver(), shortcut);
    send(receiver(), QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    send(receiver(), QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
}

void Hammer::pressKeys() {
    const Qt::Key key = kKeys[below(kKeys.size())];
    const auto held = modifiers();
    QString text;
    if (key == Qt::Key_Space) text = " ";
    if (key >= Qt::Key_A && key <= Qt::Key_Z && held == Qt::NoModifier)
        text = QChar(static_cast<char16_t>(u'a' + (key - Qt::Key_A)));
    for (auto times = chance(80) ? 1 : 1 + below(12); times > 0; --times) {
        sendKey(key, text, held);
        if (chance(50)) QApplication::processEvents();
    }
}

void Hammer::type() {
    const QString& text = kTexts[below(kTexts.size())];
    if (chance(20)) {
        QApplication::clipboard()->setText(text);
        return sendKey(Qt::Key_V, {}, Qt::ControlModifier);
    }
    for (const char32_t letter : text.toUcs4())
        sendKey(Qt::Key_unknown, QString::fromUcs4(&letter, 1), {});
}

void Hammer::composeText() {
    const QString& text = kTexts[below(kTexts.size())];
    QInputMethodEvent composing(text, {});
    send(QApplication::focusWidget(), composing);
    QInputMethodEvent done;
    if (chance(70)) done.setCommitString(text);
    send(QApplication::focusWidget(), done);
}

// From other programs.

void Hammer::dropSomething() {
    platform::Pasteboard pasteboard;
    CVIndexPath path(static_cast<std::int64_t>(below(4)) - 1,
                     static_cast<std::int64_t>(below(40)) - 1);
    path.setPasteboardText("dropped");
    if (chance(50)) pasteboard.writeObject(path);
    const std::unique_ptr<QMimeData> data(qt::mimeDataOf(pasteboard));
    if (chance(60)) data->setText(kTexts[below(kTexts.size())]);
    if (chance(30)) data->setUrls({QUrl("https://example.org/a?b=c"), QUrl("file:///tmp/x")});
    Target at = target();
    if (!at.widget) return;
    const Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction;
    send(at.widget, QDragEnterEvent(at.point.toPoint(), possible, data.get(), Qt::LeftButton, {}));
    for (auto moves = below(5); moves > 0; --moves) {
        at.point +=
            QPointF(static_cast<double>(below(101)) - 50, static_cast<double>(below(101)) - 50);
        send(at.widget,
             QDragMoveEvent(at.point.toPoint(), possible, data.get(), Qt::LeftButton, {}));
        if (chance(30)) QApplication::processEvents();
    }
    if (chance(30)) return send(at.widget, QDragLeaveEvent());
    send(at.widget, QDropEvent(at.point, possible, data.get(), Qt::LeftButton, {}));
}

// The desktop.

void Hammer::resize() {
    QWidget* widget = root();
    if (!widget || QApplication::activePopupWidget()) return;
    const bool isTiny = chance(10);
    widget->resize(static_cast<int>(below(isTiny ? 60 : 1600)),
                   static_cast<int>(below(isTiny ? 60 : 1000)));
}

void Hammer::changePalette() {
    QPalette palette = QApplication::style()->standardPalette();
    if (chance(50)) {
        palette.setColor(QPalette::Window, QColor(0x2b, 0x2d, 0x30));
        palette.setColor(QPalette::WindowText, Qt::white);
        palette.setColor(QPalette::Base, Qt::black);
        palette.setColor(QPalette::Text, Qt::white);
    }
    QApplication::setPalette(palette);
    if (!chance(20)) return;
    QFont font = QApplication::font();
    font.setPointSize(6 + static_cast<int>(below(20)));
    QApplication::setFont(font);
}

void Hammer::changeFocus() {
    QWidget* widget = root();
    if (!widget) return;
    if (chance(30) && !widget->isModal()) {
        widget->hide();
        QApplication::processEvents();
        if (widget->parent() == nullptr) widget->show();
        return;
    }
    if (auto* focused = QApplication::focusWidget(); focused && chance(50)) {
        focused->clearFocus();
    } else {
        widget->activateWindow();
        widget->setFocus(Qt::TabFocusReason);
    }
}

void Hammer::useAccessibility() {
    QWidget* widget = root();
    if (!widget) return;
    std::vector<QAccessibleInterface*> leaves;
    collectLeaves(QAccessible::queryAccessibleInterface(widget), leaves);
    for (auto* leaf : leaves) {
        for (const auto kind : {QAccessible::Name, QAccessible::Value, QAccessible::Description})
            leaf->text(kind);
        leaf->state();
        if (leaf->parent()) leaf->parent()->indexOfChild(leaf);
    }
    if (leaves.empty()) return;
    auto* chosen = leaves[below(leaves.size())];
    auto* actions = chosen->actionInterface();
    if (!actions || actions->actionNames().isEmpty()) return;
    const QStringList names = actions->actionNames();
    actions->doAction(
        names[static_cast<qsizetype>(below(static_cast<std::uint64_t>(names.size())))]);
}

void Hammer::paint() {
    if (QWidget* widget = root()) widget->grab();
}

void Hammer::letTimePass() {
    QElapsedTimer timer;
    timer.start();
    const auto wanted = static_cast<qint64>(below(chance(10) ? 500 : 30));
    while (timer.elapsed() < wanted) {
        QApplication::processEvents();
        QThread::msleep(1);
    }
}

}  // namespace corvane::hammer
