#include "corvane/views/ModalViews.h"

#include "corvane/views/Window.h"

#include <algorithm>

namespace corvane::views {

std::shared_ptr<View> ModalViews::current() const {
    return views_.empty() ? nullptr : views_.front();
}

bool ModalViews::isWaiting(const View& view) const {
    return std::any_of(views_.begin(), views_.end(),
                       [&](const auto& held) { return held.get() == &view && !held->superview(); });
}

void ModalViews::begin(const std::shared_ptr<View>& view) {
    if (!view || view == current() || isWaiting(*view)) return;
    views_.push_back(view);
    if (views_.size() > 1) return;
    focusBefore_ = window_.firstResponder();
    present();
}

void ModalViews::present() {
    const auto view = current();
    // Whoever has the focus cannot refuse: it lies below.
    for (const auto& below : std::vector(window_.root().subviews()))
        window_.willRemove(*below);
    // Whoever lost the focus may have ended it, and begun it again.
    if (view != current() || view->superview() == &window_.root()) return;
    view->setFrame(window_.root().bounds());
    window_.root().addSubview(view);
    if (view == current()) window_.selectFirstKeyViewIn(*view);
}

void ModalViews::end(const View& view) {
    if (&view == current().get() && view.superview()) return current()->removeFromSuperview();
    const auto before = current();
    std::erase_if(views_, [&](const auto& held) { return held.get() == &view; });
    if (current() && current() != before) present();  // it was about to be shown
}

void ModalViews::willRemove(const View& view) {
    if (&view != current().get() || view.superview() != &window_.root()) return;
    views_.pop_front();
    if (!views_.empty()) return present();
    if (const auto before = focusBefore_.lock()) window_.makeFirstResponder(before);
}

bool ModalViews::admits(const View& view) const {
    const auto modal = current();
    if (!modal || modal->superview() != &window_.root()) return true;
    const auto& layers = window_.root().subviews();
    const auto first = std::find(layers.begin(), layers.end(), modal);
    return std::any_of(first, layers.end(),
                       [&](const auto& layer) { return view.isDescendantOf(*layer); });
}

void ModalViews::fillWindow() {
    if (const auto view = current()) view->setFrame(window_.root().bounds());
}

}  // namespace corvane::views
