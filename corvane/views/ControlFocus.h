// What views that take keys do about the focus: pass it on by Tab, and show that they have it. One
// thread, the window's.
#pragma once

#include "corvane/platform/Rect.h"

#include <optional>

namespace corvane::views {

class Canvas;
class KeyEvent;
class View;
enum class Command;

/// Tab and Shift-Tab: whether somebody else took the focus. None for all other keys.
std::optional<bool> focusPassedOn(const View& view, const KeyEvent& event);
std::optional<bool> focusPassedOn(const View& view, Command command);

/// Whether the view has the focus, in a window to which the keys go.
bool showsFocus(const View& view);

/// A ring within the rectangle. Nothing where the view does not show the focus.
void drawFocusRing(Canvas& canvas, const View& view, const platform::Rect& rect, double radius);

}  // namespace corvane::views
