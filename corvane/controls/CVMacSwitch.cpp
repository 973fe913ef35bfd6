#include "corvane/controls/CVMacSwitch.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr double kRingRoom = 3;
constexpr double kTrackWidth = 36;
constexpr double kTrackHeight = 20;
constexpr double kKnobMargin = 3;
constexpr double kKnobSize = kTrackHeight - 2 * kKnobMargin;
constexpr double kTravel = kTrackWidth - kTrackHeight;
/// A click may tremble.
constexpr double kDragThreshold = 3;

}  // namespace

void CVMacSwitch::setOn(bool on) {
    if (std::exchange(on_, on) == on) return;
    setNeedsDisplay();
    accessibilityDidChange(views::AccessibilityChange::Checked);
}

void CVMacSwitch::change(bool on) {
    if (!isEnabled() || on == on_) return;
    setOn(on);
    sendAction();
}

// The pointer.

double CVMacSwitch::fromLeadingSide(const views::MouseEvent& event) const {
    const double x = convertFromWindow(event.locationInWindow()).x;
    return views::isMirrored() ? -x : x;
}

double CVMacSwitch::position() const {
    return drag_ ? drag_->position : on_ ? 1 : 0;
}

bool CVMacSwitch::mouseDown(const views::MouseEvent& event) {
    if (isEnabled()) drag_ = Drag{fromLeadingSide(event), on_ ? 1.0 : 0.0};
    return true;
}

bool CVMacSwitch::mouseDragged(const views::MouseEvent& event) {
    if (!drag_) return true;
    const double way = fromLeadingSide(event) - drag_->start;
    if (std::abs(way) > kDragThreshold) drag_->moved = true;
    if (drag_->moved) drag_->position = std::clamp((on_ ? 1 : 0) + way / kTravel, 0.0, 1.0);
    setNeedsDisplay();
    return true;
}

bool CVMacSwitch::mouseUp(const views::MouseEvent& event) {
    mouseDragged(event);
    const auto drag = std::exchange(drag_, std::nullopt);
    if (!drag) return true;
    setNeedsDisplay();
    const bool inside = bounds().contains(convertFromWindow(event.locationInWindow()));
    if (drag->moved) {
        change(drag->position >= 0.5);
    } else if (inside) {
        change(!on_);
    }
    return true;
}

void CVMacSwitch::mouseWasLost() {
    drag_.reset();
    setNeedsDisplay();
}

bool CVMacSwitch::keyDown(const views::KeyEvent& event) {
    if (const auto passedOn = focusPassedOn(*this, event)) return *passedOn;
    if (event.modifierFlags() != 0) return false;
    switch (event.firstCharacter()) {
        case U' ':
            change(!on_);
            return true;
        case views::kKeyLeftArrow:
        case views::kKeyRightArrow:
            change((event.firstCharacter() == views::kKeyRightArrow) != views::isMirrored());
            return true;
        default:
            return false;
    }
}

// Looks.

views::Rect CVMacSwitch::trackRect() const {
    return views::mirrored(
        {kRingRoom, (frame().height - kTrackHeight) / 2, kTrackWidth, kTrackHeight}, frame().width);
}

views::Size CVMacSwitch::preferredSizeThatFits(views::Size) {
    return {kTrackWidth + 2 * kRingRoom, kTrackHeight + 2 * kRingRoom};
}

void CVMacSwitch::draw(views::Canvas& canvas, const views::Rect&) {
    const views::Theme& colors = views::theme();
    const views::Rect track = trackRect();
    const bool showsOn = position() >= 0.5;
    const auto& mark = isEnabled() ? colors.accent : colors.border;
    canvas.fillRoundedRect(track, kTrackHeight / 2, showsOn ? mark : colors.controlBackground);
    if (!showsOn)
        canvas.strokeRoundedRect(track, kTrackHeight / 2,
                                 isEnabled() ? colors.secondaryText : colors.border, 1);
    const views::Rect knob =
        views::mirrored({kKnobMargin + position() * kTravel, kKnobMargin, kKnobSize, kKnobSize},
                        kTrackWidth)
            .movedBy(track.x, track.y);
    canvas.fillRoundedRect(knob, kKnobSize / 2,
                           showsOn       ? colors.textOnAccent
                           : isEnabled() ? colors.secondaryText
                                         : colors.border);
    drawFocusRing(canvas, *this, track.insetBy(-kRingRoom, -kRingRoom),
                  kTrackHeight / 2 + kRingRoom);
}

}  // namespace corvane
