// Calendar days and times of day in relation to moments, and the arithmetic on days. Wraps a
// platform calendar; an immutable value for any thread, which keeps nothing else.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/EXTimeOnly.h"
#include "corvane/platform/Calendar.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Absent arguments give absent results, or 0 where the result is a number. Weekdays are 1 = Sunday
/// to 7 = Saturday. Days may be of any number, for years from 0 on; one that does not exist, such
/// as February 31, counts as the day that it runs over to.
///
///     const EXCalendar calendar(platform::Calendar(zone, platform::Locale("de_DE")));
///     calendar.dateOnlyByAddingMonths(1, EXDateOnly(2024, 1, 31))        // 2024-02-29
///     calendar.dateOnlyByAddingYears(1, EXDateOnly(2024, 2, 29))         // 2025-02-28
///     calendar.daysFromDateOnly(EXDateOnly(2024, 3, 30), EXDateOnly(2024, 3, 31))    // 1
///     calendar.normalizedDateOnly(EXDateOnly(2023, 2, 31))               // 2023-03-03
///     calendar.weekdayForDateOnly(EXDateOnly(2024, 3, 5))                // 3
///     calendar.weekForDateOnly(EXDateOnly(2024, 3, 5))                   // 10
///     calendar.nameForMonthOfDateOnly(EXDateOnly(2024, 3, 5))            // "März"
///     calendar.createWeekdayShortNames().front()                         // "Mo."
class EXCalendar {
  public:
    using DateOnly = std::optional<EXDateOnly>;
    using TimeOnly = std::optional<EXTimeOnly>;
    using Date = std::optional<platform::Instant>;

    explicit EXCalendar(platform::Calendar calendar);

    /// Of the user's zone and locale as they are at the call.
    static EXCalendar currentCalendar();

    const platform::Calendar& calendar() const { return calendar_; }
    int firstWeekday() const { return calendar_.firstWeekday(); }

    // From moments

    /// The start of the minute, within the same pass of an hour that the clocks repeat.
    Date dateByStrippingSecondsFromDate(Date date) const;

    DateOnly dateOnlyForDate(Date date) const;
    TimeOnly timeOnlyForDate(Date date) const;

    /// The day of the moment; also stores its time of day where `time` is not null.
    DateOnly dateOnlyAndTimeOnly(TimeOnly* time, Date date) const;

    // From now

    EXTimeOnly timeOnlyForNow() const;
    EXDateOnly dateOnlyForToday() const;
    EXDateOnly dateOnlyForYesterday() const;
    EXDateOnly dateOnlyForTomorrow() const;

    // To moments. Where the clocks skipped a time it is the first moment after the gap, where they
    // repeated it the first of the two, the end of a day excepted.

    /// On January 1 of year 1: only the time of day means anything.
    Date dateForTimeOnly(TimeOnly time) const;

    /// Year, month and day, and the fields of the time where there is one.
    std::optional<platform::DateComponents> dateComponentsForDateOnly(DateOnly day,
                                                                      TimeOnly time = {}) const;

    /// At 00:00:00 where there is no time.
    Date dateForDateOnly(DateOnly day, TimeOnly time = {}) const;

    /// 00:00:00, or the first moment that the day has.
    Date dateForStartOfDateOnly(DateOnly day) const;

    /// 23:59:59, the second one where there are two, or the last whole second that the day has.
    Date dateForEndOfDateOnly(DateOnly day) const;

    // Days

    /// The day on which `day` starts in this zone, which is another one where `day` does not exist
    /// in the calendar or was left out by the zone.
    DateOnly normalizedDateOnly(DateOnly day) const;

    // On the calendar alone, so the zone does not matter: every day there counts as one. Where the
    // month reached lacks the day, its last day takes the place. `n` may be negative.
    DateOnly dateOnlyByAddingDays(std::int64_t n, DateOnly day) const;
    DateOnly dateOnlyByAddingWeeks(std::int64_t n, DateOnly day) const;
    DateOnly dateOnlyByAddingMonths(std::int64_t n, DateOnly day) const;
    DateOnly dateOnlyByAddingYears(std::int64_t n, DateOnly day) const;

    /// b - a in days, negative where b is the earlier one.
    std::int64_t daysFromDateOnly(DateOnly a, DateOnly b) const;

    // Weeks and months

    int weekdayForDateOnly(DateOnly day) const;

    /// 7 is followed by 1. Numbers beyond 1 to 7 count around the week: 8 is 1.
    static int nextWeekday(int weekday);

    /// How many steps of nextWeekday lead from a to b, 0 to 6.
    static int weekdaysFromWeekday(int a, int b);

    /// The week of the year by the rules of the calendar's region, 1 to 53.
    int weekForDateOnly(DateOnly day) const;

    /// 28 to 31.
    int numberOfDaysInMonthForDateOnly(DateOnly day) const;

    bool isDateOnlyInWeekend(DateOnly day) const;

    // Names, as the locale writes them

    std::optional<std::string> nameForMonthOfDateOnly(DateOnly day) const;

    /// Seven texts, beginning with the first weekday: the next such day, today included, and the
    /// six after it, each at noon in a pattern of Unicode's letters (UTS #35).
    std::vector<std::string> createWeekdayStringsWithDateFormat(std::string_view pattern) const;

    std::vector<std::string> createWeekdayNames() const;       ///< "Monday"
    std::vector<std::string> createWeekdayShortNames() const;  ///< "Mon"
    std::vector<std::string> createWeekdayInitials() const;    ///< "M"

    friend bool operator==(const EXCalendar&, const EXCalendar&) = default;

  private:
    platform::Calendar calendar_;
};

}  // namespace corvane
