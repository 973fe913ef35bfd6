#include "corvane/table/HGMacListViewItem.h"

#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double kImageSide = 16;
constexpr double kMargin = 4;
constexpr double kDragDistance = 4;

}  // namespace

HGMacListViewItem::HGMacListViewItem() {
    textField_->setBordered(false);
    textField_->setEditable(false);
    addSubview(imageView_);
    addSubview(textField_);
}

void HGMacListViewItem::prepareForReuse() {
    placeholder_ = false;
    mouseDownLocation_ = {};
    textField_->setEditable(false);
    textField_->setStringValue("");
    imageView_->setImage(nullptr);
}

void HGMacListViewItem::beginEditing() {
    textField_->setEditable(true);
    if (window()) window()->makeFirstResponder(textField_);
}

// Looks.

double HGMacListViewItem::textWidth(double width) const {
    return std::max(0.0, width - kImageSide - 3 * kMargin);
}

void HGMacListViewItem::applyLayout() {
    const double width = frame().width;
    imageView_->setFrame(views::mirrored({kMargin, kMargin, kImageSide, kImageSide}, width));
    textField_->setFrame(views::mirrored({kImageSide + 2 * kMargin, kMargin / 2, textWidth(width),
                                          std::max(0.0, frame().height - kMargin)},
                                         width));
}

views::Size HGMacListViewItem::preferredSizeThatFits(views::Size available) {
    const double text = textField_->preferredHeightForWidth(textWidth(available.width));
    return {available.width, std::max(kImageSide + 2 * kMargin, text + kMargin)};
}

// The pointer.

bool HGMacListViewItem::mouseDown(const views::MouseEvent& event) {
    mouseDownLocation_ = convertFromWindow(event.locationInWindow());
    dragging_ = false;
    return true;
}

bool HGMacListViewItem::mouseDragged(const views::MouseEvent& event) {
    const views::Point moved = convertFromWindow(event.locationInWindow()) - mouseDownLocation_;
    if (dragging_ || placeholder_ || std::hypot(moved.x, moved.y) < kDragDistance) return false;
    dragging_ = true;
    if (const auto list = delegate()) list->startDraggingItem(*this, event);
    return true;
}

bool HGMacListViewItem::mouseUp(const views::MouseEvent& event) {
    const views::Point location = convertFromWindow(event.locationInWindow());
    const auto list = delegate();
    if (imageView_->frame().contains(location)) {
        if (list && event.clickCount() == 1) list->imageViewTappedForItem(*this);
        if (list && event.clickCount() == 2) list->imageViewDoubleTappedForItem(*this);
    } else if (textField_->frame().contains(location)) {
        beginEditing();
    }
    return true;
}

std::shared_ptr<views::Menu> HGMacListViewItem::menuForEvent(const views::MouseEvent&) {
    const auto list = delegate();
    return list ? list->contextMenuForItem(*this) : nullptr;
}

void HGMacListViewItem::draggingSessionEnded(views::DragOperation) {
    if (const auto list = delegate()) list->endDraggingItem(*this);
}

// The text.

void HGMacListViewItem::controlTextDidBeginEditing(views::TextField& control) {
    textBefore_ = control.stringValue();
}

void HGMacListViewItem::controlTextDidChange(views::TextField&) {
    if (const auto list = delegate()) list->requestAutoResizingForListViewItem(*this);
}

void HGMacListViewItem::controlTextDidEndEditing(views::TextField& control) {
    const auto keepAlive = shared_from_this();
    textField_->setEditable(false);
    const std::string text = control.stringValue();
    const auto list = delegate();
    // A placeholder that nobody filled in has to go, too.
    if (list && (placeholder_ || text != textBefore_))
        list->listViewItemDidEditTextFieldValue(*this, text);
}

bool HGMacListViewItem::controlDoCommandBySelector(views::TextField&, views::FieldEditor&,
                                                   views::Command command) {
    const auto keepAlive = shared_from_this();
    const auto list = delegate();
    const auto endEditing = [this] {
        if (!window()) return;
        View* above = superview();
        window()->makeFirstResponder(
            above && above->acceptsFirstResponder() ? above->shared_from_this() : nullptr);
    };
    switch (command) {
        case views::Command::InsertNewline:
            endEditing();
            if (list) list->inlineInsertAfterItem(*this);
            return true;
        case views::Command::InsertTab:
            if (list) list->makeNextKeyViewFirstResponderAfterItem(*this);
            return list != nullptr;
        case views::Command::InsertBacktab:
            if (list) list->makePreviousKeyViewFirstResponderBeforeItem(*this);
            return list != nullptr;
        case views::Command::CancelOperation:
            endEditing();
            return true;
        default:
            return false;
    }
}

}  // namespace corvane
