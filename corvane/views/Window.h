// The root of a view tree: takes events, has the focus, and knows what must be drawn again.
#pragma once

#include "corvane/views/Alert.h"
#include "corvane/views/Drag.h"
#include "corvane/views/EventFollowers.h"
#include "corvane/views/FieldEditor.h"
#include "corvane/views/ModalViews.h"
#include "corvane/views/View.h"
#include "corvane/views/WindowParts.h"

#include <deque>
#include <memory>
#include <optional>

namespace corvane::views {

class WindowHost;

/// Whole without a screen: events go in, and what the views did can be asked. A host brings it to
/// one. It must outlive its views' being in it, not the views. One thread.
class Window {
  public:
    explicit Window(Size size = {});
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void setHost(WindowHost* host) { host_ = host; }  ///< null for none
    WindowHost& host() const;

    Size size() const { return root_->bounds().size(); }
    void setSize(Size size);
    /// The view that fills the window; null for none.
    const std::shared_ptr<View>& contentView() const { return contentView_; }
    void setContentView(const std::shared_ptr<View>& view);
    /// What holds the content, and floats above it.
    View& root() const { return *root_; }

    /// Whether the keys go to this window. Selections are dimmed elsewhere.
    bool isActive() const { return active_; }
    void setActive(bool active);

    // Focus.

    const std::shared_ptr<View> firstResponder() const { return firstResponder_.lock(); }
    /// Null takes the focus from everybody. False where the present one keeps it, or the new one
    /// does not want it, is not in this window or lies below a modal view.
    bool makeFirstResponder(const std::shared_ptr<View>& view);
    bool selectNextKeyViewOf(const View& view);
    bool selectPreviousKeyViewOf(const View& view);
    /// Of those that Tab may stop at, by their order in the tree.
    bool selectFirstKeyViewIn(const View& view);
    bool selectLastKeyViewIn(const View& view);
    /// From the content to what floats above it, from one to the next and back to the content: to
    /// where the focus was there last, and to the front with it. False where there is no other
    /// part that takes the focus, or the present one keeps it.
    bool selectNextPart() { return selectPart(true); }
    bool selectPreviousPart() { return selectPart(false); }
    FieldEditor& fieldEditor() { return fieldEditor_; }
    const FieldEditor& fieldEditor() const { return fieldEditor_; }

    // Events. They answer whether somebody was done with them.

    bool mouseDown(const MouseEvent& event);
    bool mouseDragged(const MouseEvent& event);
    bool mouseUp(const MouseEvent& event);
    /// The menu for what is at the place, shown by the host; null where there is none.
    std::shared_ptr<Menu> contextMenu(const MouseEvent& event);
    bool keyDown(const KeyEvent& event);
    std::shared_ptr<View> viewAt(Point point) const { return root_->hitTest(point); }
    EventFollowers& eventFollowers() { return eventFollowers_; }

    /// What takes events and keys for itself.
    ModalViews& modalViews() { return modalViews_; }

    /// Tells every view, superviews first. The host calls it when its font changes.
    void textSizesDidChange();

    // Drawing.

    void invalidate(const Rect& rect);
    /// What must be drawn again since the last call; empty where nothing must.
    Rect takeDirtyRect();
    void draw(Canvas& canvas, const Rect& dirty) { root_->drawTree(canvas, dirty); }

    // Sheets: one at a time, the others wait.

    void beginSheet(Alert alert, AlertCompletion completion);
    const Alert* sheet() const { return sheets_.empty() ? nullptr : &sheets_.front().alert; }
    /// Dismisses the sheet and tells whoever showed it. Nothing without one.
    void endSheet(int response);

    // Drags.

    void beginDragging(DragSession session);
    /// The last one that began here; null before.
    const std::shared_ptr<DragSession>& dragSession() const { return dragSession_; }
    DragOperation draggingMoved(DraggingInfo& info) { return dropRouter_.moved(*root_, info); }
    void draggingExited(DraggingInfo& info) { dropRouter_.exited(info); }
    bool drop(DraggingInfo& info);

    /// Of View and ModalViews alone: the view is about to leave, to be hidden or to be covered.
    void willRemove(const View& view);

  private:
    class Root;
    struct Sheet {
        Alert alert;
        AlertCompletion completion;
    };

    bool selectKeyView(const std::shared_ptr<View>& view);
    bool selectPart(bool forward);
    /// Of whoever it is, or only within a view.
    bool resignFirstResponder(const View* within, bool evenIfRefused);

    WindowHost* host_ = nullptr;
    std::shared_ptr<View> root_;
    std::shared_ptr<View> contentView_;
    std::weak_ptr<View> firstResponder_;
    std::weak_ptr<View> captured_;  ///< gets what the pointer does until it is released
    FieldEditor fieldEditor_{*this};
    ModalViews modalViews_{*this};
    WindowParts parts_{*this};
    Rect dirty_;
    std::deque<Sheet> sheets_;
    std::shared_ptr<DragSession> dragSession_;
    DropRouter dropRouter_;
    EventFollowers eventFollowers_;
    bool active_ = true;
};

}  // namespace corvane::views
