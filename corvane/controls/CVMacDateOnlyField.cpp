#include "corvane/controls/CVMacDateOnlyField.h"

#include "corvane/dates/DateCommandGrammar.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateOnlyCommandParser.h"
#include "corvane/platform/TimeZone.h"
#include "corvane/views/Theme.h"

#include <utility>

namespace corvane {

namespace {

DayNames namesOfParser() {
    using Parser = EXDateOnlyCommandParser;
    DayNames names;
    names.setName(DayName::Today, Parser::todayName());
    names.setName(DayName::TodayShort, Parser::todayShortName());
    names.setName(DayName::Tomorrow, Parser::tomorrowName());
    names.setName(DayName::TomorrowShort, Parser::tomorrowShortName());
    return names;
}

EXDateOnly today() {
    return EXCalendar::currentCalendar().dateOnlyForToday();
}

}  // namespace

CVMacDateOnlyField::CVMacDateOnlyField(const views::Rect& frame)
    : DateEntryField(frame), focusedBackgroundColor_(views::theme().selection) {}

CVMacDateOnlyField::~CVMacDateOnlyField() = default;

void CVMacDateOnlyField::setLocale(const platform::Locale& locale) {
    ownGrammar_ = std::make_unique<DateCommandGrammar>(
        EXCalendar(platform::Calendar(platform::TimeZone::current(), locale)));
    DateEntryField::setLocale(locale);
}

std::optional<std::string> CVMacDateOnlyField::word(EXDateOnly day) const {
    return ownGrammar_ ? ownGrammar_->word(day, today(), namesOfParser())
                       : EXDateOnlyCommandParser::commandForDateOnly(day);
}

void CVMacDateOnlyField::setDateOnlyValue(DateOnly day) {
    dateOnlyValue_ = day;
    const auto date = EXCalendar::currentCalendar().dateForDateOnly(day);
    show(date ? shownText(*date, word(*day)) : "");
}

CVMacDateOnlyField::DateOnly CVMacDateOnlyField::dateOnlyValueFromString(
    std::string_view text) const {
    if (const auto day = outputDateFormatter().dayFromString(text)) return day;
    return ownGrammar_ ? ownGrammar_->parse(text, today(), namesOfParser())
                       : EXDateOnlyCommandParser::dateOnlyFromString(text);
}

CVMacDateOnlyField::DateOnly CVMacDateOnlyField::dayFromString(std::string_view text) const {
    return dateOnlyValueFromString(text);
}

void CVMacDateOnlyField::commit(const std::string& text) {
    setDateOnlyValue(text.empty() ? DateOnly() : dateOnlyValueFromString(text));
}

std::shared_ptr<ChooserView> CVMacDateOnlyField::makeChooser() {
    auto chooser = std::make_shared<CVMacDateOnlyChooserView>(outputDateFormatter().locale());
    chooser->setDelegate(std::shared_ptr<CVMacDateOnlyChooserDelegate>(shared_from_this(), this));
    return chooser;
}

void CVMacDateOnlyField::dateOnlyChooserDidChooseDateOnly(CVMacDateOnlyChooserView&,
                                                          EXDateOnly day) {
    trace("dateOnlyChooser:didChooseDateOnly:");
    hideDateChooserOverlay();
    setDateOnlyValue(day);
    sendActionOfValue();
}

// Looks.

void CVMacDateOnlyField::setFocusedBackgroundColor(const platform::Color& color) {
    focusedBackgroundColor_ = color;
    setNeedsDisplay();
}

void CVMacDateOnlyField::setShowFocusedBackground(bool show) {
    showFocusedBackground_ = show;
    setNeedsDisplay();
}

void CVMacDateOnlyField::draw(views::Canvas& canvas, const views::Rect& dirty) {
    DateEntryField::draw(canvas, dirty);
    if (!showFocusedBackground_ || !isEditing()) return;
    canvas.fillRoundedRect(bounds().insetBy(2, 2), 3, focusedBackgroundColor_);
    canvas.drawText(stringValue(), textRect(), {font(), textColor(), alignment()});
}

}  // namespace corvane
