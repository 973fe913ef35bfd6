// Thin bars over what scrolls: they show how much there is, and can be dragged. One for a host; the
// main thread.
#pragma once

#include "corvane/views/View.h"

#include <memory>

namespace corvane::views {
class Canvas;
class ScrollView;
class Window;
}  // namespace corvane::views

namespace corvane::qt {

class Scrollers {
  public:
    /// The window outlives it.
    explicit Scrollers(views::Window& window) : window_(window) {}

    /// Those of the scroll views that lie in the rectangle and have more than they show.
    void draw(views::Canvas& canvas, const views::Rect& dirty) const;

    /// Whether the bar takes the press. Where it did, it also takes what follows.
    bool mouseDown(views::Point point);
    bool mouseDragged(views::Point point);
    bool mouseUp();
    /// Whether the pointer is on a bar, which grows below it.
    bool mouseMoved(views::Point point);

  private:
    std::shared_ptr<views::ScrollView> scrollViewWithBarAt(views::Point point) const;
    void setHovered(const std::shared_ptr<views::ScrollView>& view);

    views::Window& window_;
    std::weak_ptr<views::ScrollView> hovered_;
    std::weak_ptr<views::ScrollView> dragged_;
    double grip_ = 0;  ///< from the upper end of the bar
};

}  // namespace corvane::qt
