// What a key asks a view to do, whichever key it was: the names that key bindings give to keys.
#pragma once

#include <optional>

namespace corvane::views {

class KeyEvent;

enum class Command {
    MoveUp,
    MoveDown,
    MoveLeft,
    MoveRight,
    ExtendSelectionUp,
    ExtendSelectionDown,
    MoveSelectedRowsUp,
    MoveSelectedRowsDown,
    InsertTab,
    InsertBacktab,
    InsertNewline,
    InsertLineBreak,  ///< a new line of the text, even where a plain return ends the editing
    CancelOperation,
    SelectNextPart,  ///< of the window, when nobody else wanted it
    SelectPreviousPart,
    Complete,  ///< follows on CancelOperation where nobody wanted that
    SelectAll,
    DeleteForward,
    DeleteBackward,
    Delete,  ///< of a menu, not of a key
};

/// None for a key that is bound to nothing, such as one that types a character.
std::optional<Command> commandForKey(const KeyEvent& event);

}  // namespace corvane::views
