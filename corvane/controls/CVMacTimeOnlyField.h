// The field for a time of day, read by the parser of times.
#pragma once

#include "corvane/controls/CVMacTimeOnlyChooserView.h"
#include "corvane/controls/ChooserField.h"
#include "corvane/controls/OutputDateFormatter.h"
#include "corvane/dates/EXTimeOnly.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class TimeCommandGrammar;

/// Shows in the locale's style and reads what EXTimeOnlyCommandParser reads: where the locale puts
/// other signs than colons between hours and minutes ("22.15"), what it shows does not read back.
/// Made by std::make_shared.
class CVMacTimeOnlyField final : public ChooserField, public CVMacTimeOnlyChooserDelegate {
  public:
    using TimeOnly = std::optional<EXTimeOnly>;

    explicit CVMacTimeOnlyField(const views::Rect& frame = {});
    ~CVMacTimeOnlyField() override;

    const TimeOnly& timeOnlyValue() const { return timeOnlyValue_; }
    void setTimeOnlyValue(TimeOnly time);

    const OutputDateFormatter& outputDateFormatter() const { return formatter_; }
    /// Short at first, which has no seconds. A value shows anew, unless the field is being edited.
    void setTimeStyle(platform::DateStyle style);
    /// Reads and shows in another locale than the user's.
    void setLocale(const platform::Locale& locale);

    void timeOnlyChooserDidChooseTimeOnly(CVMacTimeOnlyChooserView& chooser,
                                          EXTimeOnly time) override;

  protected:
    std::string_view debugClassName() const override { return "CVMacTimeOnlyField"; }
    void commit(const std::string& text) override;
    std::shared_ptr<ChooserView> makeChooser() override;
    void showInChooser(ChooserView& chooser, std::string_view text) override;

  private:
    TimeOnly timeOnlyFromString(std::string_view text) const;

    TimeOnly timeOnlyValue_;
    OutputDateFormatter formatter_;
    std::unique_ptr<TimeCommandGrammar> ownGrammar_;  ///< null for the user's
};

}  // namespace corvane
