// The times of the day, of which a time field lets the user pick one. One thread, the window's.
#pragma once

#include "corvane/controls/ChooserView.h"
#include "corvane/controls/OutputDateFormatter.h"
#include "corvane/dates/EXTimeOnly.h"
#include "corvane/platform/Locale.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace corvane {

class CVMacTimeOnlyChooserView;

/// Held by the chooser as a weak reference.
class CVMacTimeOnlyChooserDelegate {
  public:
    virtual ~CVMacTimeOnlyChooserDelegate() = default;
    virtual void timeOnlyChooserDidChooseTimeOnly(CVMacTimeOnlyChooserView& chooser,
                                                  EXTimeOnly timeOnly) = 0;
};

/// All half hours, two hours to a row. Left and Right lead to the half hour before and after, Up
/// and Down to the row above and below, Home and End to the ends of the row, Page Up and Page Down
/// to the ends of the day; Return chooses.
class CVMacTimeOnlyChooserView final : public ChooserView {
  public:
    explicit CVMacTimeOnlyChooserView(platform::Locale locale);

    void setDelegate(std::weak_ptr<CVMacTimeOnlyChooserDelegate> delegate) {
        delegate_ = std::move(delegate);
    }

    std::optional<EXTimeOnly> time() const { return time_; }
    void setTime(std::optional<EXTimeOnly> time);
    /// Where the keys are; none until they were used.
    std::optional<EXTimeOnly> highlightedTime() const;

    bool moveByKey(const views::KeyEvent& event) override;
    bool hasHighlight() const override { return highlight_.has_value(); }
    bool chooseHighlighted() override;
    views::Size preferredSizeThatFits(views::Size available) override;
    std::string accessibilityValue() const override;

  protected:
    void chooseCell(std::size_t index) override;
    std::string cellName(std::size_t index) const override;

  private:
    std::optional<int> movedByKey(const views::KeyEvent& event, int from) const;
    void updateCells();

    OutputDateFormatter formatter_;
    bool mirrored_;
    std::optional<EXTimeOnly> time_;
    std::optional<int> highlight_;  ///< in half hours
    std::weak_ptr<CVMacTimeOnlyChooserDelegate> delegate_;
};

}  // namespace corvane
