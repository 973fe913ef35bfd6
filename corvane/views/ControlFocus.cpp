#include "corvane/views/ControlFocus.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

namespace corvane::views {

std::optional<bool> focusPassedOn(const View& view, const KeyEvent& event) {
    const auto command = commandForKey(event);
    return command ? focusPassedOn(view, *command) : std::nullopt;
}

std::optional<bool> focusPassedOn(const View& view, Command command) {
    Window* window = view.window();
    if (command == Command::InsertTab) return window && window->selectNextKeyViewOf(view);
    if (command == Command::InsertBacktab) return window && window->selectPreviousKeyViewOf(view);
    return std::nullopt;
}

bool showsFocus(const View& view) {
    return view.isFirstResponder() && view.window()->isActive();
}

void drawFocusRing(Canvas& canvas, const View& view, const platform::Rect& rect, double radius) {
    if (showsFocus(view)) canvas.strokeRoundedRect(rect, radius, theme().accent, 2);
}

}  // namespace corvane::views
