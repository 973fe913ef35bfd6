// A grid of cells, each of which turns a bit of a mask on and off: the days of a week or a month,
// the months of a year. One thread, the window's.
#pragma once

#include "corvane/views/Control.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// The first label is that of bit 0. Arrow keys move from cell to cell and Space turns one on or
/// off, which sends the action. In languages that are written from right to left the first cell is
/// the rightmost one. Made by std::make_shared.
class CVMacBitmaskChooser final : public views::Control {
  public:
    static constexpr std::size_t kMostBits = 31;

    using views::Control::Control;

    /// In rows of as many cells; labels beyond the 31 bits are passed over. The mask stays.
    void setLabels(std::vector<std::string> labels, int columns);
    const std::vector<std::string>& labels() const { return labels_; }
    /// By which assistive technology and tool tips know the cells; a cell without one goes by its
    /// label.
    void setCellNames(std::vector<std::string> names);

    /// Bits that have no cell are kept.
    std::int64_t bitmask() const { return bitmask_; }
    void setBitmask(std::int64_t bitmask);
    /// As a click does it. Nothing for a bit without a cell, and while it is disabled.
    void toggleBit(std::int64_t bit);
    /// Where the keys are.
    std::int64_t focusedBit() const { return focusedBit_; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void layoutIfNeeded() override;
    bool keyDown(const views::KeyEvent& event) override { return interpretKeyEvent(event); }
    bool doCommand(views::Command command) override;
    bool insertText(std::string_view text) override;
    bool acceptsFirstResponder() const override { return isEnabled() && !cells_.empty(); }
    void setEnabled(bool enabled) override;
    views::Role accessibilityRole() const override { return views::Role::Group; }
    /// The names of the cells that are on.
    std::string accessibilityValue() const override;

  protected:
    void frameDidChange(const views::Rect& before) override;

  private:
    class Cell;

    void placeCells();
    void moveFocusTo(std::int64_t bit);
    bool isOn(std::int64_t bit) const { return ((bitmask_ >> bit) & 1) != 0; }
    std::string nameOfCell(std::size_t bit) const;

    std::vector<std::string> labels_;
    std::vector<std::string> names_;
    std::vector<std::shared_ptr<Cell>> cells_;
    int columns_ = 1;
    bool isMirrored_ = false;
    std::int64_t bitmask_ = 0;
    std::int64_t focusedBit_ = 0;
};

}  // namespace corvane
