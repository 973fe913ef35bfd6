// Buttons side by side, of which one is selected.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/views/Control.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::views {

struct Segment {
    std::string label;
    platform::ImagePtr image;
};

class SegmentedControl : public Control {
  public:
    using Control::Control;

    const std::vector<Segment>& segments() const { return segments_; }
    /// Nothing is selected afterwards.
    void setSegments(std::vector<Segment> segments);

    int selectedSegment() const { return selectedSegment_; }  ///< -1 where none is
    /// Sends no action. What is no segment selects none.
    void setSelectedSegment(int segment);

    Size preferredSizeThatFits(Size available) override;
    void draw(Canvas& canvas, const Rect& dirty) override;
    bool mouseDown(const MouseEvent& event) override;
    bool mouseUp(const MouseEvent& event) override;
    bool doCommand(Command command) override;
    bool keyDown(const KeyEvent& event) override { return interpretKeyEvent(event); }
    bool acceptsFirstResponder() const override { return isEnabled(); }
    Role accessibilityRole() const override { return Role::Group; }
    std::string accessibilityValue() const override;

  private:
    void choose(int segment);
    int segmentAt(Point point) const;  ///< -1 outside

    std::vector<Segment> segments_;
    int selectedSegment_ = -1;
};

}  // namespace corvane::views
