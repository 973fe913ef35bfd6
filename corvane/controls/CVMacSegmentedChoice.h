// The items of a choice list side by side, of which one is chosen. One thread, the window's.
#pragma once

#include "corvane/controls/ChoiceControl.h"

#include <memory>

namespace corvane {

namespace views {
class SegmentedControl;
}

/// An item with a picture shows that, and has its title as tool tip and as name; others show their
/// titles. Left and Right choose the neighbour, Home and End the first and the last.
class CVMacSegmentedChoice final : public ChoiceControl {
  public:
    explicit CVMacSegmentedChoice(const views::Rect& frame = {});
    ~CVMacSegmentedChoice() override;

    /// Titles beside the pictures. Off at first.
    bool showsTitles() const { return showsTitles_; }
    void setShowsTitles(bool showsTitles);

    views::Size preferredSizeThatFits(views::Size available) override;
    void layoutIfNeeded() override;
    bool keyDown(const views::KeyEvent& event) override;
    bool acceptsFirstResponder() const override { return isEnabled() && !choices().empty(); }
    void setEnabled(bool enabled) override;
    views::Role accessibilityRole() const override { return views::Role::RadioGroup; }

  protected:
    void choicesDidChange() override;
    void selectionDidChange() override;

  private:
    class Segments;

    std::shared_ptr<Segments> segments_;
    bool showsTitles_ = false;
};

}  // namespace corvane
