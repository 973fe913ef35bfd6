#include "corvane/qt/Keys.h"

#include <QKeyEvent>
#include <optional>

namespace corvane::qt {

namespace {

struct KeyName {
    int key;
    char32_t character;
};

constexpr KeyName kNames[] = {
    {Qt::Key_Up, views::kKeyUpArrow},
    {Qt::Key_Down, views::kKeyDownArrow},
    {Qt::Key_Left, views::kKeyLeftArrow},
    {Qt::Key_Right, views::kKeyRightArrow},
    {Qt::Key_Return, views::kKeyReturn},
    {Qt::Key_Enter, views::kKeyEnter},
    {Qt::Key_Tab, views::kKeyTab},
    {Qt::Key_Backtab, views::kKeyBacktab},
    {Qt::Key_Escape, views::kKeyEscape},
    {Qt::Key_Backspace, views::kKeyBackspace},
    {Qt::Key_Delete, views::kKeyDeleteForward},
    {Qt::Key_F6, views::kKeyF6},
    {Qt::Key_Home, kKeyHome},
    {Qt::Key_End, kKeyEnd},
    {Qt::Key_PageUp, kKeyPageUp},
    {Qt::Key_PageDown, kKeyPageDown},
};

std::optional<char32_t> characterOf(int key) {
    for (const KeyName& name : kNames)
        if (name.key == key) return name.character;
    return std::nullopt;
}

/// With Control down the text is a control character; shortcuts are known by their letters.
std::string letterOf(const QKeyEvent& event) {
    if (event.key() < Qt::Key_Space || event.key() > Qt::Key_ydiaeresis) return {};
    const QString letter = QChar(static_cast<char16_t>(event.key()));
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    return (shift ? letter : letter.toLower()).toStdString();
}

}  // namespace

std::uint64_t modifierFlags(Qt::KeyboardModifiers modifiers) {
    std::uint64_t flags = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) flags |= views::kModifierShift;
    if (modifiers.testFlag(Qt::ControlModifier)) flags |= views::kModifierCommand;
    if (modifiers.testFlag(Qt::AltModifier)) flags |= views::kModifierOption;
    if (modifiers.testFlag(Qt::MetaModifier)) flags |= views::kModifierControl;
    return flags;
}

views::KeyEvent keyEventOf(const QKeyEvent& event) {
    const auto flags = modifierFlags(event.modifiers());
    if (const auto character = characterOf(event.key())) return views::KeyEvent(*character, flags);
    if (flags & (views::kModifierCommand | views::kModifierControl))
        return views::KeyEvent(letterOf(event), flags);
    return views::KeyEvent(event.text().toStdString(), flags);
}

}  // namespace corvane::qt
