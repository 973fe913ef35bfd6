#include "corvane/controls/DateEntryField.h"

#include "corvane/controls/MonthChooserView.h"

namespace corvane {

DateEntryField::DateEntryField(const views::Rect& frame)
    : ChooserField(frame), formatter_(platform::currentLocale()) {}

void DateEntryField::setLocale(const platform::Locale& locale) {
    forgetChooser();
    formatter_ = OutputDateFormatter(locale, dateStyle());
    showValue();
}

void DateEntryField::setDateStyle(platform::DateStyle style) {
    formatter_.setDateStyle(style);
    if (!isEditing()) showValue();
}

std::string DateEntryField::shownText(platform::Instant date,
                                      const std::optional<std::string>& word) const {
    const bool isFull = dateStyle() == platform::DateStyle::Full;
    return word && !isFull ? *word : formatter_.stringFromDate(date);
}

void DateEntryField::showInChooser(ChooserView& chooser, std::string_view text) {
    // Of an empty text too: what reading needs is then there before the first letter.
    const auto typed = dayFromString(text);
    static_cast<MonthChooserView&>(chooser).setDay(typed ? typed : day());
}

}  // namespace corvane
