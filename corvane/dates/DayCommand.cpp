#include "corvane/dates/DayCommand.h"

#include "corvane/platform/CivilDays.h"

namespace corvane {

namespace {

struct DayFinder {
    std::optional<EXDateOnly> operator()(DaysAhead ahead) const {
        return calendar.dateOnlyByAddingDays(ahead.days, today);
    }

    std::optional<EXDateOnly> operator()(NextWeekday next) const {
        const int weekday = calendar.weekdayForDateOnly(today);
        return calendar.dateOnlyByAddingDays(EXCalendar::weekdaysFromWeekday(weekday, next.weekday),
                                             today);
    }

    std::optional<EXDateOnly> operator()(DayOfYear dayOfYear) const {
        if (!platform::exists({today.year(), dayOfYear.month, dayOfYear.day})) return std::nullopt;
        const EXDateOnly day(today.year(), dayOfYear.month, dayOfYear.day);
        return day < today ? calendar.dateOnlyByAddingYears(1, day) : day;
    }

    std::optional<EXDateOnly> operator()(EXDateOnly day) const { return day; }

    EXDateOnly today;
    const EXCalendar& calendar;
};

}  // namespace

std::optional<EXDateOnly> dayOfCommand(const DayCommand& command, EXDateOnly today,
                                       const EXCalendar& calendar) {
    return std::visit(DayFinder{today, calendar}, command);
}

}  // namespace corvane
