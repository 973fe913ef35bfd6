#include "corvane/controls/ChooserView.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Theme.h"

#include <utility>

namespace corvane {

using platform::Rect;
using views::MouseEvent;
using views::theme;

class ChooserView::Cell final : public views::View {
  public:
    Cell(ChooserView& chooser, std::size_t index, const Rect& frame)
        : View(frame), chooser_(chooser), index_(index) {}

    void setState(CellState state) {
        if (state == state_) return;
        const CellState before = std::exchange(state_, std::move(state));
        setNeedsDisplay();
        using Change = views::AccessibilityChange;
        if (before.text != state_.text) accessibilityDidChange(Change::Name);
        if (before.selected != state_.selected) accessibilityDidChange(Change::Selected);
        // Where the keys are is what the chooser says of itself.
        if (before.highlighted != state_.highlighted)
            chooser_.accessibilityDidChange(Change::Value);
    }

    void draw(views::Canvas& canvas, const Rect&) override {
        const Rect rect = bounds().insetBy(1, 1);
        if (state_.shaded) canvas.fillRect(bounds(), theme().controlBackground);
        if (state_.selected) canvas.fillRoundedRect(rect, 5, theme().selection);
        if (state_.ringed) canvas.strokeRoundedRect(rect, 5, theme().accent, 1);
        if (state_.highlighted) canvas.strokeRoundedRect(rect, 5, theme().text, 2);
        views::TextStyle style{
            {}, state_.dimmed ? theme().secondaryText : theme().text, views::TextAlignment::Center};
        style.font.bold = state_.ringed;
        canvas.drawText(state_.text, bounds(), style);
    }

    bool mouseDown(const MouseEvent&) override { return true; }
    bool mouseUp(const MouseEvent& event) override {
        // Choosing may take the chooser away, and this with it.
        const auto keepAlive = shared_from_this();
        if (superview() && bounds().contains(convertFromWindow(event.locationInWindow())))
            chooser_.chooseCell(index_);
        return true;
    }

    views::Role accessibilityRole() const override { return views::Role::Button; }
    std::string accessibilityName() const override {
        return superview() ? chooser_.cellName(index_) : std::string();
    }
    std::string accessibilityValue() const override {
        return superview() ? chooser_.cellValue(index_) : std::string();
    }
    bool accessibilitySelected() const override { return state_.selected; }

  private:
    ChooserView& chooser_;  ///< there for as long as it is the superview
    std::size_t index_;
    CellState state_;
};

void ChooserView::addCell(const Rect& frame) {
    cells_.push_back(std::make_shared<Cell>(*this, cells_.size(), frame));
    addSubview(cells_.back());
}

void ChooserView::setCellState(std::size_t index, CellState state) {
    cells_.at(index)->setState(std::move(state));
}

platform::Color ChooserView::headerBackgroundColor() const {
    return theme().controlBackground;
}

void ChooserView::draw(views::Canvas& canvas, const Rect&) {
    canvas.fillRect(bounds(), theme().background);
    if (isFirstResponder()) canvas.strokeRoundedRect(bounds(), 4, theme().accent, 2);
}

bool ChooserView::keyDown(const views::KeyEvent& event) {
    if (moveByKey(event)) return true;
    if (event.characters() == " ") return chooseHighlighted();
    return views::focusPassedOn(*this, event).value_or(false);
}

}  // namespace corvane
