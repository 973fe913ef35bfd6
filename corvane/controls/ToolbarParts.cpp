#include "corvane/controls/ToolbarParts.h"

#include "corvane/views/Mirroring.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>

namespace corvane {

// The item.

ActionToolbarItem::ActionToolbarItem(const CVAction& action, Changed changed)
    : ToolbarItem(action.identifier()) {
    setLabel(action.title().value_or(""));
    setToolTip(action.tooltip().value_or(""));
    setImage(action.icon());
    setView(action.customView());
    changed_ = std::move(changed);
}

void ActionToolbarItem::didChange() {
    const Changed changed = changed_;
    if (changed) changed(*this);
}

// The segments.

namespace {

bool haveSameLooks(const std::vector<views::Segment>& a, const std::vector<views::Segment>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& two) {
        return one.label == two.label && one.name == two.name && one.image == two.image;
    });
}

}  // namespace

ActionSegments::ActionSegments(const std::shared_ptr<CVAction>& action, ActionInvoked didInvoke)
    : action_(action) {
    setAction([weak = action_, didInvoke = std::move(didInvoke)](views::Control& sender) {
        views::View* const view = &sender;
        invokeAction(weak.lock(), CVAction::Sender(view), didInvoke);
    });
}

void ActionSegments::show(bool showsTitles) {
    const auto action = action_.lock();
    if (!action) return;
    const auto before = std::exchange(shown_, action->subActions());
    std::ptrdiff_t selected = -1;
    std::vector<views::Segment> segments;
    for (const auto& each : shown_) {
        views::Segment segment;
        segment.enabled = each != nullptr;
        if (each) {
            segment.name = each->title().value_or(each->identifier());
            segment.image = each->icon();
            if (showsTitles || !segment.image) segment.label = segment.name;
            const auto found = std::find(before.begin(), before.end(), each);
            const auto place = static_cast<std::size_t>(found - before.begin());
            if (found != before.end() && place < this->segments().size()) {
                segment.enabled = this->segments()[place].enabled;
                if (static_cast<int>(place) == selectedSegment()) selected = std::ssize(segments);
            }
        }
        segments.push_back(std::move(segment));
    }
    if (shown_ == before && haveSameLooks(segments, this->segments())) return;
    setSegments(std::move(segments));
    setSelectedSegment(static_cast<int>(selected));
}

void ActionSegments::validate() {
    const auto action = action_.lock();
    if (!action) return;
    // One that is asked may change which ones there are.
    const auto asked = action->subActions();
    for (std::size_t i = 0; i < asked.size(); ++i)
        setSegmentEnabled(static_cast<int>(i), asked[i] && asked[i]->validate());
}

void ActionSegments::markSelected(const views::Menu& menu) const {
    auto item = menu.items().begin();  // null actions have none
    for (std::size_t i = 0; i < shown_.size() && item != menu.items().end(); ++i)
        if (shown_[i]) (*item++)->setOn(static_cast<int>(i) == selectedSegment());
}

void ActionSegments::select(const CVAction& chosen) {
    for (std::size_t i = 0; i < shown_.size(); ++i)
        if (shown_[i].get() == &chosen) setSelectedSegment(static_cast<int>(i));
}

// The menu of the rest.

namespace {

class OverflowAction final : public CVAction {
  public:
    explicit OverflowAction(std::function<void()> open)
        : CVAction("overflow", 0), open_(std::move(open)) {
        setTitle(views::isMirrored() ? "«" : "»");
        setTooltip(EXLocalizable::localize("MoreActions"));
    }
    void actionInvoked(const Sender&) override { open_(); }

  private:
    std::function<void()> open_;
};

class OverflowButton final : public CVMacToolbarButton {
  public:
    using CVMacToolbarButton::CVMacToolbarButton;
    views::Role accessibilityRole() const override { return views::Role::PopUpButton; }
    std::string accessibilityName() const override { return toolTip(); }
};

}  // namespace

std::shared_ptr<CVMacToolbarButton> toolbarOverflowButton(std::function<void()> open) {
    return std::make_shared<OverflowButton>(std::make_shared<OverflowAction>(std::move(open)));
}

}  // namespace corvane
