// The Gregorian calendar as one user sees it: in a time zone, with the names of a locale and the
// weeks of its region. An immutable value, cheap to copy, for any thread.
#pragma once

#include "corvane/platform/CivilDays.h"
#include "corvane/platform/DateComponents.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/LocaleData.h"
#include "corvane/platform/TimeZone.h"

#include <cstdint>
#include <optional>

namespace corvane::platform {

///     const Calendar calendar(TimeZone::named("Europe/Berlin").value(), Locale("de_DE"));
///     calendar.firstWeekday()                                        // 2, Monday
///     calendar.instantFromComponents({.year = 2024, .month = 3, .day = 31, .hour = 2})
///                                   // 01:00 UTC: the clocks skipped 02:00 to 03:00 that day
///     calendar.endOfDay({2024, 3, 31}) - calendar.startOfDay({2024, 3, 31})   // 22:59:59
class Calendar {
  public:
    /// With the week rules of the locale, which are looked up when they are first asked for.
    Calendar(TimeZone zone, Locale locale);

    /// Throws std::invalid_argument where the first weekday or the minimal days are not 1 to 7.
    Calendar(TimeZone zone, Locale locale, WeekRules rules);

    /// Of the current time zone and the current locale as they are at the call.
    static Calendar current();

    const TimeZone& timeZone() const { return zone_; }
    const Locale& locale() const { return locale_; }
    WeekRules weekRules() const;
    int firstWeekday() const { return weekRules().firstWeekday; }

    /// All of the fields; fractions of a second are dropped.
    DateComponents componentsFromInstant(Instant instant) const;

    /// An unset year, month or day counts as 1, an unset time field as 0; fields may run over.
    /// A time that the clocks skipped gives the first moment after the gap, a date beyond the range
    /// of an Instant the nearest end of that range.
    Instant instantFromComponents(const DateComponents& components,
                                  RepeatedTime repeated = RepeatedTime::First) const;

    CivilDay dayOfInstant(Instant instant) const;

    /// The first moment of the day: 00:00:00, or what the clocks showed first if they skipped that.
    Instant startOfDay(const CivilDay& day) const;

    /// The last whole second of the day: 23:59:59, or what the clocks showed last if they skipped
    /// that. Of a day that a zone left out as a whole, the end of the day before.
    Instant endOfDay(const CivilDay& day) const;

    /// The same time of another day, found as by instantFromComponents. Adding no day changes
    /// nothing, not even in a repeated hour.
    Instant addDays(Instant instant, std::int64_t days) const;

    bool isInWeekend(const CivilDay& day) const;
    int weekOfYear(const CivilDay& day) const;

    friend bool operator==(const Calendar& a, const Calendar& b) {
        return a.zone_ == b.zone_ && a.locale_ == b.locale_ && a.weekRules() == b.weekRules();
    }

  private:
    TimeZone zone_;
    Locale locale_;
    std::optional<WeekRules> rules_;  ///< None stands for the locale's.
};

}  // namespace corvane::platform
