// The days that a page of a calendar shows: a month in whole weeks, and where the keys lead from
// one of them. Values and functions; any thread.
#pragma once

#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateOnly.h"

#include <array>

namespace corvane {

/// As many weeks as any month touches, so that pages are of one size; the first one holds the first
/// day of the month and begins with the calendar's first weekday.
///
///     const EXCalendar calendar(platform::Calendar({}, platform::Locale("de_DE")));
///     const MonthGrid grid(calendar, EXDateOnly(2026, 3, 4));
///     grid.days()[0]                             // 2026-02-23, a Monday
///     grid.isInMonth(grid.days()[0])             // false
class MonthGrid {
  public:
    static constexpr int kColumns = 7;
    static constexpr int kRows = 6;
    static constexpr int kDays = kColumns * kRows;

    /// The page with that day.
    MonthGrid(const EXCalendar& calendar, EXDateOnly day);

    EXDateOnly firstOfMonth() const { return firstOfMonth_; }
    const std::array<EXDateOnly, kDays>& days() const { return days_; }
    bool isInMonth(EXDateOnly day) const;

  private:
    EXDateOnly firstOfMonth_;
    std::array<EXDateOnly, kDays> days_;
};

enum class DayMove {
    PreviousDay,
    NextDay,
    PreviousWeek,
    NextWeek,
    StartOfWeek,
    EndOfWeek,
    PreviousMonth,
    NextMonth,
    PreviousYear,
    NextYear,
};

/// Months and years lead to the same day, or to the last one that the month has. Days of other
/// years than 1 to 9999, which no field could show, are not reached: the day stays.
///     dayAfterMove(calendar, EXDateOnly(2026, 1, 31), DayMove::NextMonth)   // 2026-02-28
EXDateOnly dayAfterMove(const EXCalendar& calendar, EXDateOnly day, DayMove move);

}  // namespace corvane
