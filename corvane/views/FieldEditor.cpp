#include "corvane/views/FieldEditor.h"

#include "corvane/views/Event.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

namespace {

bool continuesCharacter(char byte) {
    return (byte & '\xC0') == '\x80';
}

std::size_t characterBefore(const std::string& text, std::size_t position) {
    while (position > 0 && continuesCharacter(text[--position]))
        continue;
    return position;
}

std::size_t characterAfter(const std::string& text, std::size_t position) {
    if (position < text.size()) ++position;
    while (position < text.size() && continuesCharacter(text[position]))
        ++position;
    return position;
}

}  // namespace

void FieldEditor::setSelection(std::size_t start, std::size_t end) {
    const auto field = client();
    const std::size_t size = field ? field->stringValue().size() : 0;
    end_ = std::min(end, size);
    start_ = std::min(start, end_);
}

void FieldEditor::selectAll() {
    setSelection(0, std::string::npos);
}

void FieldEditor::setText(std::string text) {
    const auto field = client();
    if (!field || text == field->stringValue()) return;
    window_.eventFollowers().eventHappened();  // a host's own widget takes the keys
    field->textDidChange(std::move(text));
    setSelection(start_, end_);
}

void FieldEditor::insertText(std::string_view text) {
    const auto field = client();
    if (!field) return;
    std::string changed = field->stringValue();
    const std::size_t start = std::min(start_, changed.size());
    changed.replace(start, std::min(end_, changed.size()) - start, text);
    start_ = end_ = start + text.size();
    setText(std::move(changed));
}

void FieldEditor::erase(std::size_t start, std::size_t end) {
    setSelection(start, end);
    insertText("");
}

bool FieldEditor::keyDown(const KeyEvent& event) {
    if (const auto command = commandForKey(event)) {
        if (doCommand(*command)) return true;
        return *command == Command::CancelOperation && doCommand(Command::Complete);
    }
    if (!event.isText()) return false;
    insertText(event.characters());
    return true;
}

bool FieldEditor::delegateDoes(Command command) {
    const auto field = client();
    const auto delegate = field ? field->delegate() : nullptr;
    return delegate && delegate->controlDoCommandBySelector(*field, *this, command);
}

bool FieldEditor::doCommand(Command command) {
    if (delegateDoes(command)) return true;
    const auto field = client();
    return field && doOwn(command, *field);
}

bool FieldEditor::doOwn(Command command, TextField& field) {
    const std::string& text = field.stringValue();
    switch (command) {
        case Command::MoveLeft:
            start_ = end_ = start_ < end_ ? start_ : characterBefore(text, start_);
            return true;
        case Command::MoveRight:
            start_ = end_ = start_ < end_ ? end_ : characterAfter(text, end_);
            return true;
        case Command::MoveUp:
            start_ = end_ = 0;
            return true;
        case Command::MoveDown:
            start_ = end_ = text.size();
            return true;
        case Command::SelectAll:
            selectAll();
            return true;
        case Command::DeleteBackward:
            erase(start_ < end_ ? start_ : characterBefore(text, start_), end_);
            return true;
        case Command::DeleteForward:
        case Command::Delete:
            erase(start_, start_ < end_ ? end_ : characterAfter(text, end_));
            return true;
        case Command::InsertTab:
            return window_.selectNextKeyViewOf(field);
        case Command::InsertBacktab:
            return window_.selectPreviousKeyViewOf(field);
        case Command::InsertNewline:
            if (field.isMultiline()) {
                insertText("\n");
            } else if (std::exchange(textBefore_, text) != field.stringValue()) {
                field.sendAction();
                // Which may have put its own text in the place of what was typed.
                if (client().get() == &field) textBefore_ = text;
            }
            return true;
        case Command::InsertLineBreak:
            if (field.isMultiline()) insertText("\n");
            return field.isMultiline();
        default:
            return false;
    }
}

void FieldEditor::begin(const std::shared_ptr<TextField>& field) {
    if (field == client()) return;
    end();
    client_ = field;
    textBefore_ = field->stringValue();
    selectAll();
    window_.host().editingDidBegin(*field);
    field->textDidBeginEditing();
}

void FieldEditor::end() {
    const auto field = client();
    if (field) window_.host().editingWillEnd(*field);
    if (client() != field) return;  // whoever heard of the last change did it already
    client_.reset();
    if (!field) return;
    const bool changed = field->stringValue() != textBefore_;
    window_.host().editingDidEnd(*field);
    field->textDidEndEditing(changed);
}

}  // namespace corvane::views
