#include "corvane/views/CompoundView.h"

#include <utility>

namespace corvane::views {

void CompoundView::setNextKeyView(const std::shared_ptr<View>& view) {
    behind_ = view;
    link();
}

void CompoundView::didMoveToSuperview() {
    LayoutableView::didMoveToSuperview();
    // A constructor cannot say yet whom the first part comes after. Later others may have been put
    // into the chain.
    const auto first = nextKeyView();
    if (first && !first->previousKeyView()) link();
}

void CompoundView::setKeyViewParts(const std::vector<std::shared_ptr<View>>& parts) {
    // Those that are no parts any more lead nowhere, unless they are somebody else's by now.
    for (const auto& weak : parts_) {
        const auto part = weak.lock();
        if (part && (!part->superview() || part->isDescendantOf(*this)))
            part->setNextKeyView(nullptr);
    }
    parts_.clear();
    for (const auto& part : parts)
        if (part) parts_.push_back(part);
    link();
}

bool CompoundView::replaceSubview(std::shared_ptr<View>& held, const std::shared_ptr<View>& view) {
    if (view == held && (!view || view->superview() == this)) return false;
    if (view && isDescendantOf(*view)) return false;
    const auto before = std::exchange(held, view);
    if (before && before != view && before->superview() == this) before->removeFromSuperview();
    // Whoever lost the focus may have put in another one.
    if (held != view) return false;
    addSubview(view);
    return true;
}

void CompoundView::preferredSizeDidChange() {
    setNeedsApplyLayout();
    setNeedsDisplay();
    if (auto* above = dynamic_cast<LayoutableView*>(superview())) above->setNeedsApplyLayout();
}

void CompoundView::link() {
    // A view that is a part of one of its own parts, by mistake, would link without end.
    if (std::exchange(isLinking_, true)) return;
    const auto behind = behind_.lock();
    std::shared_ptr<View> last;
    for (const auto& weak : parts_) {
        const auto part = weak.lock();
        if (!part || part == last) continue;
        if (last) {
            last->setNextKeyView(part);
        } else {
            View::setNextKeyView(part);
        }
        last = part;
    }
    if (last) {
        last->setNextKeyView(behind);
    } else {
        View::setNextKeyView(behind);
    }
    isLinking_ = false;
}

}  // namespace corvane::views
