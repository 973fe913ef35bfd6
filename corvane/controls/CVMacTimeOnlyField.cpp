#include "corvane/controls/CVMacTimeOnlyField.h"

#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXTimeOnlyCommandParser.h"
#include "corvane/dates/TimeCommandGrammar.h"

namespace corvane {

using platform::DateStyle;

CVMacTimeOnlyField::CVMacTimeOnlyField(const views::Rect& frame)
    : ChooserField(frame),
      formatter_(platform::currentLocale(), DateStyle::None, DateStyle::Short) {}

CVMacTimeOnlyField::~CVMacTimeOnlyField() = default;

void CVMacTimeOnlyField::setTimeOnlyValue(TimeOnly time) {
    timeOnlyValue_ = time;
    const auto date = EXCalendar::currentCalendar().dateForTimeOnly(time);
    show(date ? formatter_.stringFromDate(*date) : "");
}

void CVMacTimeOnlyField::setTimeStyle(DateStyle style) {
    formatter_.setTimeStyle(style);
    if (!isEditing()) setTimeOnlyValue(timeOnlyValue_);
}

void CVMacTimeOnlyField::setLocale(const platform::Locale& locale) {
    forgetChooser();
    formatter_ = OutputDateFormatter(locale, DateStyle::None, formatter_.timeStyle());
    ownGrammar_ = std::make_unique<TimeCommandGrammar>(locale);
    setTimeOnlyValue(timeOnlyValue_);
}

CVMacTimeOnlyField::TimeOnly CVMacTimeOnlyField::timeOnlyFromString(std::string_view text) const {
    return ownGrammar_ ? ownGrammar_->parse(text)
                       : EXTimeOnlyCommandParser::timeOnlyFromString(text);
}

void CVMacTimeOnlyField::commit(const std::string& text) {
    setTimeOnlyValue(text.empty() ? TimeOnly() : timeOnlyFromString(text));
}

std::shared_ptr<ChooserView> CVMacTimeOnlyField::makeChooser() {
    auto chooser = std::make_shared<CVMacTimeOnlyChooserView>(formatter_.locale());
    chooser->setDelegate(std::shared_ptr<CVMacTimeOnlyChooserDelegate>(shared_from_this(), this));
    return chooser;
}

void CVMacTimeOnlyField::showInChooser(ChooserView& chooser, std::string_view text) {
    const auto typed = text.empty() ? TimeOnly() : timeOnlyFromString(text);
    static_cast<CVMacTimeOnlyChooserView&>(chooser).setTime(typed ? typed : timeOnlyValue_);
}

void CVMacTimeOnlyField::timeOnlyChooserDidChooseTimeOnly(CVMacTimeOnlyChooserView&,
                                                          EXTimeOnly time) {
    trace("timeOnlyChooser:didChooseTimeOnly:");
    hideDateChooserOverlay();
    setTimeOnlyValue(time);
    sendActionOfValue();
}

}  // namespace corvane
