#include "corvane/controls/CVMacDateChooserView.h"

#include "corvane/dates/EXDateFactory.h"

namespace corvane {

void CVMacDateChooserView::didChoose(EXDateOnly day) {
    const EXCalendar calendar = EXCalendar::currentCalendar();
    const auto date =
        EXDateFactory::standardizeDate(calendar.dateForDateOnly(day), calendar.calendar());
    const auto delegate = delegate_.lock();
    if (delegate && date) delegate->dateChooserDidChooseDate(*this, *date);
}

void CVMacDateOnlyChooserView::didChoose(EXDateOnly day) {
    if (const auto delegate = delegate_.lock())
        delegate->dateOnlyChooserDidChooseDateOnly(*this, day);
}

}  // namespace corvane
