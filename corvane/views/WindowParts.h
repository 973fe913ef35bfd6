// The parts of a window: its content, and each view that floats above it. A part of the window.
#pragma once

#include "corvane/views/View.h"

#include <memory>
#include <vector>

namespace corvane::views {

/// Knows where the focus was last in each. Their order is that of their coming, the content first,
/// and not the one in which they lie over each other: that changes with each of them that is used.
class WindowParts {
  public:
    explicit WindowParts(const Window& window) : window_(window) {}
    WindowParts(const WindowParts&) = delete;
    WindowParts& operator=(const WindowParts&) = delete;

    /// All but the one with that view, beginning behind it, or before it and backwards; for null,
    /// from one end to the other.
    std::vector<std::shared_ptr<View>> allFrom(const View* view, bool forward);
    /// Null where it was never there, or there is nothing left of where it was.
    std::shared_ptr<View> lastFocusIn(const View& part) const;
    void focusDidMove(const std::shared_ptr<View>& view);

  private:
    struct Part {
        std::weak_ptr<View> view;
        std::weak_ptr<View> lastFocus;
    };
    void update();

    const Window& window_;
    std::vector<Part> parts_;
};

}  // namespace corvane::views
