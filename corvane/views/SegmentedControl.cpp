#include "corvane/views/SegmentedControl.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

void SegmentedControl::setSegments(std::vector<Segment> segments) {
    segments_ = std::move(segments);
    selectedSegment_ = -1;
    setNeedsDisplay();
}

void SegmentedControl::setSelectedSegment(int segment) {
    const bool exists = segment >= 0 && segment < static_cast<int>(segments_.size());
    selectedSegment_ = exists ? segment : -1;
    setNeedsDisplay();
}

void SegmentedControl::choose(int segment) {
    if (!isEnabled() || segment < 0 || segment >= static_cast<int>(segments_.size())) return;
    setSelectedSegment(segment);
    sendAction();
}

int SegmentedControl::segmentAt(Point point) const {
    if (segments_.empty() || !bounds().contains(point)) return -1;
    return static_cast<int>(point.x * static_cast<double>(segments_.size()) / frame().width);
}

bool SegmentedControl::mouseDown(const MouseEvent&) {
    return true;
}

bool SegmentedControl::mouseUp(const MouseEvent& event) {
    choose(segmentAt(convertFromWindow(event.locationInWindow())));
    return true;
}

bool SegmentedControl::doCommand(Command command) {
    switch (command) {
        case Command::MoveLeft:
            choose(selectedSegment_ - 1);
            return true;
        case Command::MoveRight:
            choose(selectedSegment_ + 1);
            return true;
        case Command::InsertTab:
            return window() && window()->selectNextKeyViewOf(*this);
        case Command::InsertBacktab:
            return window() && window()->selectPreviousKeyViewOf(*this);
        default:
            return false;
    }
}

Size SegmentedControl::preferredSizeThatFits(Size) {
    const Font font;
    double widest = 0;
    double height = textMeasurer().lineHeight(font);
    for (const auto& [label, image] : segments_) {
        const Size picture = image ? image->size() : Size{};
        widest = std::max(widest, textMeasurer().sizeOfText(label, font).width + picture.width);
        height = std::max(height, picture.height);
    }
    return {(widest + 16) * static_cast<double>(segments_.size()), height + 8};
}

void SegmentedControl::draw(Canvas& canvas, const Rect&) {
    const Theme& colors = theme();
    canvas.fillRoundedRect(bounds(), 5, colors.controlBackground);
    const double width =
        frame().width / static_cast<double>(std::max<std::size_t>(1, segments_.size()));
    for (int i = 0; i < static_cast<int>(segments_.size()); ++i) {
        const auto& [label, image] = segments_[static_cast<std::size_t>(i)];
        const Rect rect{i * width, 0, width, frame().height};
        if (i == selectedSegment_) canvas.fillRoundedRect(rect, 5, colors.selection);
        const Size picture = image ? image->size() : Size{};
        if (image)
            canvas.drawImage(image,
                             {rect.x + (label.empty() ? (width - picture.width) / 2 : 6),
                              (rect.height - picture.height) / 2, picture.width, picture.height});
        canvas.drawText(
            label, rect,
            {{}, isEnabled() ? colors.text : colors.secondaryText, TextAlignment::Center});
    }
    const bool focused = isFirstResponder() && window()->isActive();
    canvas.strokeRoundedRect(bounds(), 5, focused ? colors.accent : colors.border, focused ? 2 : 1);
}

std::string SegmentedControl::accessibilityValue() const {
    return selectedSegment_ < 0 ? "" : segments_[static_cast<std::size_t>(selectedSegment_)].label;
}

}  // namespace corvane::views
