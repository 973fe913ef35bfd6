#include "corvane/views/SegmentedControl.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

namespace {

constexpr double kRadius = 5;
constexpr double kMarginX = 8;
constexpr double kMarginY = 4;

}  // namespace

/// Draws one segment and stands for it; the pointer is the control's matter.
class SegmentedControl::SegmentView final : public View {
  public:
    SegmentView(SegmentedControl& control, int index) : control_(control), index_(index) {}

    void draw(Canvas& canvas, const Rect&) override {
        const Theme& colors = theme();
        const Rect rect = bounds().insetBy(1, 1);
        const bool selected = index_ == control_.selectedSegment_;
        const platform::Color ground = selected ? colors.selection : colors.controlBackground;
        if (index_ == control_.pressedSegment_) {
            canvas.fillRoundedRect(rect, kRadius - 1, colors.pressedBackground);
        } else if (selected) {
            canvas.fillRoundedRect(rect, kRadius - 1, ground);
        }
        const bool enabled = accessibilityEnabled();
        drawIconAndText(canvas, content(), bounds().insetBy(kMarginX / 2, 0),
                        enabled ? colors.text : colors.secondaryText, enabled ? nullptr : &ground);
        if (index_ > 0) {
            const double edge = isMirrored() ? frame().width : 0;
            canvas.drawLine({edge, kMarginY}, {edge, frame().height - kMarginY}, colors.separator,
                            1);
        }
    }

    std::string toolTip() const override {
        if (!segment().name.empty()) return segment().name;
        return isTextCut(content(), frame().width - kMarginX) ? segment().label : std::string();
    }
    Role accessibilityRole() const override { return Role::RadioButton; }
    std::string accessibilityName() const override {
        return segment().name.empty() ? segment().label : segment().name;
    }
    std::optional<bool> accessibilityChecked() const override {
        return superview() && index_ == control_.selectedSegment_;
    }
    bool accessibilityEnabled() const override { return superview() && control_.canChoose(index_); }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override {
        if (superview()) control_.choose(index_);
    }

  private:
    /// An empty one where the control has others by now.
    const Segment& segment() const {
        static const Segment none;
        return superview() ? control_.segments_.at(static_cast<std::size_t>(index_)) : none;
    }
    IconAndText content() const { return {segment().image, segment().label}; }

    SegmentedControl& control_;  ///< there for as long as it is the superview
    int index_;
};

void SegmentedControl::setSegments(std::vector<Segment> segments) {
    for (const auto& view : std::exchange(views_, {}))
        view->removeFromSuperview();
    segments_ = std::move(segments);
    selectedSegment_ = -1;
    pressedSegment_ = -1;
    for (int i = 0; i < count(); ++i) {
        views_.push_back(std::make_shared<SegmentView>(*this, i));
        addSubview(views_.back());
    }
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Value);
}

void SegmentedControl::setSegmentEnabled(int segment, bool enabled) {
    if (segment < 0 || segment >= count()) return;
    bool& present = segments_[static_cast<std::size_t>(segment)].enabled;
    if (std::exchange(present, enabled) == enabled) return;
    setNeedsDisplay();
    views_[static_cast<std::size_t>(segment)]->accessibilityDidChange(AccessibilityChange::Enabled);
}

void SegmentedControl::setSelectedSegment(int segment) {
    const int wanted = segment >= 0 && segment < count() ? segment : -1;
    const int before = std::exchange(selectedSegment_, wanted);
    if (before == wanted) return;
    setNeedsDisplay();
    for (const int changed : {before, wanted})
        if (changed >= 0 && changed < count())
            views_[static_cast<std::size_t>(changed)]->accessibilityDidChange(
                AccessibilityChange::Checked);
    accessibilityDidChange(AccessibilityChange::Value);
}

// Choosing.

bool SegmentedControl::canChoose(int segment) const {
    return isEnabled() && segment >= 0 && segment < count() &&
           segments_[static_cast<std::size_t>(segment)].enabled;
}

int SegmentedControl::nextChoosable(int segment, int step) const {
    for (; segment >= 0 && segment < count(); segment += step)
        if (canChoose(segment)) return segment;
    return -1;
}

int SegmentedControl::focusedSegment() const {
    return selectedSegment_ >= 0 ? selectedSegment_ : nextChoosable(0, 1);
}

void SegmentedControl::choose(int segment) {
    if (!canChoose(segment)) return;
    setSelectedSegment(segment);
    sendAction();
}

int SegmentedControl::segmentAt(Point point) const {
    if (segments_.empty() || !bounds().contains(point)) return -1;
    const double x = isMirrored() ? frame().width - point.x : point.x;
    const auto all = widths();
    double end = 0;
    for (int i = 0; i < count(); ++i)
        if (x < (end += all[static_cast<std::size_t>(i)])) return i;
    return count() - 1;
}

void SegmentedControl::press(int segment) {
    const int pressed = canChoose(segment) ? segment : -1;
    if (std::exchange(pressedSegment_, pressed) != pressed) setNeedsDisplay();
}

bool SegmentedControl::mouseDown(const MouseEvent& event) {
    press(segmentAt(convertFromWindow(event.locationInWindow())));
    return true;
}

bool SegmentedControl::mouseDragged(const MouseEvent& event) {
    return mouseDown(event);
}

bool SegmentedControl::mouseUp(const MouseEvent& event) {
    press(-1);
    choose(segmentAt(convertFromWindow(event.locationInWindow())));
    return true;
}

bool SegmentedControl::keyDown(const KeyEvent& event) {
    if (event.modifierFlags() == 0) {
        if (event.firstCharacter() == kKeyHome) return choose(nextChoosable(0, 1)), true;
        if (event.firstCharacter() == kKeyEnd) return choose(nextChoosable(count() - 1, -1)), true;
        if (event.characters() == " ") return choose(focusedSegment()), true;
    }
    return interpretKeyEvent(event);
}

bool SegmentedControl::doCommand(Command command) {
    switch (command) {
        case Command::MoveLeft:
        case Command::MoveRight: {
            const bool forward = (command == Command::MoveRight) != isMirrored();
            // The first one where none is selected yet, whichever way.
            const int next =
                selectedSegment_ < 0
                    ? nextChoosable(0, 1)
                    : nextChoosable(selectedSegment_ + (forward ? 1 : -1), forward ? 1 : -1);
            choose(next);
            return true;
        }
        default:
            return focusPassedOn(*this, command).value_or(false);
    }
}

// Looks.

Size SegmentedControl::preferredSizeThatFits(Size) {
    Size widest = sizeOf({});
    for (const Segment& segment : segments_) {
        const Size size = sizeOf({segment.image, segment.label});
        widest = {std::max(widest.width, size.width), std::max(widest.height, size.height)};
    }
    return {(widest.width + 2 * kMarginX) * count(), widest.height + 2 * kMarginY};
}

std::vector<double> SegmentedControl::widths() const {
    std::vector<double> widths;
    double widest = 0;
    double sum = 0;
    for (const Segment& segment : segments_) {
        widths.push_back(sizeOf({segment.image, segment.label}).width + 2 * kMarginX);
        widest = std::max(widest, widths.back());
        sum += widths.back();
    }
    const bool isRoomForAll = widest * count() <= frame().width;
    for (double& width : widths)
        width = isRoomForAll ? frame().width / count() : width * frame().width / sum;
    return widths;
}

void SegmentedControl::layoutIfNeeded() {
    const auto all = widths();
    double x = 0;
    for (std::size_t i = 0; i < views_.size(); x += all[i++])
        views_[i]->setFrame(mirrored({x, 0, all[i], frame().height}, frame().width));
}

void SegmentedControl::draw(Canvas& canvas, const Rect&) {
    canvas.fillRoundedRect(bounds(), kRadius, theme().controlBackground);
}

bool SegmentedControl::showsFocus() const {
    return views::showsFocus(*this);
}

void SegmentedControl::drawAboveSubviews(Canvas& canvas, const Rect&) {
    canvas.strokeRoundedRect(bounds(), kRadius, theme().border, 1);
    const int focused = showsFocus() ? focusedSegment() : -1;
    if (focused >= 0)
        canvas.strokeRoundedRect(views_[static_cast<std::size_t>(focused)]->frame(), kRadius,
                                 theme().accent, 2);
}

std::string SegmentedControl::accessibilityValue() const {
    return selectedSegment_ < 0
               ? ""
               : views_[static_cast<std::size_t>(selectedSegment_)]->accessibilityName();
}

}  // namespace corvane::views
