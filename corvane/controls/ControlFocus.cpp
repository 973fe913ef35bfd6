#include "corvane/controls/ControlFocus.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

namespace corvane {

std::optional<bool> focusPassedOn(const views::View& view, const views::KeyEvent& event) {
    const auto command = views::commandForKey(event);
    return command ? focusPassedOn(view, *command) : std::nullopt;
}

std::optional<bool> focusPassedOn(const views::View& view, views::Command command) {
    views::Window* window = view.window();
    if (command == views::Command::InsertTab) return window && window->selectNextKeyViewOf(view);
    if (command == views::Command::InsertBacktab)
        return window && window->selectPreviousKeyViewOf(view);
    return std::nullopt;
}

bool showsFocus(const views::View& view) {
    return view.isFirstResponder() && view.window()->isActive();
}

void drawFocusRing(views::Canvas& canvas, const views::View& view, const platform::Rect& rect,
                   double radius) {
    if (showsFocus(view)) canvas.strokeRoundedRect(rect, radius, views::theme().accent, 2);
}

}  // namespace corvane
