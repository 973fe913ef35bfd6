// The items of a choice list as rows of one column, of which one is chosen. One thread, the
// window's.
#pragma once

#include "corvane/controls/ChoiceControl.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace corvane {

/// Rows count from 0 through all sections. Up and Down choose the row above and below, Home and End
/// the first and the last, Space the first where none is chosen yet.
class CVMacRadioGroup final : public ChoiceControl {
  public:
    using ChoiceControl::ChoiceControl;

    std::int64_t rowCount() const { return static_cast<std::int64_t>(choices().size()); }
    /// -1 where none is.
    std::int64_t selectedRow() const { return selectedPosition(); }
    /// Sends no action. What is no row selects none.
    void selectRow(std::int64_t row);

    /// The rows one below the other.
    views::Size preferredSizeThatFits(views::Size available) override;
    void layoutIfNeeded() override;
    bool keyDown(const views::KeyEvent& event) override;
    bool acceptsFirstResponder() const override { return isEnabled() && rowCount() > 0; }
    views::Role accessibilityRole() const override { return views::Role::RadioGroup; }

  protected:
    void choicesDidChange() override;
    void selectionDidChange() override;

  private:
    class Row;

    std::int64_t focusedRow() const;

    std::vector<std::shared_ptr<Row>> rows_;
    std::int64_t markedRow_ = -1;  ///< the one of which was last told that it is selected
};

}  // namespace corvane
