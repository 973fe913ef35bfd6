// Views that lie over a window's content and take its events and keys for themselves, one at a
// time. A part of the window.
#pragma once

#include "corvane/views/View.h"

#include <deque>
#include <memory>

namespace corvane::views {

class ModalViews {
  public:
    explicit ModalViews(Window& window) : window_(window) {}
    ModalViews(const ModalViews&) = delete;
    ModalViews& operator=(const ModalViews&) = delete;

    /// The one that is shown; null for none.
    std::shared_ptr<View> current() const;
    /// Shows the view all over the window and takes the focus into it; or, while there is one
    /// already, when those before it have ended. Null and one that is here already change nothing.
    void begin(const std::shared_ptr<View>& view);
    /// Takes the view away, or out of the queue. When the last one ends, the focus returns to where
    /// it was.
    void end(const View& view);
    /// Whether it has been begun and is not shown yet.
    bool isWaiting(const View& view) const;

    /// Whether a view of the window lies neither below the one that is shown nor in what is below.
    bool admits(const View& view) const;

    // Of the window alone.
    void fillWindow();
    void willRemove(const View& view);

  private:
    void present();

    Window& window_;
    std::deque<std::shared_ptr<View>> views_;  ///< the first one is shown
    std::weak_ptr<View> focusBefore_;
};

}  // namespace corvane::views
