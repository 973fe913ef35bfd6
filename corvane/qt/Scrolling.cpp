#include "corvane/qt/Scrolling.h"

#include "corvane/qt/Keys.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Window.h"

#include <QApplication>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace corvane::qt {

using views::Point;
using views::ScrollView;

namespace {

constexpr double kLine = 20;
constexpr double kWheelStep = 120;
/// Of a page remains visible, to find the place again.
constexpr double kOverlap = 24;

bool canMove(const ScrollView& view, Point distance) {
    const Point origin = view.documentVisibleRect().origin();
    const Point least = view.leastOrigin();
    const Point greatest = view.greatestOrigin();
    const auto hasRoom = [](double by, double at, double from, double to) {
        return (by < 0 && at > from) || (by > 0 && at < to);
    };
    return hasRoom(distance.x, origin.x, least.x, greatest.x) ||
           hasRoom(distance.y, origin.y, least.y, greatest.y);
}

/// The view itself, where it scrolls, or what scrolls around it.
ScrollView* scrollViewAround(views::View* view) {
    if (auto* scrollView = dynamic_cast<ScrollView*>(view)) return scrollView;
    return view ? view->enclosingScrollView() : nullptr;
}

bool hasMoreThanItShows(const ScrollView& view) {
    return view.greatestOrigin().y > view.leastOrigin().y;
}

/// With somewhere to go.
ScrollView* anyScrollViewIn(const views::View& view) {
    for (const auto& inside : view.subviews()) {
        if (inside->isHidden()) continue;
        auto* scrollView = dynamic_cast<ScrollView*>(inside.get());
        if (scrollView && hasMoreThanItShows(*scrollView)) return scrollView;
        if (auto* found = anyScrollViewIn(*inside)) return found;
    }
    return nullptr;
}

}  // namespace

Point scrollDistance(const QWheelEvent& event) {
    QPointF delta = event.pixelDelta();
    if (delta.isNull())
        delta = QPointF(event.angleDelta()) / kWheelStep * QApplication::wheelScrollLines() * kLine;
    // Wheels, too, may be told of as finely as touchpads.
    if (event.modifiers().testFlag(Qt::ShiftModifier) && delta.x() == 0) delta = delta.transposed();
    return {-delta.x(), -delta.y()};
}

bool scrollAt(const views::Window& window, Point point, Point distance) {
    const auto hit = window.viewAt(point);
    for (auto* view = scrollViewAround(hit.get()); view; view = view->enclosingScrollView()) {
        if (!canMove(*view, distance)) continue;
        // On whole points, or letters would blur.
        const Point origin = view->documentVisibleRect().origin();
        view->scrollTo({std::round(origin.x + distance.x), std::round(origin.y + distance.y)});
        return true;
    }
    return false;
}

bool isScrollKey(char32_t key) {
    return key == kKeyHome || key == kKeyEnd || key == kKeyPageUp || key == kKeyPageDown;
}

void scrollByKey(views::Window& window, char32_t key) {
    const auto first = window.firstResponder();
    const auto modal = window.modalViews().current();
    auto* view =
        first ? scrollViewAround(first.get()) : anyScrollViewIn(modal ? *modal : window.root());
    while (view && !hasMoreThanItShows(*view))
        view = view->enclosingScrollView();
    if (!view) return;
    const auto visible = view->documentVisibleRect();
    const double page = std::max(kLine, visible.height - kOverlap);
    double y = visible.y;
    if (key == kKeyHome) y = view->leastOrigin().y;
    if (key == kKeyEnd) y = view->greatestOrigin().y;
    if (key == kKeyPageUp) y -= page;
    if (key == kKeyPageDown) y += page;
    view->scrollTo({visible.x, y});
}

}  // namespace corvane::qt
