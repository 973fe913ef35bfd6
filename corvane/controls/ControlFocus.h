// What the controls do about the focus: pass it on by Tab, and show that they have it. One thread,
// the window's.
#pragma once

#include "corvane/platform/Rect.h"

#include <optional>

namespace corvane {

namespace views {
class Canvas;
class KeyEvent;
class View;
enum class Command;
}  // namespace views

/// Tab and Shift-Tab: whether somebody else took the focus. None for all other keys.
std::optional<bool> focusPassedOn(const views::View& view, const views::KeyEvent& event);
std::optional<bool> focusPassedOn(const views::View& view, views::Command command);

/// Whether the view has the focus, in a window to which the keys go.
bool showsFocus(const views::View& view);

/// A ring within the rectangle. Nothing where the view does not show the focus.
void drawFocusRing(views::Canvas& canvas, const views::View& view, const platform::Rect& rect,
                   double radius);

}  // namespace corvane
