// The field for a calendar day, read by the parser of days.
#pragma once

#include "corvane/controls/CVMacDateChooserView.h"
#include "corvane/controls/DateEntryField.h"
#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/Color.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class DateCommandGrammar;

/// Words are those of EXDateOnlyCommandParser, with the names set there: a weekday's name may mean
/// today. Made by std::make_shared.
class CVMacDateOnlyField final : public DateEntryField, public CVMacDateOnlyChooserDelegate {
  public:
    using DateOnly = std::optional<EXDateOnly>;

    explicit CVMacDateOnlyField(const views::Rect& frame = {});
    ~CVMacDateOnlyField() override;

    const DateOnly& dateOnlyValue() const { return dateOnlyValue_; }
    void setDateOnlyValue(DateOnly day);
    DateOnly dateOnlyValueFromString(std::string_view text) const;

    /// Behind the text while it is edited, where that is wanted; it is not at first.
    const platform::Color& focusedBackgroundColor() const { return focusedBackgroundColor_; }
    void setFocusedBackgroundColor(const platform::Color& color);
    bool showFocusedBackground() const { return showFocusedBackground_; }
    void setShowFocusedBackground(bool show);

    void setLocale(const platform::Locale& locale) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void dateOnlyChooserDidChooseDateOnly(CVMacDateOnlyChooserView& chooser,
                                          EXDateOnly day) override;

  protected:
    std::string_view debugClassName() const override { return "CVMacDateOnlyField"; }
    void commit(const std::string& text) override;
    std::shared_ptr<ChooserView> makeChooser() override;
    DateOnly day() const override { return dateOnlyValue_; }
    DateOnly dayFromString(std::string_view text) const override;
    void showValue() override { setDateOnlyValue(dateOnlyValue_); }

  private:
    std::optional<std::string> word(EXDateOnly day) const;

    DateOnly dateOnlyValue_;
    platform::Color focusedBackgroundColor_;
    bool showFocusedBackground_ = false;
    std::unique_ptr<DateCommandGrammar> ownGrammar_;  ///< null for the user's
};

}  // namespace corvane
