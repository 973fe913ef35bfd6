#include "corvane/controls/CVMacDateField.h"

#include "corvane/controls/DateFieldGrammar.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateFactory.h"

namespace corvane {

CVMacDateField::CVMacDateField(const views::Rect& frame) : DateEntryField(frame) {}

CVMacDateField::~CVMacDateField() = default;

const DateFieldGrammar& CVMacDateField::grammarInUse() const {
    return ownGrammar_ ? *ownGrammar_ : grammar();
}

void CVMacDateField::setLocale(const platform::Locale& locale) {
    ownGrammar_ = std::make_unique<DateFieldGrammar>(locale);
    DateEntryField::setLocale(locale);
}

void CVMacDateField::setDateValue(Date date) {
    dateValue_ = EXDateFactory::standardizeDate(date, platform::Calendar::current());
    show(dateValue_ ? shownText(*dateValue_, wordForDate(*dateValue_, grammarInUse())) : "");
}

CVMacDateField::Date CVMacDateField::dateValueFromString(std::string_view text) const {
    if (const auto day = outputDateFormatter().dayFromString(text))
        return EXCalendar::currentCalendar().dateForDateOnly(day);
    return dateFromString(text, grammarInUse());
}

void CVMacDateField::commit(const std::string& text) {
    setDateValue(text.empty() ? Date() : dateValueFromString(text));
}

std::optional<EXDateOnly> CVMacDateField::day() const {
    return EXCalendar::currentCalendar().dateOnlyForDate(dateValue_);
}

std::optional<EXDateOnly> CVMacDateField::dayFromString(std::string_view text) const {
    return EXCalendar::currentCalendar().dateOnlyForDate(dateValueFromString(text));
}

std::shared_ptr<ChooserView> CVMacDateField::makeChooser() {
    auto chooser = std::make_shared<CVMacDateChooserView>(outputDateFormatter().locale());
    chooser->setDelegate(std::shared_ptr<CVMacDateChooserDelegate>(shared_from_this(), this));
    return chooser;
}

void CVMacDateField::dateChooserDidChooseDate(CVMacDateChooserView&, platform::Instant date) {
    trace("dateChooser:didChooseDate:");
    hideDateChooserOverlay();
    setDateValue(date);
    // Not by way of the text, which may have but two digits for the year.
    sendActionOfValue();
}

}  // namespace corvane
