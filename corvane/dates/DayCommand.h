// What a typed text says about a day before anybody has looked which day today is. A plain value.
#pragma once

#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateOnly.h"

#include <optional>
#include <variant>

namespace corvane {

/// "tomorrow" is 1.
struct DaysAhead {
    int days = 0;
};

/// The next such day, today included; 1 = Sunday to 7 = Saturday.
struct NextWeekday {
    int weekday = 1;
};

/// A date without its year: of this year, or of the next where that has passed.
struct DayOfYear {
    int month = 1;
    int day = 1;
};

using DayCommand = std::variant<DaysAhead, NextWeekday, DayOfYear, EXDateOnly>;

/// None for February 29 without a year where this year has none. Where it has passed already, it
/// becomes February 28 of the next year.
///     // on Saturday, June 15, 2024
///     dayOfCommand(NextWeekday{1}, today, calendar)      // 2024-06-16
///     dayOfCommand(DayOfYear{3, 10}, today, calendar)    // 2025-03-10
///     dayOfCommand(DayOfYear{6, 15}, today, calendar)    // 2024-06-15
std::optional<EXDateOnly> dayOfCommand(const DayCommand& command, EXDateOnly today,
                                       const EXCalendar& calendar);

}  // namespace corvane
