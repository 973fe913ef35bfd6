#include "corvane/controls/CVMacSegmentedChoice.h"

#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/Window.h"

#include <utility>
#include <vector>

namespace corvane {

/// The choice has the focus and the name, so to everybody else this is only its inside.
class CVMacSegmentedChoice::Segments final : public views::SegmentedControl {
  public:
    bool acceptsFirstResponder() const override { return false; }
    views::Role accessibilityRole() const override { return views::Role::None; }

  protected:
    bool showsFocus() const override { return superview() && views::showsFocus(*superview()); }
};

CVMacSegmentedChoice::CVMacSegmentedChoice(const views::Rect& frame)
    : ChoiceControl(frame), segments_(std::make_shared<Segments>()) {
    addSubview(segments_);
    segments_->setAction([this](views::Control&) {
        const auto keepAlive = weak_from_this().lock();
        choosePosition(segments_->selectedSegment());
    });
}

CVMacSegmentedChoice::~CVMacSegmentedChoice() {
    segments_->setAction({});
}

void CVMacSegmentedChoice::setShowsTitles(bool showsTitles) {
    if (std::exchange(showsTitles_, showsTitles) != showsTitles) choicesDidChange();
}

void CVMacSegmentedChoice::choicesDidChange() {
    std::vector<views::Segment> segments;
    for (const Choice& choice : choices()) {
        const auto icon = iconOf(choice);
        std::string title = choice.title();
        const bool showsTitle = showsTitles_ || !icon;
        segments.push_back({.label = showsTitle ? title : std::string(),
                            .image = icon,
                            .name = showsTitle ? std::string() : std::move(title)});
    }
    segments_->setSegments(std::move(segments));
    selectionDidChange();
}

void CVMacSegmentedChoice::selectionDidChange() {
    segments_->setSelectedSegment(static_cast<int>(selectedPosition()));
}

void CVMacSegmentedChoice::setEnabled(bool enabled) {
    ChoiceControl::setEnabled(enabled);
    segments_->setEnabled(enabled);
}

views::Size CVMacSegmentedChoice::preferredSizeThatFits(views::Size available) {
    return segments_->preferredSizeThatFits(available);
}

void CVMacSegmentedChoice::layoutIfNeeded() {
    segments_->setFrame(bounds());
}

bool CVMacSegmentedChoice::keyDown(const views::KeyEvent& event) {
    if (const auto passedOn = focusPassedOn(*this, event)) return *passedOn;
    return segments_->keyDown(event);
}

}  // namespace corvane
