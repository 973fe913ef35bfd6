// What a window asks of whoever brings it to the screen.
#pragma once

#include "corvane/platform/Point.h"
#include "corvane/platform/Rect.h"

#include <memory>

namespace corvane::views {

struct Alert;
struct DragSession;
class Menu;
class TextField;
class View;
enum class AccessibilityChange;

/// Everything has a default that does nothing, as for a window that nobody sees. Outlives the
/// window, or takes itself off it first.
class WindowHost {
  public:
    virtual ~WindowHost() = default;

    /// Something there must be drawn again: with Window::takeDirtyRect and Window::draw.
    virtual void windowNeedsDisplay(const platform::Rect&) {}
    /// Null for none. Also called for a field, before editingDidBegin.
    virtual void firstResponderDidChange(const std::shared_ptr<View>&) {}
    /// The window's field editor has begun or ended with the field, or the program has changed its
    /// text meanwhile. Before it ends, it still takes what is left in a widget of the host's.
    virtual void editingDidBegin(TextField&) {}
    virtual void editingWillEnd(TextField&) {}
    virtual void editingDidEnd(TextField&) {}
    virtual void editedTextDidChange(TextField&) {}
    /// The answer goes to Window::endSheet. The alert stays valid until then.
    virtual void showSheet(const Alert&) {}
    virtual void showMenu(const std::shared_ptr<Menu>&, platform::Point /*inWindow*/) {}
    /// The host carries the drag out and ends the session.
    virtual void beginDragging(const std::shared_ptr<DragSession>&) {}
    /// For assistive technology; the view is in the window.
    virtual void accessibilityDidChange(View&, AccessibilityChange) {}
    /// A key that nobody wanted.
    virtual void beep() {}
};

}  // namespace corvane::views
