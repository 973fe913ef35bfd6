#include "corvane/views/View.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

namespace {

Rect intersection(const Rect& a, const Rect& b) {
    const double x = std::max(a.x, b.x);
    const double y = std::max(a.y, b.y);
    return {x, y, std::min(a.right(), b.right()) - x, std::min(a.bottom(), b.bottom()) - y};
}

}  // namespace

/// What few views have.
struct View::Rarities {
    std::weak_ptr<View> nextKeyView;
    std::weak_ptr<View> previousKeyView;
    std::string toolTip;
    std::string accessibilityName;
    std::vector<std::string> draggedTypes;
};

View::View() = default;

View::View(const Rect& frame) : frame_(frame) {}

View::~View() {
    for (const auto& view : subviews_)
        if (view) view->superview_ = nullptr;
}

View::Rarities& View::rarities() {
    if (!rarities_) rarities_ = std::make_unique<Rarities>();
    return *rarities_;
}

// The tree.

void View::closeGaps() const {
    std::erase(subviews_, nullptr);
    for (std::uint32_t i = 0; i < subviews_.size(); ++i)
        subviews_[i]->position_ = i;
    gaps_ = 0;
}

const std::vector<std::shared_ptr<View>>& View::subviews() const {
    if (gaps_ > 0) closeGaps();
    return subviews_;
}

void View::addSubview(const std::shared_ptr<View>& view) {
    if (!view || isDescendantOf(*view)) return;
    view->removeFromSuperview();
    Window* window = this->window();
    if (window && !view->superview_) view->announceWindow(window);
    // Whoever lost the focus, or was told, may have put it elsewhere.
    if (view->superview_ || isDescendantOf(*view)) return;
    window = this->window();
    view->superview_ = this;
    view->position_ = static_cast<std::uint32_t>(subviews_.size());
    subviews_.push_back(view);
    view->didMoveToSuperview();
    if (window && view->superview_ == this) view->announceMove();
    view->setNeedsDisplay();
}

void View::removeFromSuperview() {
    if (!superview_) return;
    const auto keepAlive = superview_->subviews_[position_];
    const bool leavesWindow = this->window() != nullptr;
    if (leavesWindow) {
        announceWindow(nullptr);
        if (Window* window = this->window()) window->willRemove(*this);
    }
    if (!superview_) return;  // whoever was told, or lost the focus, did it already
    setNeedsDisplay();
    takeOut();
    didMoveToSuperview();
    if (leavesWindow) announceMove();
}

void View::announceWindow(Window* window) {
    willMoveToWindow(window);
    if (subviews_.empty()) return;
    for (const auto& view : std::vector(subviews()))
        if (view->superview_ == this) view->announceWindow(window);
}

void View::announceMove() {
    didMoveToWindow();
    if (subviews_.empty()) return;
    for (const auto& view : std::vector(subviews()))
        if (view->superview_ == this) view->announceMove();
}

void View::bringToFront() {
    if (!superview_) return;
    auto& views = superview_->subviews_;
    superview_->closeGaps();
    std::rotate(views.begin() + position_, views.begin() + position_ + 1, views.end());
    superview_->closeGaps();  // numbers them anew
    setNeedsDisplay();
}

void View::sendToBack() {
    if (!superview_) return;
    auto& views = superview_->subviews_;
    superview_->closeGaps();
    std::rotate(views.begin(), views.begin() + position_, views.begin() + position_ + 1);
    superview_->closeGaps();
    setNeedsDisplay();
}

void View::takeOut() {
    View& from = *std::exchange(superview_, nullptr);
    from.subviews_[position_] = nullptr;
    ++from.gaps_;
    while (!from.subviews_.empty() && !from.subviews_.back()) {
        from.subviews_.pop_back();
        --from.gaps_;
    }
}

bool View::isDescendantOf(const View& ancestor) const {
    for (const View* view = this; view; view = view->superview_)
        if (view == &ancestor) return true;
    return false;
}

ScrollView* View::enclosingScrollView() const {
    for (View* view = superview_; view; view = view->superview_)
        if (auto* scrollView = dynamic_cast<ScrollView*>(view)) return scrollView;
    return nullptr;
}

// Geometry.

void View::setFrame(const Rect& frame) {
    if (frame == frame_) return;
    setNeedsDisplay();
    const Rect before = std::exchange(frame_, frame);
    setNeedsDisplay();
    frameDidChange(before);
    if (superview_ && before.size() != frame.size()) superview_->subviewFrameDidChange(*this);
}

Point View::convertToWindow(Point point) const {
    for (const View* view = this; view; view = view->superview_)
        point = point + view->frame_.origin();
    return point;
}

Point View::convertFromWindow(Point point) const {
    return point - convertToWindow(Point{0, 0});
}

Rect View::convertToWindow(const Rect& rect) const {
    const Point origin = convertToWindow(Point{0, 0});
    return rect.movedBy(origin.x, origin.y);
}

Rect View::visibleRect() const {
    Rect visible = bounds();
    double dx = 0;
    double dy = 0;
    for (const View* view = this; view; view = view->superview_) {
        if (view->hidden_) return {};
        if (view->clipsToBounds() || !view->superview_)
            visible = intersection(visible, view->bounds().movedBy(dx, dy));
        dx -= view->frame_.x;
        dy -= view->frame_.y;
    }
    return visible.isEmpty() ? Rect{} : visible;
}

void View::scrollPoint(Point point) {
    ScrollView* scrollView = enclosingScrollView();
    if (!scrollView || !scrollView->documentView()) return;
    scrollView->scrollTo(scrollView->documentView()->convertFromWindow(convertToWindow(point)));
}

void View::scrollRectToVisible(const Rect& rect) {
    ScrollView* scrollView = enclosingScrollView();
    if (!scrollView || !scrollView->documentView()) return;
    const Rect inWindow = convertToWindow(rect);
    const Point origin = scrollView->documentView()->convertFromWindow(inWindow.origin());
    scrollView->scrollToShow({origin.x, origin.y, rect.width, rect.height});
}

void View::setHidden(bool hidden) {
    if (hidden == hidden_) return;
    const auto keepAlive = weak_from_this().lock();  // whoever loses the focus may take it out
    if (hidden) {
        setNeedsDisplay();
        if (Window* window = this->window()) window->willRemove(*this);
    }
    hidden_ = hidden;
    setNeedsDisplay();
}

bool View::isHiddenOrHasHiddenAncestor() const {
    for (const View* view = this; view; view = view->superview_)
        if (view->hidden_) return true;
    return false;
}

// Drawing.

void View::setNeedsDisplay(const Rect& rect) {
    if (rect.isEmpty()) return;  // of views that have no place yet, thousands ask
    Rect dirty = rect;
    for (const View* view = this; !view->hidden_; view = view->superview_) {
        if (view->clipsToBounds()) dirty = intersection(dirty, view->bounds());
        if (dirty.isEmpty()) return;
        dirty = dirty.movedBy(view->frame_.x, view->frame_.y);
        if (view->superview_) continue;
        if (Window* window = view->window()) window->invalidate(dirty);
        return;
    }
}

std::vector<std::shared_ptr<View>> View::subviewsIn(const Rect& rect) const {
    std::vector<std::shared_ptr<View>> result;
    for (const auto& view : subviews())
        if (!view->hidden_ && view->frame_.intersects(rect)) result.push_back(view);
    return result;
}

void View::drawTree(Canvas& canvas, const Rect& dirty) {
    layoutIfNeeded();
    const CanvasState state(canvas);
    if (clipsToBounds()) canvas.clip(bounds());
    draw(canvas, dirty);
    for (const auto& view : subviewsIn(dirty)) {
        const Rect frame = view->frame();
        const CanvasState moved(canvas);
        canvas.translate(frame.x, frame.y);
        view->drawTree(canvas, intersection(dirty, frame).movedBy(-frame.x, -frame.y));
    }
    drawAboveSubviews(canvas, dirty);
}

// Events.

std::shared_ptr<View> View::hitTest(Point point) {
    if (hidden_ || !frame_.contains(point)) return nullptr;
    layoutIfNeeded();
    const Point inside = point - frame_.origin();
    const auto candidates = subviewsIn({inside.x, inside.y, 1, 1});
    for (auto view = candidates.rbegin(); view != candidates.rend(); ++view)
        if (auto hit = (*view)->hitTest(inside)) return hit;
    return shared_from_this();
}

bool View::interpretKeyEvent(const KeyEvent& event) {
    const auto keepAlive = weak_from_this().lock();
    if (const auto command = commandForKey(event)) {
        if (doCommand(*command)) return true;
        return *command == Command::CancelOperation && doCommand(Command::Complete);
    }
    return event.isText() && insertText(event.characters());
}

std::string View::toolTip() const {
    return rarities_ ? rarities_->toolTip : std::string();
}

void View::setToolTip(std::string text) {
    rarities().toolTip = std::move(text);
}

// Focus.

bool View::isFirstResponder() const {
    const Window* window = this->window();
    return window && window->firstResponder().get() == this;
}

bool View::canBecomeKeyView() const {
    return acceptsFirstResponder() && window() && !isHiddenOrHasHiddenAncestor();
}

std::shared_ptr<View> View::nextKeyView() const {
    return rarities_ ? rarities_->nextKeyView.lock() : nullptr;
}

std::shared_ptr<View> View::previousKeyView() const {
    return rarities_ ? rarities_->previousKeyView.lock() : nullptr;
}

void View::setNextKeyView(const std::shared_ptr<View>& view) {
    const auto before = nextKeyView();
    // Which may have been given another predecessor meanwhile.
    if (before && before->previousKeyView().get() == this)
        before->rarities().previousKeyView.reset();
    rarities().nextKeyView = view;
    if (view) view->rarities().previousKeyView = weak_from_this();
}

std::shared_ptr<View> View::validKeyView(std::shared_ptr<View> (View::*step)() const) const {
    // A chain may lead into a ring that does not come back here: the slow one meets the fast one.
    auto slow = (this->*step)();
    auto view = slow;
    for (bool slowMoves = false; view && view.get() != this; slowMoves = !slowMoves) {
        if (view->canBecomeKeyView()) return view;
        view = (view.get()->*step)();
        if (slowMoves) slow = (slow.get()->*step)();
        if (view == slow && slowMoves) break;
    }
    return nullptr;
}

std::shared_ptr<View> View::nextValidKeyView() const {
    return validKeyView(&View::nextKeyView);
}

std::shared_ptr<View> View::previousValidKeyView() const {
    return validKeyView(&View::previousKeyView);
}

// Drags and assistive technology.

void View::registerForDraggedTypes(std::vector<std::string> types) {
    rarities().draggedTypes = std::move(types);
}

const std::vector<std::string>& View::registeredDraggedTypes() const {
    static const std::vector<std::string> none;
    return rarities_ ? rarities_->draggedTypes : none;
}

std::string View::accessibilityName() const {
    return rarities_ ? rarities_->accessibilityName : std::string();
}

void View::setAccessibilityName(std::string name) {
    if (name == rarities().accessibilityName) return;
    rarities().accessibilityName = std::move(name);
    accessibilityDidChange(AccessibilityChange::Name);
}

void View::accessibilityDidChange(AccessibilityChange change) {
    if (Window* shown = window()) shown->host().accessibilityDidChange(*this, change);
}

}  // namespace corvane::views
