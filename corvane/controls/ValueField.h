// A field whose text stands for a value. The text is read when it is committed, and shows from then
// on how the value is written; text that says no value leaves the field empty.
#pragma once

#include "corvane/views/TextField.h"

#include <string>
#include <string_view>

namespace corvane {

/// One line, cut off at its end where it is too long.
class ValueField : public views::TextField {
  public:
    using views::TextField::TextField;

    /// Commits the text, then sends the action.
    void sendAction() override;
    void textDidEndEditing(bool changed) override;

  protected:
    /// The class in the diagnostics of commits.
    virtual std::string_view debugClassName() const = 0;
    /// Takes over what the text says, or no value, and shows that. Empty text is no value.
    virtual void commit(const std::string& text) = 0;
    /// Sends the action for a value that did not come from the text.
    void sendActionOfValue() { views::TextField::sendAction(); }
    /// Puts the text of the value into the field.
    void show(std::string text);
    /// "[CVMacDateField sendAction:to:]"
    void trace(std::string_view operation) const;

  private:
    std::string shownText_;
};

}  // namespace corvane
