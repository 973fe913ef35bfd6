// Lends a real text widget of the desktop to the field that a window edits: with input methods,
// undo and clipboard. One for a host; the main thread.
#pragma once

#include "corvane/qt/TextInput.h"
#include "corvane/views/Command.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class QKeyEvent;
class QMouseEvent;

namespace corvane::views {
class KeyEvent;
class TextField;
class Window;
}  // namespace corvane::views

namespace corvane::qt {

/// Lies over the text of the field and passes on what the user does: the text and the selection to
/// the window's field editor, commands to the field's delegate before the widget acts on them.
class LiveEditor final : public QObject {
  public:
    struct Calls {
        std::function<void()> focusChanged;  ///< the widget has gained or lost the focus
        std::function<bool(const views::KeyEvent&)> keyDown;  ///< that the widget does not want
    };

    /// Host and window outlive it. The focus returns to the host when editing ends.
    LiveEditor(QWidget& host, views::Window& window, Calls calls);
    ~LiveEditor() override;

    void begin(views::TextField& field, platform::Appearance appearance);
    /// Takes over what an input method has not been done with yet.
    void finishComposing();
    void end();
    /// The program has changed the field's text.
    void takeText();
    /// The window has moved the field, or the desktop has changed its colors.
    void place();
    void takeStyle(platform::Appearance appearance);

    bool isEditing() const { return input_ != nullptr; }
    bool hasFocus() const;
    /// Nothing where it edits nothing.
    void takeFocus();
    /// The user gives the focus to another widget: views that want it get none.
    bool isLosingFocus() const { return losingFocus_; }
    /// The widget in use; null for none.
    QWidget* widget() const { return input_ ? &input_->widget() : nullptr; }
    /// Lets the widget have a press, a movement or a release that the host got.
    void forward(const QMouseEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::shared_ptr<views::TextField> client() const;
    TextInput& inputFor(const views::TextField& field);
    bool keyPressed(const QKeyEvent& event);
    bool widgetDoes(views::Command command, bool multiline) const;
    void textChanged();
    void giveSelection();
    void takeSelection();
    void focusLost(Qt::FocusReason reason);
    /// The field may do more about a press than to be edited, such as to open its chooser.
    void pressed(const QMouseEvent& event);

    QWidget& host_;
    views::Window& window_;
    Calls calls_;
    QWidget* frame_;  ///< cuts the widget off where the field is cut off
    std::unique_ptr<TextInput> line_;
    std::unique_ptr<TextInput> paragraph_;
    TextInput* input_ = nullptr;
    QString composed_;     ///< by an input method, and not a part of the text yet
    bool taking_ = false;  ///< the program's text, which the user did not type
    bool forwarding_ = false;
    bool losingFocus_ = false;
};

}  // namespace corvane::qt
