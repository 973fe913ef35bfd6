#include "corvane/views/Command.h"

#include "corvane/views/Event.h"

namespace corvane::views {

namespace {

struct Binding {
    char32_t key;
    std::uint64_t modifiers;
    Command command;
};

constexpr Binding kBindings[] = {
    {kKeyUpArrow, 0, Command::MoveUp},
    {kKeyDownArrow, 0, Command::MoveDown},
    {kKeyLeftArrow, 0, Command::MoveLeft},
    {kKeyRightArrow, 0, Command::MoveRight},
    {kKeyUpArrow, kModifierShift, Command::ExtendSelectionUp},
    {kKeyDownArrow, kModifierShift, Command::ExtendSelectionDown},
    {kKeyUpArrow, kModifierOption, Command::MoveSelectedRowsUp},
    {kKeyDownArrow, kModifierOption, Command::MoveSelectedRowsDown},
    {kKeyTab, 0, Command::InsertTab},
    {kKeyTab, kModifierShift, Command::InsertBacktab},
    {kKeyBacktab, 0, Command::InsertBacktab},
    {kKeyBacktab, kModifierShift, Command::InsertBacktab},
    {kKeyReturn, 0, Command::InsertNewline},
    {kKeyEnter, 0, Command::InsertNewline},
    {kKeyReturn, kModifierShift, Command::InsertLineBreak},
    {kKeyReturn, kModifierOption, Command::InsertLineBreak},
    {kKeyEscape, 0, Command::CancelOperation},
    {kKeyF6, 0, Command::SelectNextPart},
    {kKeyF6, kModifierShift, Command::SelectPreviousPart},
    {kKeyTab, kModifierCommand, Command::SelectNextPart},
    {kKeyTab, kModifierCommand | kModifierShift, Command::SelectPreviousPart},
    {kKeyBacktab, kModifierCommand | kModifierShift, Command::SelectPreviousPart},
    {U'a', kModifierCommand, Command::SelectAll},
    {kKeyBackspace, 0, Command::DeleteBackward},
    {kKeyDeleteForward, 0, Command::DeleteForward},
};

}  // namespace

std::optional<Command> commandForKey(const KeyEvent& event) {
    constexpr std::uint64_t kAll =
        kModifierShift | kModifierControl | kModifierOption | kModifierCommand;
    const char32_t key = event.firstCharacter();
    const std::uint64_t modifiers = event.modifierFlags() & kAll;
    for (const Binding& binding : kBindings)
        if (binding.key == key && binding.modifiers == modifiers) return binding.command;
    return std::nullopt;
}

}  // namespace corvane::views
