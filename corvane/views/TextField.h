// A field for a line of text, and what follows its editing.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Control.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane::views {

class FieldEditor;
class TextField;

/// Follows the editing of fields. Held by the field as a weak reference.
class TextFieldDelegate {
  public:
    virtual ~TextFieldDelegate() = default;
    virtual void controlTextDidBeginEditing(TextField&) {}
    virtual void controlTextDidChange(TextField&) {}  ///< by the user
    virtual void controlTextDidEndEditing(TextField&) {}
    /// Whether the delegate did what the command is for; otherwise the editor does.
    virtual bool controlDoCommandBySelector(TextField&, FieldEditor& /*textView*/, Command) {
        return false;
    }
};

/// Edited while it is the first responder, by the window's field editor. Text that was changed is
/// sent (the action) when Return is pressed, which goes on editing, and when editing ends, after
/// the delegate was told. A field that makes something of its text overrides sendAction.
class TextField : public Control {
  public:
    using Control::Control;

    const std::string& stringValue() const { return stringValue_; }
    /// Tells nobody but whoever shows it.
    virtual void setStringValue(std::string text);
    const std::string& placeholderString() const { return placeholderString_; }
    void setPlaceholderString(std::string text);
    const Font& font() const { return font_; }
    void setFont(const Font& font);
    TextAlignment alignment() const { return alignment_; }
    void setAlignment(TextAlignment alignment);
    /// The theme's, unless one was set.
    platform::Color textColor() const;
    void setTextColor(const platform::Color& color);
    /// Without a border it is drawn as plain text until it is edited.
    bool isBordered() const { return bordered_; }
    void setBordered(bool bordered);
    virtual bool isMultiline() const { return false; }
    virtual bool isSecure() const { return false; }  ///< shows no letters

    bool isEditable() const { return editable_; }
    void setEditable(bool editable);
    bool isEditing() const;
    /// Whoever was set; otherwise the nearest superview that is one; null for none.
    std::shared_ptr<TextFieldDelegate> delegate() const;
    void setDelegate(std::weak_ptr<TextFieldDelegate> delegate) { delegate_ = std::move(delegate); }

    /// Steps of an editing session, called by the editor. Overrides call these.
    virtual void textDidBeginEditing();
    virtual void textDidChange(std::string text);
    virtual void textDidEndEditing(bool changed);
    /// A key that was pressed while the field is edited, before the editor has it, whichever widget
    /// that may be: true where it is not for the text.
    virtual bool takesKey(const KeyEvent&) { return false; }

    /// Where the text stands within the bounds.
    virtual Rect textRect() const;
    Size preferredSizeThatFits(Size available) override;
    void draw(Canvas& canvas, const Rect& dirty) override;
    bool mouseDown(const MouseEvent& event) override;
    bool keyDown(const KeyEvent& event) override;
    bool doCommand(Command command) override;
    bool acceptsFirstResponder() const override { return editable_ && isEnabled(); }
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    Cursor cursorAt(Point point) const override;
    Role accessibilityRole() const override { return Role::TextField; }
    std::string accessibilityName() const override;
    std::string accessibilityValue() const override { return isSecure() ? "" : stringValue_; }

  private:
    std::string stringValue_;
    std::string placeholderString_;
    std::weak_ptr<TextFieldDelegate> delegate_;
    std::unique_ptr<platform::Color> textColor_;
    Font font_;
    TextAlignment alignment_ = TextAlignment::Leading;
    bool editable_ = true;
    bool bordered_ = true;
};

}  // namespace corvane::views
