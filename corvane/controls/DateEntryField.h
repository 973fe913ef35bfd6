// What the fields for days have in common: the style in which they show them, and a calendar as
// their chooser. One thread, the window's.
#pragma once

#include "corvane/controls/ChooserField.h"
#include "corvane/controls/OutputDateFormatter.h"
#include "corvane/dates/EXDateOnly.h"

#include <optional>
#include <string_view>

namespace corvane {

class DateEntryField : public ChooserField {
  public:
    explicit DateEntryField(const views::Rect& frame = {});

    /// Reads and shows in another locale than the user's. A value shows anew.
    virtual void setLocale(const platform::Locale& locale);

    const OutputDateFormatter& outputDateFormatter() const { return formatter_; }
    platform::DateStyle dateStyle() const { return formatter_.dateStyle(); }
    /// Medium at first. A value shows anew, unless the field is being edited.
    void setDateStyle(platform::DateStyle style);

  protected:
    /// None where the field is empty.
    virtual std::optional<EXDateOnly> day() const = 0;
    virtual std::optional<EXDateOnly> dayFromString(std::string_view text) const = 0;
    virtual void showValue() = 0;
    /// The full style says more than a word would.
    std::string shownText(platform::Instant date, const std::optional<std::string>& word) const;
    void showInChooser(ChooserView& chooser, std::string_view text) override;

  private:
    OutputDateFormatter formatter_;
};

}  // namespace corvane
