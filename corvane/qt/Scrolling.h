// Scrolls what is below the pointer or around the focus. Functions without state; the main thread.
#pragma once

#include "corvane/views/View.h"

#include <memory>

class QWheelEvent;

namespace corvane::views {
class ScrollView;
class Window;
}  // namespace corvane::views

namespace corvane::qt {

/// In points, how far the content is to move up and left: as fine as a touchpad tells it, or a few
/// lines for a step of a wheel. With Shift a wheel scrolls sideways.
views::Point scrollDistance(const QWheelEvent& event);

/// The innermost scroll view at the place that has somewhere to go. Whether there was one.
bool scrollAt(const views::Window& window, views::Point point, views::Point distance);

/// Home, End and the keys for pages.
bool isScrollKey(char32_t key);
/// By one of these, what has the focus, or anything where nothing has.
void scrollByKey(views::Window& window, char32_t key);

}  // namespace corvane::qt
