#include "corvane/views/Drag.h"

#include <algorithm>

namespace corvane::views {

namespace {

bool takes(const View& view, const platform::Pasteboard& pasteboard) {
    const auto& types = view.registeredDraggedTypes();
    return std::any_of(types.begin(), types.end(),
                       [&](const std::string& type) { return pasteboard.hasType(type); });
}

std::shared_ptr<View> targetAt(View& root, const DraggingInfo& info) {
    const auto hit = root.hitTest(info.draggingLocation());
    for (View* view = hit.get(); view; view = view->superview())
        if (takes(*view, info.draggingPasteboard())) return view->shared_from_this();
    return nullptr;
}

}  // namespace

DragOperation DropRouter::moved(View& root, DraggingInfo& info) {
    const auto target = targetAt(root, info);
    if (!target || target != target_.lock()) {
        exited(info);
        target_ = target;
        if (!target || target->draggingEntered(info) == kDragOperationNone)
            return kDragOperationNone;
    }
    return target->draggingUpdated(info);
}

void DropRouter::exited(DraggingInfo& info) {
    const auto target = target_.lock();
    target_.reset();
    if (target) target->draggingExited(info);
}

bool DropRouter::dropped(View& root, DraggingInfo& info) {
    if (moved(root, info) == kDragOperationNone) {
        exited(info);
        return false;
    }
    const auto target = target_.lock();
    target_.reset();
    if (!target) return false;
    if (!target->prepareForDragOperation(info)) {
        target->draggingExited(info);
        return false;
    }
    const bool done = target->performDragOperation(info);
    if (done) target->concludeDragOperation(info);
    return done;
}

}  // namespace corvane::views
