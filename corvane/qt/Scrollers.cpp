#include "corvane/qt/Scrollers.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace corvane::qt {

using views::Point;
using views::Rect;
using views::ScrollView;

namespace {

constexpr double kWidth = 5;
constexpr double kHoveredWidth = 8;
constexpr double kMargin = 2;
constexpr double kReach = 10;  ///< from the trailing edge: where the pointer finds it
constexpr double kLeastLength = 28;
constexpr double kOpacity = 0.45;
constexpr double kHoveredOpacity = 0.75;

/// The stretch of the scroll view in which the bar moves, and the bar, from the view's top.
struct Bar {
    double trackStart = 0;
    double trackLength = 0;
    double start = 0;
    double length = 0;

    double freeLength() const { return trackLength - length; }
};

std::optional<Bar> barOf(const ScrollView& view) {
    const double least = view.leastOrigin().y;
    const double range = view.greatestOrigin().y - least;
    const double shown = view.contentSize().height;
    const auto& insets = view.contentInsets();
    Bar bar;
    bar.trackStart = insets.top + kMargin;
    bar.trackLength = view.frame().height - insets.top - insets.bottom - 2 * kMargin;
    if (range <= 0 || bar.trackLength < 2 * kLeastLength) return std::nullopt;
    bar.length = std::max(kLeastLength, bar.trackLength * shown / (shown + range));
    bar.start = bar.trackStart + bar.freeLength() * (view.documentVisibleRect().y - least) / range;
    return bar;
}

/// Whether something that is none of the view's own lies over the middle of what shows of the bar,
/// such as a sheet.
bool isCovered(const ScrollView& view, const Rect& bar) {
    const Rect visible = view.visibleRect();
    const double top = std::max(bar.y, visible.y);
    const double bottom = std::min(bar.bottom(), visible.bottom());
    const Point middle = view.convertToWindow(Point{bar.x + bar.width / 2, (top + bottom) / 2});
    const auto hit = view.window()->viewAt(middle);
    return hit && !hit->isDescendantOf(view);
}

void drawIn(views::View& view, views::Canvas& canvas, const Rect& dirty,
            const ScrollView* hovered) {
    for (const auto& inside : view.subviewsIn(dirty)) {
        const Rect& frame = inside->frame();
        const views::CanvasState state(canvas);
        canvas.translate(frame.x, frame.y);
        if (inside->clipsToBounds()) canvas.clip(inside->bounds());
        drawIn(*inside, canvas, dirty.movedBy(-frame.x, -frame.y), hovered);
        const auto* scrollView = dynamic_cast<const ScrollView*>(inside.get());
        const auto bar = scrollView ? barOf(*scrollView) : std::nullopt;
        if (!bar) continue;
        const bool wide = scrollView == hovered;
        const double width = wide ? kHoveredWidth : kWidth;
        const Rect rect = views::mirrored(
            {frame.width - width - kMargin, bar->start, width, bar->length}, frame.width);
        if (isCovered(*scrollView, rect)) continue;
        canvas.fillRoundedRect(
            rect, width / 2,
            views::theme().secondaryText.withAlpha(wide ? kHoveredOpacity : kOpacity));
    }
}

}  // namespace

void Scrollers::draw(views::Canvas& canvas, const Rect& dirty) const {
    drawIn(window_.root(), canvas, dirty, hovered_.lock().get());
}

std::shared_ptr<ScrollView> Scrollers::scrollViewWithBarAt(Point point) const {
    const auto hit = window_.viewAt(point);
    auto* view = dynamic_cast<ScrollView*>(hit.get());
    if (!view && hit) view = hit->enclosingScrollView();
    for (; view; view = view->enclosingScrollView()) {
        const Point inside = view->convertFromWindow(point);
        const auto bar = barOf(*view);
        if (!bar) continue;
        const double width = view->frame().width;
        const Rect reach{width - kReach, bar->start, kReach, bar->length};
        if (views::mirrored(reach, width).contains(inside))
            return std::static_pointer_cast<ScrollView>(view->shared_from_this());
    }
    return nullptr;
}

bool Scrollers::mouseDown(Point point) {
    const auto view = scrollViewWithBarAt(point);
    dragged_ = view;
    if (!view) return false;
    grip_ = view->convertFromWindow(point).y - barOf(*view)->start;
    setHovered(view);
    return true;
}

bool Scrollers::mouseDragged(Point point) {
    const auto view = dragged_.lock();
    const auto bar = view ? barOf(*view) : std::nullopt;
    if (!bar) return view != nullptr;
    const double least = view->leastOrigin().y;
    const double range = view->greatestOrigin().y - least;
    const double start = view->convertFromWindow(point).y - grip_ - bar->trackStart;
    // On whole points, or letters would blur.
    const double y = std::round(least + range * start / bar->freeLength());
    view->scrollTo({view->documentVisibleRect().x, y});
    return true;
}

bool Scrollers::mouseUp() {
    const bool taken = !dragged_.expired();
    dragged_.reset();
    return taken;
}

bool Scrollers::mouseMoved(Point point) {
    const auto view = scrollViewWithBarAt(point);
    setHovered(view);
    return view != nullptr;
}

void Scrollers::setHovered(const std::shared_ptr<ScrollView>& view) {
    const auto before = hovered_.lock();
    if (before == view) return;
    hovered_ = view;
    for (const auto& changed : {before, view})
        if (changed) changed->setNeedsDisplay();
}

}  // namespace corvane::qt
