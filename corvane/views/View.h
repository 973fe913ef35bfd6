// A node of the tree that a window shows: a rectangle that draws, takes events and holds others.
#pragma once

#include "corvane/platform/Point.h"
#include "corvane/platform/Rect.h"
#include "corvane/platform/Size.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::views {

using platform::Point;
using platform::Rect;
using platform::Size;

class Canvas;
class DraggingInfo;
class KeyEvent;
class Menu;
class MouseEvent;
class ScrollView;
class Window;
enum class Command;
enum class Cursor { Arrow, Text, PointingHand, ResizeLeftRight, ResizeUpDown };

/// Bits; the platform's codes for what a drop would do.
using DragOperation = std::uint64_t;
inline constexpr DragOperation kDragOperationNone = 0;
inline constexpr DragOperation kDragOperationGeneric = 4;

/// What a view is to assistive technology. None is passed over, its subviews are not.
enum class Role {
    None,
    Group,
    Text,
    TextField,
    Button,
    CheckBox,
    Switch,
    RadioGroup,
    RadioButton,
    PopUpButton,
    Image,
    ProgressBar,
    Row,
    Header,
    Table,
    List,
    Toolbar,
    StatusBar,
    Splitter,
    Dialog,
};

/// What of a view has changed for assistive technology.
enum class AccessibilityChange { Name, Value, Checked, Selected, Enabled };

/// Coordinates count from the upper left corner, y downwards. A view owns its subviews; whoever
/// else wants to keep one holds a share. Made by std::make_shared. One thread, the one of the
/// window.
///
/// Tables have tens of thousands of these: what few views need is kept apart.
class View : public std::enable_shared_from_this<View> {
  public:
    View();
    explicit View(const Rect& frame);
    virtual ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    // The tree.

    View* superview() const { return superview_; }
    /// From the lowest to the topmost. Valid until a subview comes or goes.
    const std::vector<std::shared_ptr<View>>& subviews() const;
    /// Takes the view out of its tree and puts it last, which is on top. A view that holds this one
    /// is not taken.
    void addSubview(const std::shared_ptr<View>& view);
    /// In constant time. The focus leaves the view first.
    void removeFromSuperview();
    /// Over or below all that the superview holds; nothing without one. Keeps the focus.
    void bringToFront();
    void sendToBack();
    /// A view is its own descendant.
    bool isDescendantOf(const View& ancestor) const;
    /// The window at the root of the tree; null outside of one.
    virtual Window* window() const { return superview_ ? superview_->window() : nullptr; }
    /// The nearest scroll view around this one; null where there is none.
    ScrollView* enclosingScrollView() const;
    /// Called when it has come into another superview, or into none.
    virtual void didMoveToSuperview() {}
    /// Called when the view, or one around it, is about to come into another window or into none,
    /// and when it has.
    virtual void willMoveToWindow(Window*) {}
    virtual void didMoveToWindow() {}

    // Geometry.

    /// In the superview's coordinates.
    const Rect& frame() const { return frame_; }
    Rect bounds() const { return {0, 0, frame_.width, frame_.height}; }
    void setFrame(const Rect& frame);
    void setFrameSize(Size size) { setFrame({frame_.x, frame_.y, size.width, size.height}); }
    Point convertToWindow(Point point) const;
    Point convertFromWindow(Point point) const;
    Rect convertToWindow(const Rect& rect) const;
    /// The part of the bounds that no ancestor clips away; nothing of a hidden view.
    Rect visibleRect() const;
    /// Both do nothing outside of a scroll view.
    void scrollPoint(Point point);
    void scrollRectToVisible(const Rect& rect);

    virtual Size preferredSizeThatFits(Size available) { return available; }
    /// Brings positions up to date where they are put off. Drawing and hit tests do so themselves.
    virtual void layoutIfNeeded() {}
    /// Called when texts have other sizes than before, as with a new font: for whatever was
    /// measured or placed by them.
    virtual void textSizesDidChange() {}

    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    bool isHiddenOrHasHiddenAncestor() const;

    // Drawing.

    void setNeedsDisplay() { setNeedsDisplay(bounds()); }
    void setNeedsDisplay(const Rect& rect);
    /// Draws the view and what it holds, as far as it lies in the rectangle.
    void drawTree(Canvas& canvas, const Rect& dirty);
    /// The view's own drawing, in its own coordinates, below and above its subviews.
    virtual void draw(Canvas&, const Rect& /*dirty*/) {}
    virtual void drawAboveSubviews(Canvas&, const Rect& /*dirty*/) {}
    /// Whether subviews are cut off at the bounds.
    virtual bool clipsToBounds() const { return false; }
    /// Subviews that are not hidden and may meet the rectangle, from the lowest to the topmost. A
    /// view with many overrides this, so that drawing and hits cost what is to be seen.
    virtual std::vector<std::shared_ptr<View>> subviewsIn(const Rect& rect) const;
    /// Whether what lies behind the window may shine through.
    virtual bool allowsVibrancy() const { return false; }

    // Events. They answer whether they are done with the event; otherwise it goes to the superview.

    /// The topmost view at the point, which is in the superview's coordinates; null outside.
    virtual std::shared_ptr<View> hitTest(Point point);
    /// Who is done with this one also gets the movements that follow, and the release.
    virtual bool mouseDown(const MouseEvent&) { return false; }
    virtual bool mouseDragged(const MouseEvent&) { return false; }
    virtual bool mouseUp(const MouseEvent&) { return false; }
    /// In the place of the release, where the view goes away before it, is hidden or is covered by
    /// a modal view.
    virtual void mouseWasLost() {}
    virtual std::shared_ptr<Menu> menuForEvent(const MouseEvent&) { return nullptr; }
    virtual bool keyDown(const KeyEvent&) { return false; }
    /// What a key is bound to, or typed; see interpretKeyEvent.
    virtual bool doCommand(Command) { return false; }
    virtual bool insertText(std::string_view) { return false; }
    /// Turns a key into a call of doCommand or insertText of this view.
    bool interpretKeyEvent(const KeyEvent& event);

    virtual Cursor cursorAt(Point) const { return Cursor::Arrow; }
    virtual std::string toolTip() const;
    void setToolTip(std::string text);

    // Focus. The window has one first responder; the key-view chain leads from field to field.

    virtual bool acceptsFirstResponder() const { return false; }
    virtual bool becomeFirstResponder() { return true; }
    virtual bool resignFirstResponder() { return true; }
    bool isFirstResponder() const;
    /// Whether Tab may stop here.
    virtual bool canBecomeKeyView() const;
    std::shared_ptr<View> nextKeyView() const;
    std::shared_ptr<View> previousKeyView() const;
    /// Virtual for a view that stands in the chain for several (CompoundView.h).
    virtual void setNextKeyView(const std::shared_ptr<View>& view);
    /// The nearest one in the chain that Tab may stop at; null where there is none but this one.
    std::shared_ptr<View> nextValidKeyView() const;
    std::shared_ptr<View> previousValidKeyView() const;

    // As the target of a drag. The types are matched against what is dragged.

    void registerForDraggedTypes(std::vector<std::string> types);
    const std::vector<std::string>& registeredDraggedTypes() const;
    virtual DragOperation draggingEntered(DraggingInfo&) { return kDragOperationNone; }
    virtual DragOperation draggingUpdated(DraggingInfo&) { return kDragOperationNone; }
    virtual void draggingExited(DraggingInfo&) {}
    virtual bool wantsPeriodicDraggingUpdates() const { return true; }
    virtual bool prepareForDragOperation(DraggingInfo&) { return true; }
    virtual bool performDragOperation(DraggingInfo&) { return false; }
    virtual void concludeDragOperation(DraggingInfo&) {}
    /// As the source: the drag is over, with the operation that the target did.
    virtual void draggingSessionEnded(DragOperation) {}

    // Assistive technology.

    virtual Role accessibilityRole() const { return Role::None; }
    virtual std::string accessibilityName() const;
    void setAccessibilityName(std::string name);
    virtual std::string accessibilityValue() const { return {}; }
    /// The value of what can be measured, whose text is as the locale writes it: how far something
    /// is, in percent, and of a divider where it is, in points. None for anything else.
    virtual std::optional<double> accessibilityNumber() const { return {}; }
    virtual bool accessibilitySelected() const { return false; }
    /// None for what is neither on nor off.
    virtual std::optional<bool> accessibilityChecked() const { return {}; }
    virtual bool accessibilityEnabled() const { return true; }
    /// Whether accessibilityPress does what a click does.
    virtual bool accessibilityCanPress() const { return false; }
    virtual void accessibilityPress() {}
    /// For the view itself to call after the change.
    void accessibilityDidChange(AccessibilityChange change);

  protected:
    virtual void frameDidChange(const Rect& /*before*/) {}
    virtual void subviewFrameDidChange(View&) {}

  private:
    friend class LayoutableView;
    friend class Window;
    struct Rarities;
    Rarities& rarities();
    std::shared_ptr<View> validKeyView(std::shared_ptr<View> (View::*step)() const) const;
    void closeGaps() const;
    void takeOut();
    /// To the view and all that it holds: willMoveToWindow, and didMoveToWindow.
    void announceWindow(Window* window);
    void announceMove();

    View* superview_ = nullptr;
    /// Subviews that have gone leave gaps, which close when somebody looks.
    mutable std::vector<std::shared_ptr<View>> subviews_;
    Rect frame_;
    std::unique_ptr<Rarities> rarities_;
    std::uint32_t position_ = 0;  ///< in the superview's list
    mutable std::uint32_t gaps_ = 0;
    bool hidden_ = false;

  protected:
    // Here because they cost nothing beside the one above. Of LayoutableView alone.
    bool layoutNeeded_ = false;
    bool layoutQueued_ = false;
};

}  // namespace corvane::views
