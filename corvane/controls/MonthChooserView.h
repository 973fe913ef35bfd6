// A month of which the user picks a day, by the pointer or by keys; see CVMacDateChooserView.h for
// the choosers that fields have. One thread, the window's.
#pragma once

#include "corvane/controls/ChooserView.h"
#include "corvane/controls/MonthGrid.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/LocaleData.h"

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

/// Laid out from the first weekday of the locale, and from the right where that writes so. Weekends
/// are shaded, today has a ring, the value is filled, and where the keys are there is a frame.
class MonthChooserView : public ChooserView {
  public:
    explicit MonthChooserView(platform::Locale locale);

    std::optional<EXDateOnly> day() const { return day_; }
    /// Turns to the page with the day; with none, to that of today. Today is looked up anew.
    void setDay(std::optional<EXDateOnly> day);
    EXDateOnly shownMonth() const;  ///< its first day

    /// Where the keys are; none until they were used.
    std::optional<EXDateOnly> highlightedDay() const { return highlight_; }
    void setHighlightedDay(std::optional<EXDateOnly> day);

    /// Arrows, Page Up and Page Down (a month, with Shift a year), Home and End (of the week) move
    /// the highlight; Return chooses. False for other keys.
    bool moveByKey(const views::KeyEvent& event) override;
    bool hasHighlight() const override { return highlight_.has_value(); }
    bool chooseHighlighted() override;
    void choose(EXDateOnly day);
    /// Without moving the highlight.
    void turnPage(DayMove move);

    views::Size preferredSizeThatFits(views::Size available) override;
    void textSizesDidChange() final;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    std::string accessibilityName() const override { return title_; }
    std::string accessibilityValue() const override;

  protected:
    virtual void didChoose(EXDateOnly) {}
    void chooseCell(std::size_t index) override { choose(grid_.days()[index]); }
    std::string cellName(std::size_t index) const override { return fullText(grid_.days()[index]); }
    std::string cellValue(std::size_t index) const override;

  private:
    class PageButton;

    void addSubviews();
    std::optional<DayMove> moveOfKey(const views::KeyEvent& event) const;
    void showPage(EXDateOnly day);
    void updateCells();
    std::string monthTitle(EXDateOnly day) const;
    std::string fullText(EXDateOnly day) const;
    views::Rect cellFrame(int row, int column) const;

    platform::Locale locale_;
    EXCalendar calendar_;
    bool mirrored_;
    EXDateOnly today_;
    std::optional<EXDateOnly> day_;
    std::optional<EXDateOnly> highlight_;
    MonthGrid grid_;
    std::string title_;
    std::array<std::string, 7> weekdays_;  ///< from the calendar's first one
    platform::DateFormatter titleFormatter_;
    platform::DateFormatter numberFormatter_;
};

}  // namespace corvane
