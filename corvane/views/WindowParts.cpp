#include "corvane/views/WindowParts.h"

#include "corvane/views/Window.h"

#include <algorithm>

namespace corvane::views {

void WindowParts::update() {
    std::erase_if(parts_, [&](const Part& part) {
        const auto view = part.view.lock();
        return !view || view->superview() != &window_.root();
    });
    for (const auto& view : window_.root().subviews()) {
        const bool isKnown = std::any_of(parts_.begin(), parts_.end(), [&](const Part& part) {
            return part.view.lock() == view;
        });
        const bool isContent = view == window_.contentView();
        if (!isKnown) parts_.insert(isContent ? parts_.begin() : parts_.end(), Part{view, {}});
    }
}

std::vector<std::shared_ptr<View>> WindowParts::allFrom(const View* view, bool forward) {
    update();
    std::vector<std::shared_ptr<View>> all;
    for (const Part& part : parts_)
        all.push_back(part.view.lock());
    if (!forward) std::reverse(all.begin(), all.end());
    const auto present = std::find_if(all.begin(), all.end(), [&](const auto& part) {
        return view && view->isDescendantOf(*part);
    });
    if (present == all.end()) return all;
    std::rotate(all.begin(), present, all.end());
    all.erase(all.begin());
    return all;
}

std::shared_ptr<View> WindowParts::lastFocusIn(const View& part) const {
    for (const Part& known : parts_) {
        if (known.view.lock().get() != &part) continue;
        const auto focus = known.lastFocus.lock();
        return focus && focus->isDescendantOf(part) && focus->canBecomeKeyView() ? focus : nullptr;
    }
    return nullptr;
}

void WindowParts::focusDidMove(const std::shared_ptr<View>& view) {
    if (!view) return;
    update();
    for (Part& part : parts_)
        if (const auto root = part.view.lock(); root && view->isDescendantOf(*root))
            part.lastFocus = view;
}

}  // namespace corvane::views
