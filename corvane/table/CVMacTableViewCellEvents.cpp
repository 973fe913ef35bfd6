// What clicks and keys in a row become.

#include "corvane/platform/RunLoop.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Window.h"

#include <cmath>

namespace corvane {

namespace {

/// How far the pointer may slip during a click.
constexpr double kDragDistance = 4;

using Mode = CVMacTableViewSelectionMode;

}  // namespace

// The pointer.

bool CVMacTableViewCell::mouseDown(const views::MouseEvent& event) {
    mouseDownLocation_ = convertFromWindow(event.locationInWindow());
    didEndDraggingOperation_ = false;
    return true;
}

bool CVMacTableViewCell::mouseDragged(const views::MouseEvent& event) {
    const views::Point moved = convertFromWindow(event.locationInWindow()) - mouseDownLocation_;
    if (std::hypot(moved.x, moved.y) < kDragDistance || activeDragSource_ || !allowsStartDrag())
        return false;
    startDrag();
    return true;
}

bool CVMacTableViewCell::mouseUp(const views::MouseEvent& event) {
    const auto keepAlive = shared_from_this();
    const views::Point location = convertFromWindow(event.locationInWindow());
    takeFocus();
    if (!bounds().contains(location)) return true;
    clickLocation_ = location;
    clickModifierFlags_ = event.modifierFlags();
    delegateSelectionEventWithModifierFlags(clickModifierFlags_);
    const auto table = delegate();
    if (event.clickCount() == 1) {
        if (table && accessoryContains(location))
            table->willTapAccessoryButtonForRowWithIndexPath(indexPath());
        scheduleClick();
    } else if (event.clickCount() == 2) {
        withdrawClick();
        mouseDoubleClickedAtLocation(location, clickModifierFlags_);
    }
    return true;
}

void CVMacTableViewCell::scheduleClick() {
    withdrawClick();
    clickPending_ = true;
    platform::mainRunLoop().callAfterDelay(
        views::doubleClickInterval(), this, [weak = weak_from_this()] {
            const auto view = weak.lock();
            if (!view) return;
            auto& cell = static_cast<CVMacTableViewCell&>(*view);
            cell.clickPending_ = false;
            cell.mouseClickedAtLocation(cell.clickLocation_, cell.clickModifierFlags_);
        });
}

void CVMacTableViewCell::withdrawClick() {
    if (clickPending_) platform::mainRunLoop().cancelCalls(this);
    clickPending_ = false;
}

void CVMacTableViewCell::mouseClickedAtLocation(views::Point location, std::uint64_t) {
    const auto table = delegate();
    if (table && accessoryContains(location))
        table->accessoryButtonTappedForRowWithIndexPath(indexPath());
}

void CVMacTableViewCell::mouseDoubleClickedAtLocation(views::Point location, std::uint64_t) {
    const auto table = delegate();
    if (!table) return;
    if (accessoryContains(location)) {
        table->accessoryButtonDoubleTappedForRowWithIndexPath(indexPath());
    } else {
        table->didDoubleClickRowAtIndexPath(indexPath());
    }
}

bool CVMacTableViewCell::accessoryContains(views::Point point) const {
    return accessoryView_ && !accessoryView_->isHidden() && accessoryView_->frame().contains(point);
}

void CVMacTableViewCell::delegateSelectionEventWithModifierFlags(std::uint64_t flags) {
    const auto table = delegate();
    if (!table) return;
    Mode mode = Mode::Alone;
    if (table->tableViewAllowsMultipleSelections()) {
        if (flags & views::kModifierShift) {
            mode = Mode::Range;
        } else if (flags & views::kModifierCommand) {
            mode = selected_ ? Mode::Remove : Mode::Add;
        }
    }
    table->didSelectRowAtIndexPath(indexPath(), mode);
}

std::shared_ptr<views::Menu> CVMacTableViewCell::menuForEvent(const views::MouseEvent& event) {
    const auto table = delegate();
    if (!table) return nullptr;
    if (accessoryContains(convertFromWindow(event.locationInWindow())))
        if (auto menu = table->contextMenuForAccessoryViewOfCell(*this)) return menu;
    return table->contextMenuForCell(*this);
}

// Drags.

bool CVMacTableViewCell::allowsStartDrag() const {
    const auto table = std::dynamic_pointer_cast<CVMacTableView>(delegate());
    return table &&
           ask(table->delegate(), &CVMacTableViewDelegate::tableViewAllowsStartDrag, false, *table);
}

void CVMacTableViewCell::startDrag() {
    const auto keepAlive = shared_from_this();
    const auto table = delegate();
    if (!selected_) delegateSelectionEventWithModifierFlags(0);
    auto paths = table->allIndexPathsForSelectedRows();
    if (paths.empty()) paths.insert(indexPath());  // the selection was vetoed
    platform::Pasteboard pasteboard;
    for (const CVIndexPath& path : paths) {
        CVIndexPath dragged = path;
        dragged.setPasteboardText(table->cellDragableTextForRowAtIndexPath(*this, path));
        pasteboard.writeObject(dragged);
    }
    const auto picture = table->cellDragableCellForRowAtIndexPath(*this, indexPath());
    views::Window* window = this->window();
    if (!window) return;
    withdrawClick();
    activeDragSource_ = true;
    table->cellDidInitiateDragging(*this);
    window->beginDragging(
        {keepAlive, std::move(pasteboard), picture, convertToWindow(mouseDownLocation_)});
}

void CVMacTableViewCell::draggingSessionEnded(views::DragOperation) {
    activeDragSource_ = false;
    didEndDraggingOperation_ = true;
    if (const auto table = delegate()) table->cellDidEndDragging(*this);
}

// Keys.

bool CVMacTableViewCell::keyDown(const views::KeyEvent& event) {
    const auto keepAlive = shared_from_this();
    const auto table = delegate();
    if (table && table->tableViewAllowsMultipleSelections()) {
        const bool shift = event.has(views::kModifierShift);
        if (shift && event.firstCharacter() == views::kKeyDownArrow)
            return doCommand(views::Command::ExtendSelectionDown);
        if (shift && event.firstCharacter() == views::kKeyUpArrow)
            return doCommand(views::Command::ExtendSelectionUp);
        if (event.has(views::kModifierCommand) && interpretCommandKey(event)) return true;
    }
    // With or without an accessory: the key does what a row is ticked off with, wherever that is.
    if (table && event.characters() == " ") {
        table->accessoryButtonTappedForRowWithIndexPath(indexPath());
        return true;
    }
    return interpretKeyEvent(event);
}

bool CVMacTableViewCell::doCommand(views::Command command) {
    using views::Command;
    const auto keepAlive = shared_from_this();
    const auto table = delegate();
    if (!table) return false;
    const bool extends = table->tableViewAllowsMultipleSelections();
    switch (command) {
        case Command::MoveDown:
            table->cellRequestsNextCell(*this, false);
            return true;
        case Command::MoveUp:
            table->cellRequestsPreviousCell(*this, false);
            return true;
        case Command::ExtendSelectionDown:
            table->cellRequestsNextCell(*this, extends);
            return true;
        case Command::ExtendSelectionUp:
            table->cellRequestsPreviousCell(*this, extends);
            return true;
        case Command::MoveRight:
        case Command::MoveLeft:
            if (!table->supportsLeftRightCursorMovement()) return true;
            if ((command == Command::MoveRight) != views::isMirrored()) {
                table->cellRequestsNextSection(*this, false);
            } else {
                table->cellRequestsPreviousSection(*this, false);
            }
            return true;
        case Command::MoveSelectedRowsDown:
            table->cellDidMoveSelectedRowsDown(*this);
            return true;
        case Command::MoveSelectedRowsUp:
            table->cellDidMoveSelectedRowsUp(*this);
            return true;
        case Command::InsertTab:
            return window() && superview() && window()->selectNextKeyViewOf(*superview());
        case Command::InsertBacktab:
            return window() && superview() && window()->selectPreviousKeyViewOf(*superview());
        case Command::InsertNewline:
            focus(firstKeyView());
            return true;
        case Command::CancelOperation:
            table->cellDidExitRow(*this);
            return true;
        case Command::SelectAll:
            table->cellDidSelectAllRows(*this);
            return true;
        case Command::DeleteForward:
        case Command::DeleteBackward:
        case Command::Delete:
            table->cellDidDeleteRow(*this);
            return true;
        default:
            return false;
    }
}

bool CVMacTableViewCell::insertText(std::string_view text) {
    const auto keepAlive = shared_from_this();
    const ViewPtr field = firstKeyView();
    if (!field) return false;
    focus(field);
    // What was typed to begin with belongs to the text.
    views::Window* window = this->window();
    if (window && window->fieldEditor().client() == field) window->fieldEditor().insertText(text);
    return true;
}

}  // namespace corvane
