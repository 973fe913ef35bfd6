#include "corvane/models/CVAction.h"

#include "corvane/views/Button.h"
#include "corvane/views/SegmentedControl.h"

namespace corvane {

namespace {

/// Sub-actions may have sub-actions, each for the same segment; this ends a circle of them.
class Nesting {
  public:
    Nesting() { ++depth_; }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    bool isTooDeep() const { return depth_ > kDeepest; }

  private:
    static constexpr int kDeepest = 16;
    static inline thread_local int depth_ = 0;
};

}  // namespace

void CVAction::actionInvoked(const Sender& sender) {
    auto* const* view = std::get_if<views::View*>(&sender);
    auto* segments = view ? dynamic_cast<views::SegmentedControl*>(*view) : nullptr;
    if (!segments) return;
    // -1, where none is selected, becomes one beyond every end.
    const auto selected = static_cast<std::size_t>(segments->selectedSegment());
    if (selected >= subActions_.size()) return;
    const Nesting nesting;
    if (nesting.isTooDeep()) return;
    // It may change what the sub-actions are.
    if (const auto action = subActions_[selected]) action->actionInvoked(sender);
}

void CVAction::createImageButtonForCustomView() {
    auto button = std::make_shared<views::Button>();
    button->setBezelStyle(views::BezelStyle::TexturedRounded);
    if (icon_) button->setImage(icon_);
    customView_ = std::move(button);
}

}  // namespace corvane
