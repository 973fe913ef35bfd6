// Moments that stand for days. A class of static operations for any thread; nobody makes an object
// of it.
#pragma once

#include "corvane/platform/Calendar.h"
#include "corvane/platform/DateComponents.h"
#include "corvane/platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

/// A day's standardized moment is 08:00:00 of its local time, its start 00:00:00 and its end
/// 23:59:59; times that the clocks skipped or repeated are found as EXCalendar finds them. Absent
/// arguments give absent results, 0 or false. "Today" is the day of the current clock in the zone
/// of the calendar given.
///
///     // now is 2024-03-30 22:15 in Berlin, the evening before the clocks go forward
///     const platform::Calendar calendar(TimeZone::named("Europe/Berlin").value(),
///                                       Locale("de_DE"));
///     EXDateFactory::today(calendar)               // 2024-03-30 08:00 there, 07:00 UTC
///     EXDateFactory::tomorrow(calendar)            // 2024-03-31 08:00 there, 06:00 UTC
///     EXDateFactory::daysFromDate(calendar, now, EXDateFactory::startOfTomorrow(calendar))  // 1
///     EXDateFactory::daysFromFirstWeekdayToDate(calendar, now)    // 5: a week begins on Monday
///     EXDateFactory::standardizedDateFromISODateOnlyString(calendar, "2024-03-05Z")
///                                                  // 2024-03-05 08:00 there
class EXDateFactory {
  public:
    using Calendar = platform::Calendar;
    using Instant = platform::Instant;
    using Date = std::optional<Instant>;

    EXDateFactory() = delete;

    /// Year, month, day, weekday and week of the year; the others stay unset.
    static std::optional<platform::DateComponents> standardizedComponentsFromDate(
        Date date, const Calendar& calendar);

    /// Sets hour, minute and second of the caller's components to 08:00:00, and gives the moment
    /// that they then describe.
    static Instant standardizedDateFromComponents(platform::DateComponents& components,
                                                  const Calendar& calendar);

    static Date standardizeDate(Date date, const Calendar& calendar);

    /// Reads what the pattern yyyy-MM-dd'Z' writes for the years 1 to 9999, and nothing else: four,
    /// two and two ASCII digits of a day that exists. The Z is part of the form; the day is meant
    /// in the calendar's zone.
    static Date standardizedDateFromISODateOnlyString(const Calendar& calendar,
                                                      std::optional<std::string_view> text);

    static Date startOfDate(Date date, const Calendar& calendar);
    static Date endOfDate(Date date, const Calendar& calendar);

    /// The day of the first moment at the time of day of the second.
    static Date mergeDate(Date date, Date time, const Calendar& calendar);

    static Instant today(const Calendar& calendar);
    static Instant startOfToday(const Calendar& calendar);
    static Instant endOfToday(const Calendar& calendar);

    static Instant tomorrow(const Calendar& calendar);
    static Instant startOfTomorrow(const Calendar& calendar);
    static Instant endOfTomorrow(const Calendar& calendar);

    static Instant dayAfterTomorrow(const Calendar& calendar);
    static Instant startOfDayAfterTomorrow(const Calendar& calendar);

    static Instant endOfYesterday(const Calendar& calendar);

    /// The end of the day `n` days after today.
    static Instant endOfNextDays(std::int64_t n, const Calendar& calendar);

    static bool isToday(const Calendar& calendar, Date date);
    static bool isTomorrow(const Calendar& calendar, Date date);

    /// Days of the calendar between the two, whatever their times; negative where `to` is earlier.
    static std::int64_t daysFromDate(const Calendar& calendar, Date from, Date to);

    /// The same time of day, to the microsecond, `n` days or weeks later.
    static Date dateByAddingDays(const Calendar& calendar, std::int64_t n, Date date);
    static Date dateByAddingWeeks(const Calendar& calendar, std::int64_t n, Date date);

    /// 0 on the calendar's first weekday, up to 6 on the day before it.
    static int daysFromFirstWeekdayToDate(const Calendar& calendar, Date date);
};

}  // namespace corvane
