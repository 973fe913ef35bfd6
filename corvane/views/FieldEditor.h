// What edits text in a window: one for all fields, lent to the field that has the focus.
#pragma once

#include "corvane/views/Command.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::views {

class KeyEvent;
class TextField;
class Window;

/// A selection in the client's text, and what keys do to it. Positions count bytes. A widget
/// toolkit that edits itself passes on what it did (setText, setSelection) and asks before it acts
/// on a command (delegateDoes). Owned by the window.
class FieldEditor {
  public:
    explicit FieldEditor(Window& window) : window_(window) {}

    /// Who is being edited; null for nobody.
    std::shared_ptr<TextField> client() const { return client_.lock(); }

    std::size_t selectionStart() const { return start_; }
    std::size_t selectionEnd() const { return end_; }
    void setSelection(std::size_t start, std::size_t end);  ///< beyond the text: at its end
    void selectAll();

    /// The user's change of the text as a whole; the field and its delegate learn of it.
    void setText(std::string text);
    /// Puts the text in the place of the selection.
    void insertText(std::string_view text);
    bool keyDown(const KeyEvent& event);
    /// Asks the field's delegate; what it leaves is done here.
    bool doCommand(Command command);
    /// Whether the field's delegate took the command.
    bool delegateDoes(Command command);

    /// Of the window alone, by way of the field that gains or loses the focus.
    void begin(const std::shared_ptr<TextField>& client);
    void end();

  private:
    bool doOwn(Command command, TextField& client);
    void erase(std::size_t start, std::size_t end);

    Window& window_;
    std::weak_ptr<TextField> client_;
    std::string textBefore_;  ///< when editing began
    std::size_t start_ = 0;
    std::size_t end_ = 0;
};

}  // namespace corvane::views
