// A drag as its source starts it, and as whoever it is over sees it.
#pragma once

#include "corvane/platform/Pasteboard.h"
#include "corvane/platform/Point.h"
#include "corvane/views/View.h"

#include <memory>
#include <utility>

namespace corvane::views {

/// From a view of this process. Held by std::shared_ptr, by whoever carries the drag out.
struct DragSession {
    std::shared_ptr<View> source;
    platform::Pasteboard pasteboard;
    std::shared_ptr<View> picture;  ///< what is drawn below the pointer; often the source itself
    platform::Point start;          ///< where it was picked up, in the window of the source

    /// Tells the source. Called once, however the drag ended.
    void end(DragOperation operation) const {
        if (source) source->draggingSessionEnded(operation);
    }
};

/// Where a drag is, and what it brings.
class DraggingInfo {
  public:
    /// Of a drag from elsewhere.
    explicit DraggingInfo(platform::Pasteboard pasteboard, platform::Point locationInWindow = {})
        : pasteboard_(std::move(pasteboard)), location_(locationInWindow) {}
    /// Of a drag from this process.
    explicit DraggingInfo(const DragSession& session, platform::Point locationInWindow = {})
        : pasteboard_(session.pasteboard), source_(session.source), location_(locationInWindow) {}

    const platform::Pasteboard& draggingPasteboard() const { return pasteboard_; }
    platform::Point draggingLocation() const { return location_; }
    void setDraggingLocation(platform::Point locationInWindow) { location_ = locationInWindow; }
    /// Null for a drag from elsewhere.
    const std::shared_ptr<View>& draggingSource() const { return source_; }

  private:
    platform::Pasteboard pasteboard_;
    std::shared_ptr<View> source_;
    platform::Point location_;
};

/// Finds who a drag is over, and tells whoever it comes to and leaves. Of one window.
class DropRouter {
  public:
    /// The drag has come, or moved. Answers what a drop would do here.
    DragOperation moved(View& root, DraggingInfo& info);
    /// The drag has left the window or was given up.
    void exited(DraggingInfo& info);
    /// Whether somebody took what was dropped.
    bool dropped(View& root, DraggingInfo& info);

  private:
    std::weak_ptr<View> target_;
};

}  // namespace corvane::views
