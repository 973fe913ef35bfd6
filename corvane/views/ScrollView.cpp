#include "corvane/views/ScrollView.h"

#include "corvane/platform/NotificationCenter.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Theme.h"

#include <algorithm>

namespace corvane::views {

namespace {

/// Where the visible stretch must begin to show [start, start + length).
double nearestOrigin(double start, double length, double visibleStart, double visibleLength) {
    if (start < visibleStart || length > visibleLength) return start;
    return std::max(visibleStart, start + length - visibleLength);
}

}  // namespace

void ScrollView::setDocumentView(const std::shared_ptr<View>& view) {
    if (view == documentView_) return;
    if (documentView_) documentView_->removeFromSuperview();
    documentView_ = view;
    if (!view) return;
    addSubview(view);
    scrollTo(leastOrigin());
}

void ScrollView::setHasBorder(bool hasBorder) {
    const Point origin = documentVisibleRect().origin();
    hasBorder_ = hasBorder;
    scrollTo(origin);
    setNeedsDisplay();
}

Size ScrollView::contentSize() const {
    return {std::max(0.0, frame().width - 2 * border()),
            std::max(0.0, frame().height - 2 * border())};
}

void ScrollView::setContentInsets(const EdgeInsets& insets) {
    if (insets == contentInsets_) return;
    const bool atTop = documentVisibleRect().origin() == leastOrigin();
    contentInsets_ = insets;
    scrollTo(atTop ? leastOrigin() : documentVisibleRect().origin());
    platform::defaultNotificationCenter().post(kScrollViewInsetsDidChange, this);
}

Rect ScrollView::documentVisibleRect() const {
    const Size size = contentSize();
    if (!documentView_) return {0, 0, size.width, size.height};
    const Rect& document = documentView_->frame();
    return {border() - document.x, border() - document.y, size.width, size.height};
}

Point ScrollView::leastOrigin() const {
    return {-contentInsets_.left, -contentInsets_.top};
}

Point ScrollView::greatestOrigin() const {
    const Size document = documentView_ ? documentView_->frame().size() : Size{};
    const Size size = contentSize();
    const Point least = leastOrigin();
    return {std::max(least.x, document.width + contentInsets_.right - size.width),
            std::max(least.y, document.height + contentInsets_.bottom - size.height)};
}

void ScrollView::scrollTo(Point point) {
    if (!documentView_ || documentView_->superview() != this) return;
    const Point least = leastOrigin();
    const Point greatest = greatestOrigin();
    const double x = std::clamp(point.x, least.x, greatest.x);
    const double y = std::clamp(point.y, least.y, greatest.y);
    const Rect& frame = documentView_->frame();
    documentView_->setFrame({border() - x, border() - y, frame.width, frame.height});
}

void ScrollView::scrollBy(double dx, double dy) {
    scrollTo(documentVisibleRect().origin() + Point{dx, dy});
}

void ScrollView::scrollToShow(const Rect& rect) {
    const Rect visible = documentVisibleRect();
    const EdgeInsets& insets = contentInsets_;
    const double x = nearestOrigin(rect.x, rect.width, visible.x + insets.left,
                                   visible.width - insets.left - insets.right);
    const double y = nearestOrigin(rect.y, rect.height, visible.y + insets.top,
                                   visible.height - insets.top - insets.bottom);
    scrollTo({x - insets.left, y - insets.top});
}

void ScrollView::draw(Canvas& canvas, const Rect&) {
    if (hasBorder_) canvas.strokeRoundedRect(bounds(), 0, theme().border, 1);
}

void ScrollView::frameDidChange(const Rect& before) {
    if (before.size() == frame().size()) return;
    scrollTo(documentVisibleRect().origin());
    platform::defaultNotificationCenter().post(kScrollViewFrameDidChange, this);
}

void ScrollView::subviewFrameDidChange(View& view) {
    if (&view == documentView_.get()) scrollTo(documentVisibleRect().origin());
}

}  // namespace corvane::views
