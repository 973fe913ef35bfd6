#include "corvane/views/TextField.h"

#include "corvane/views/Event.h"
#include "corvane/views/FieldEditor.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <algorithm>

namespace corvane::views {

namespace {

constexpr double kMarginX = 4;
constexpr double kMarginY = 2;

/// As many dots as letters.
std::string concealed(const std::string& text) {
    std::string dots;
    for (const char byte : text)
        if ((byte & '\xC0') != '\x80') dots += "•";
    return dots;
}

}  // namespace

void TextField::setStringValue(std::string text) {
    if (text == stringValue_) return;
    stringValue_ = std::move(text);
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Value);
    if (!isEditing()) return;
    window()->fieldEditor().selectAll();
    window()->host().editedTextDidChange(*this);
}

void TextField::setPlaceholderString(std::string text) {
    placeholderString_ = std::move(text);
    setNeedsDisplay();
}

void TextField::setFont(const Font& font) {
    font_ = font;
    setNeedsDisplay();
}

void TextField::setAlignment(TextAlignment alignment) {
    alignment_ = alignment;
    setNeedsDisplay();
}

platform::Color TextField::textColor() const {
    return textColor_ ? *textColor_ : theme().text;
}

void TextField::setTextColor(const platform::Color& color) {
    textColor_ = std::make_unique<platform::Color>(color);
    setNeedsDisplay();
}

void TextField::setBordered(bool bordered) {
    bordered_ = bordered;
    setNeedsDisplay();
}

void TextField::setEditable(bool editable) {
    if (editable == editable_) return;
    editable_ = editable;
    setNeedsDisplay();
    if (!editable && isEditing()) window()->makeFirstResponder(nullptr);
}

std::shared_ptr<TextFieldDelegate> TextField::delegate() const {
    if (auto delegate = delegate_.lock()) return delegate;
    for (View* view = superview(); view; view = view->superview())
        if (auto* delegate = dynamic_cast<TextFieldDelegate*>(view))
            return {view->shared_from_this(), delegate};
    return nullptr;
}

bool TextField::isEditing() const {
    const Window* window = this->window();
    return window && window->fieldEditor().client().get() == this;
}

// Editing.

void TextField::textDidBeginEditing() {
    setNeedsDisplay();
    if (const auto delegate = this->delegate()) delegate->controlTextDidBeginEditing(*this);
}

void TextField::textDidChange(std::string text) {
    stringValue_ = std::move(text);
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Value);
    if (const auto delegate = this->delegate()) delegate->controlTextDidChange(*this);
}

void TextField::textDidEndEditing(bool changed) {
    setNeedsDisplay();
    if (const auto delegate = this->delegate()) delegate->controlTextDidEndEditing(*this);
    if (changed) sendAction();
}

bool TextField::becomeFirstResponder() {
    window()->fieldEditor().begin(std::static_pointer_cast<TextField>(shared_from_this()));
    return true;
}

bool TextField::resignFirstResponder() {
    if (isEditing()) window()->fieldEditor().end();
    return true;
}

bool TextField::mouseDown(const MouseEvent&) {
    if (!acceptsFirstResponder() || !window()) return false;
    return window()->makeFirstResponder(shared_from_this());
}

bool TextField::keyDown(const KeyEvent& event) {
    return isEditing() && (takesKey(event) || window()->fieldEditor().keyDown(event));
}

bool TextField::doCommand(Command command) {
    return isEditing() && window()->fieldEditor().doCommand(command);
}

Cursor TextField::cursorAt(Point) const {
    return acceptsFirstResponder() ? Cursor::Text : Cursor::Arrow;
}

// Looks.

Rect TextField::textRect() const {
    // Leaves the ring around it to be seen where a widget edits the text.
    return bounds().insetBy(kMarginX, kMarginY);
}

Size TextField::preferredSizeThatFits(Size available) {
    const Size text = textMeasurer().sizeOfText(stringValue_, font_);
    return {std::min(available.width, text.width + 2 * kMarginX),
            textMeasurer().lineHeight(font_) + 2 * kMarginY};
}

void TextField::draw(Canvas& canvas, const Rect&) {
    if (bordered_ || isEditing()) {
        canvas.fillRoundedRect(bounds(), 4, theme().background);
        const bool focused = isEditing() && window()->isActive();
        canvas.strokeRoundedRect(bounds(), 4, focused ? theme().accent : theme().border,
                                 focused ? 2 : 1);
    }
    const bool empty = stringValue_.empty();
    TextStyle style{font_, empty ? theme().placeholderText : textColor(), alignment_,
                    isMultiline()};
    if (!isEnabled()) style.color = theme().secondaryText;
    const std::string& text = empty ? placeholderString_ : stringValue_;
    canvas.drawText(isSecure() && !empty ? concealed(text) : text, textRect(), style);
}

std::string TextField::accessibilityName() const {
    std::string name = View::accessibilityName();
    return name.empty() ? placeholderString_ : name;
}

}  // namespace corvane::views
