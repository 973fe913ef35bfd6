// What Qt tells of keys and modifiers, in the terms of views. Functions without state; any thread.
#pragma once

#include "corvane/views/Event.h"

#include <Qt>

class QKeyEvent;

namespace corvane::qt {

// Keys that scroll.
using views::kKeyEnd;
using views::kKeyHome;
using views::kKeyPageDown;
using views::kKeyPageUp;

/// Control, on whose place people have the keys of commands, counts as Command; the key with the
/// desktop's logo as Control, and Alt as Option.
std::uint64_t modifierFlags(Qt::KeyboardModifiers modifiers);

/// Without characters where the key is only a modifier, or one that no view knows.
views::KeyEvent keyEventOf(const QKeyEvent& event);

}  // namespace corvane::qt
