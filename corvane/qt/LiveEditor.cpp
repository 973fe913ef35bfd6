#include "corvane/qt/LiveEditor.h"

#include "corvane/qt/Geometry.h"
#include "corvane/qt/Keys.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace corvane::qt {

using views::Command;
using views::TextField;

namespace {

/// The field editor counts bytes.
std::size_t bytesBefore(const QString& text, int position) {
    return static_cast<std::size_t>(QStringView(text).left(position).toUtf8().size());
}

int unitsBefore(const std::string& text, std::size_t position) {
    return static_cast<int>(qString(std::string_view(text).substr(0, position)).size());
}

}  // namespace

LiveEditor::LiveEditor(QWidget& host, views::Window& window, Calls calls)
    : host_(host), window_(window), calls_(std::move(calls)), frame_(new QWidget(&host)) {
    frame_->hide();
}

LiveEditor::~LiveEditor() = default;

std::shared_ptr<TextField> LiveEditor::client() const {
    return input_ ? window_.fieldEditor().client() : nullptr;
}

TextInput& LiveEditor::inputFor(const TextField& field) {
    auto& input = field.isMultiline() ? paragraph_ : line_;
    if (!input) {
        const auto make = field.isMultiline() ? makeParagraphInput : makeLineInput;
        input = make(*frame_, [this] { textChanged(); });
        input->widget().installEventFilter(this);
        if (&input->surface() != &input->widget()) input->surface().installEventFilter(this);
        input->widget().hide();
        // By the order in which they were made, the way on would begin behind all other widgets.
        QWidget::setTabOrder(&host_, &input->widget());
    }
    return *input;
}

void LiveEditor::begin(TextField& field, platform::Appearance appearance) {
    input_ = &inputFor(field);
    composed_.clear();
    takeStyle(appearance);
    taking_ = true;
    input_->setText(qString(field.stringValue()));
    taking_ = false;
    place();
    frame_->show();
    frame_->raise();
    input_->widget().show();
    input_->widget().setFocus(Qt::OtherFocusReason);
    takeSelection();
}

void LiveEditor::finishComposing() {
    if (!input_ || composed_.isEmpty()) return;
    QGuiApplication::inputMethod()->commit();
    // Not every input method does.
    if (!input_ || composed_.isEmpty()) return;
    QInputMethodEvent event;
    event.setCommitString(std::exchange(composed_, {}));
    QCoreApplication::sendEvent(&input_->widget(), &event);
}

void LiveEditor::end() {
    if (!input_) return;
    QWidget& widget = input_->widget();
    // Also that of a window which is not the one in use now.
    const bool hadFocus = host_.window()->focusWidget() == &widget;
    input_ = nullptr;
    // Before it is hidden: the desktop would give the focus to whoever is next.
    if (hadFocus) host_.setFocus(Qt::OtherFocusReason);
    widget.hide();
    frame_->hide();
}

void LiveEditor::takeStyle(platform::Appearance appearance) {
    if (const auto field = client()) input_->takeStyleOf(*field, appearance);
}

void LiveEditor::takeText() {
    const auto field = client();
    if (!field) return;
    const QString text = qString(field->stringValue());
    if (text != input_->text()) {
        composed_.clear();
        taking_ = true;
        input_->setText(text);
        taking_ = false;
    }
    takeSelection();
}

void LiveEditor::place() {
    const auto field = client();
    if (!field) return;
    const auto text = field->textRect();
    const QRect whole = qRect(field->convertToWindow(text)).toRect();
    const QRect visible = qRect(field->convertToWindow(field->visibleRect())).toAlignedRect();
    const int overhang = input_->overhang();
    const QRect wanted = whole.adjusted(-overhang, 0, overhang, 0);
    // Of no size where it is scrolled away; hidden, it would lose the focus.
    const QRect shown = wanted.intersected(visible);
    frame_->setGeometry(shown);
    input_->widget().setGeometry(wanted.translated(-shown.topLeft()));
}

bool LiveEditor::hasFocus() const {
    return input_ && input_->widget().hasFocus();
}

void LiveEditor::takeFocus() {
    if (input_) input_->widget().setFocus(Qt::OtherFocusReason);
}

void LiveEditor::forward(const QMouseEvent& event) {
    if (!input_) return;
    QWidget& surface = input_->surface();
    const QPointF local = surface.mapFrom(&host_, event.position());
    QMouseEvent copy(event.type(), local, event.globalPosition(), event.button(), event.buttons(),
                     event.modifiers());
    forwarding_ = true;
    QCoreApplication::sendEvent(&surface, &copy);
    forwarding_ = false;
}

// From the widget to the field.

void LiveEditor::textChanged() {
    if (taking_ || !client()) return;
    giveSelection();
    window_.fieldEditor().setText(input_->text().toStdString());
    if (client()) giveSelection();
}

void LiveEditor::giveSelection() {
    const QString text = input_->text();
    const auto selection = input_->selection();
    window_.fieldEditor().setSelection(bytesBefore(text, selection.start),
                                       bytesBefore(text, selection.end));
}

void LiveEditor::takeSelection() {
    const auto field = client();
    if (!field) return;
    const auto& editor = window_.fieldEditor();
    input_->setSelection({unitsBefore(field->stringValue(), editor.selectionStart()),
                          unitsBefore(field->stringValue(), editor.selectionEnd())});
}

bool LiveEditor::eventFilter(QObject* watched, QEvent* event) {
    if (!input_ || (watched != &input_->widget() && watched != &input_->surface())) return false;
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // What is bound to a command is no shortcut of the program while a text is edited.
            if (!views::commandForKey(keyEventOf(static_cast<QKeyEvent&>(*event)))) return false;
            event->accept();
            return true;
        case QEvent::KeyPress:
            return keyPressed(static_cast<QKeyEvent&>(*event));
        case QEvent::InputMethod:
            composed_ = static_cast<QInputMethodEvent&>(*event).preeditString();
            return false;
        case QEvent::MouseButtonPress:
            pressed(static_cast<QMouseEvent&>(*event));
            return false;
        case QEvent::FocusIn:
            calls_.focusChanged();
            return false;
        case QEvent::FocusOut:
            focusLost(static_cast<QFocusEvent&>(*event).reason());
            return false;
        case QEvent::Wheel:
            event->ignore();
            return watched == &input_->surface() && watched != &input_->widget();
        default:
            return false;
    }
}

void LiveEditor::pressed(const QMouseEvent& event) {
    const auto field = client();
    // What was forwarded, the field has had.
    if (!field || forwarding_ || event.button() != Qt::LeftButton) return;
    const QPointF inHost = host_.mapFromGlobal(event.globalPosition());
    field->mouseDown(views::MouseEvent(pointOf(inHost), 1, modifierFlags(event.modifiers())));
}

void LiveEditor::focusLost(Qt::FocusReason reason) {
    const bool comesBack = reason == Qt::ActiveWindowFocusReason ||
                           reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
    if (!comesBack && !host_.hasFocus()) {
        losingFocus_ = true;
        window_.makeFirstResponder(nullptr);
        losingFocus_ = false;
    }
    calls_.focusChanged();
}

bool LiveEditor::widgetDoes(Command command, bool multiline) const {
    switch (command) {
        case Command::MoveLeft:
        case Command::MoveRight:
        case Command::SelectAll:
        case Command::DeleteForward:
        case Command::DeleteBackward:
            return true;
        case Command::MoveUp:
        case Command::MoveDown:
        case Command::ExtendSelectionUp:
        case Command::ExtendSelectionDown:
        case Command::InsertNewline:
        case Command::InsertLineBreak:
            return multiline;
        default:
            return false;
    }
}

bool LiveEditor::keyPressed(const QKeyEvent& event) {
    const auto key = keyEventOf(event);
    const auto command = views::commandForKey(key);
    const auto field = client();
    if (!field) return false;
    const QPointer<LiveEditor> alive(this);
    giveSelection();
    if (field->takesKey(key)) {
        takeText();
        return true;
    }
    if (!command) return false;
    bool done = true;
    if (!widgetDoes(*command, field->isMultiline())) {
        // Escape that nobody wants is left to the widgets around, which may be a dialog.
        done = calls_.keyDown(key) || *command != Command::CancelOperation;
    } else {
        done = window_.fieldEditor().delegateDoes(*command);
    }
    if (!alive || client() != field) return true;
    if (done) {
        takeText();
    } else if (*command == Command::InsertNewline || *command == Command::InsertLineBreak) {
        // By itself the widget would break a line in a way that no other program reads.
        input_->insert(QStringLiteral("\n"));
        done = true;
    }
    return done;
}

}  // namespace corvane::qt
