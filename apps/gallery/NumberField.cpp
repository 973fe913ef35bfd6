#include "apps/gallery/NumberField.h"

#include "corvane/platform/TypedNumber.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace corvane::gallery {

NumberField::NumberField(int value, int least, int greatest, std::function<void(int)> didChange)
    : value_(value), least_(least), greatest_(greatest), didChange_(std::move(didChange)) {
    setStringValue(platform::typedNumberText(std::int64_t{value}));
}

void NumberField::change(int value) {
    value = std::clamp(value, least_, greatest_);
    const bool isOther = value != std::exchange(value_, value);
    setStringValue(platform::typedNumberText(std::int64_t{value}));
    if (isOther && didChange_) didChange_(value);
}

void NumberField::sendAction() {
    const std::string plain = platform::plainNumber(stringValue()).value_or("");
    int value = value_;
    std::from_chars(plain.data(), plain.data() + plain.size(), value);
    change(value);
}

bool NumberField::takesKey(const views::KeyEvent& event) {
    const auto command = views::commandForKey(event);
    if (command != views::Command::MoveUp && command != views::Command::MoveDown) return false;
    change(value_ + (command == views::Command::MoveUp ? 1 : -1));
    return true;
}

views::Size NumberField::preferredSizeThatFits(views::Size available) {
    return {48, TextField::preferredSizeThatFits(available).height};
}

}  // namespace corvane::gallery
