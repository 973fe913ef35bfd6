// Buttons side by side, of which one is selected.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/views/Control.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace corvane::views {

struct Segment {
    std::string label = {};
    platform::ImagePtr image = {};
    std::string name = {};  ///< as tool tip, and for assistive technology; empty for the label
    bool enabled = true;
};

/// Left and Right, Home and End select. While none is selected, the first segment shows the focus,
/// and Space selects it. The segments are subviews, which assistive technology sees one by one.
/// They are of one width where there is room for that.
class SegmentedControl : public Control {
  public:
    using Control::Control;

    const std::vector<Segment>& segments() const { return segments_; }
    /// Nothing is selected afterwards.
    void setSegments(std::vector<Segment> segments);
    /// Nothing for what is no segment.
    void setSegmentEnabled(int segment, bool enabled);

    int selectedSegment() const { return selectedSegment_; }  ///< -1 where none is
    /// Sends no action. What is no segment selects none.
    void setSelectedSegment(int segment);

    Size preferredSizeThatFits(Size available) override;
    void layoutIfNeeded() override;
    void draw(Canvas& canvas, const Rect& dirty) override;
    void drawAboveSubviews(Canvas& canvas, const Rect& dirty) override;
    bool mouseDown(const MouseEvent& event) override;
    bool mouseDragged(const MouseEvent& event) override;
    bool mouseUp(const MouseEvent& event) override;
    void mouseWasLost() override { press(-1); }
    bool doCommand(Command command) override;
    bool keyDown(const KeyEvent& event) override;
    bool acceptsFirstResponder() const override { return nextChoosable(0, 1) >= 0; }
    Role accessibilityRole() const override { return Role::RadioGroup; }
    std::string accessibilityValue() const override;

  protected:
    /// Whether the segment that has the focus is to be marked.
    virtual bool showsFocus() const;

  private:
    class SegmentView;

    int count() const { return static_cast<int>(segments_.size()); }
    bool canChoose(int segment) const;
    /// The nearest one that can be chosen, from there on in steps; -1 for none.
    int nextChoosable(int segment, int step) const;
    int focusedSegment() const;
    std::vector<double> widths() const;
    int segmentAt(Point point) const;  ///< -1 outside
    void press(int segment);
    void choose(int segment);

    std::vector<Segment> segments_;
    std::vector<std::shared_ptr<SegmentView>> views_;
    int selectedSegment_ = -1;
    int pressedSegment_ = -1;
};

}  // namespace corvane::views
