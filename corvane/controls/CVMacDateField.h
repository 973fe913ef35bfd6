// The field for a due or start date, kept as a moment. The user types a word or a date, or picks a
// day from the calendar beside it.
#pragma once

#include "corvane/controls/CVMacDateChooserView.h"
#include "corvane/controls/DateEntryField.h"
#include "corvane/controls/DateFieldParser.h"
#include "corvane/platform/Instant.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class DateFieldGrammar;

/// Its parser is its own, beside that of day-only fields: a weekday's name never means today, and
/// English words count everywhere. The class operations are DateFieldParser's. Made by
/// std::make_shared.
///
///     // on Wednesday, March 4, 2026, in en_US, with Medium style
///     field->setDateValue(field->dateValueFromString("fri"));   // shows "Friday"
///     field->setDateValue(field->dateValueFromString("wed"));   // shows "Mar 11, 2026"
///     field->setStringValue("xyz");
///     field->sendAction();                                      // empties the field
class CVMacDateField final : public DateEntryField,
                             public DateFieldParser,
                             public CVMacDateChooserDelegate {
  public:
    explicit CVMacDateField(const views::Rect& frame = {});
    ~CVMacDateField() override;

    const Date& dateValue() const { return dateValue_; }
    /// Kept as the standardized moment of its day. A day from today to six days ahead shows by
    /// name, unless the style is the full one.
    void setDateValue(Date date);
    /// What the field shows in its style reads back; then what dateFromString reads.
    Date dateValueFromString(std::string_view text) const;

    void setLocale(const platform::Locale& locale) override;
    void dateChooserDidChooseDate(CVMacDateChooserView& chooser, platform::Instant date) override;

  protected:
    std::string_view debugClassName() const override { return "CVMacDateField"; }
    void commit(const std::string& text) override;
    std::shared_ptr<ChooserView> makeChooser() override;
    std::optional<EXDateOnly> day() const override;
    std::optional<EXDateOnly> dayFromString(std::string_view text) const override;
    void showValue() override { setDateValue(dateValue_); }

  private:
    const DateFieldGrammar& grammarInUse() const;

    Date dateValue_;
    std::unique_ptr<DateFieldGrammar> ownGrammar_;  ///< null for the user's
};

}  // namespace corvane
