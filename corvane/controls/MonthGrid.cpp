#include "corvane/controls/MonthGrid.h"

namespace corvane {

namespace {

constexpr std::int64_t kFirstYear = 1;
constexpr std::int64_t kLastYear = 9999;

/// 0 on the first day of a week, up to 6 on the last one.
int dayOfWeek(const EXCalendar& calendar, EXDateOnly day) {
    return EXCalendar::weekdaysFromWeekday(calendar.firstWeekday(),
                                           calendar.weekdayForDateOnly(day));
}

EXCalendar::DateOnly moved(const EXCalendar& calendar, EXDateOnly day, DayMove move) {
    switch (move) {
        case DayMove::PreviousDay:
            return calendar.dateOnlyByAddingDays(-1, day);
        case DayMove::NextDay:
            return calendar.dateOnlyByAddingDays(1, day);
        case DayMove::PreviousWeek:
            return calendar.dateOnlyByAddingWeeks(-1, day);
        case DayMove::NextWeek:
            return calendar.dateOnlyByAddingWeeks(1, day);
        case DayMove::StartOfWeek:
            return calendar.dateOnlyByAddingDays(-dayOfWeek(calendar, day), day);
        case DayMove::EndOfWeek:
            return calendar.dateOnlyByAddingDays(MonthGrid::kColumns - 1 - dayOfWeek(calendar, day),
                                                 day);
        case DayMove::PreviousMonth:
            return calendar.dateOnlyByAddingMonths(-1, day);
        case DayMove::NextMonth:
            return calendar.dateOnlyByAddingMonths(1, day);
        case DayMove::PreviousYear:
            return calendar.dateOnlyByAddingYears(-1, day);
        case DayMove::NextYear:
            return calendar.dateOnlyByAddingYears(1, day);
    }
    return day;
}

}  // namespace

MonthGrid::MonthGrid(const EXCalendar& calendar, EXDateOnly day)
    : firstOfMonth_(day.year(), day.month(), 1) {
    EXCalendar::DateOnly next = moved(calendar, firstOfMonth_, DayMove::StartOfWeek);
    for (auto& each : days_) {
        each = next.value_or(firstOfMonth_);
        next = moved(calendar, each, DayMove::NextDay);
    }
}

bool MonthGrid::isInMonth(EXDateOnly day) const {
    return day.year() == firstOfMonth_.year() && day.month() == firstOfMonth_.month();
}

EXDateOnly dayAfterMove(const EXCalendar& calendar, EXDateOnly day, DayMove move) {
    const EXDateOnly reached = moved(calendar, day, move).value_or(day);
    return reached.year() < kFirstYear || reached.year() > kLastYear ? day : reached;
}

}  // namespace corvane
