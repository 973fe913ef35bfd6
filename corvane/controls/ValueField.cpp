#include "corvane/controls/ValueField.h"

#include "corvane/platform/Console.h"

#include <fmt/format.h>

#include <utility>

namespace corvane {

void ValueField::trace(std::string_view operation) const {
    platform::currentConsole().writeLine(fmt::format("[{} {}]", debugClassName(), operation));
}

void ValueField::show(std::string text) {
    shownText_ = text;
    setStringValue(std::move(text));
}

void ValueField::sendAction() {
    trace("sendAction:to:");
    commit(stringValue());
    sendActionOfValue();
}

void ValueField::textDidEndEditing(bool) {
    // Whatever the text was when editing began: what counts is whether it is still the value's.
    views::TextField::textDidEndEditing(stringValue() != shownText_);
}

}  // namespace corvane
