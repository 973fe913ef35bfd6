// What an editor of repeat rules works with: choices, labels, and the interval and occurrences of
// every frequency, so that going to another frequency and back loses nothing. Owned by the editor;
// its fields are for one thread, the static operations for any.
#pragma once

#include "corvane/dates/EXBitmaskFactory.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/HGCustomRepeat.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Frequencies and occurrences are those of HGCustomRepeat. For showing, the days of the week begin
/// with the calendar's first weekday; what is stored always begins with Sunday.
///
///     // in a calendar whose week begins on Monday
///     HGCustomRepeatFactory factory;
///     factory.bitmaskForRepeatOccurrences(0b1, kWeekly, calendar)           // 0b1000000
///     factory.repeatOccurrencesFromBitmask(0b1000000, kWeekly, calendar)    // 0b1
///
///     const EXDateOnly day(2024, 3, 5);
///     factory.resetPerFrequencyDefaultsForDate(day, kMonthly, 3, 0b1, calendar);
///     factory.intervalForFrequency(kMonthly)       // 3, as given
///     factory.occurrencesForFrequency(kMonthly)    // 0b1, as given
///     factory.occurrencesForFrequency(kWeekly)     // 0b100: that day is a Tuesday
///     factory.occurrencesForFrequency(kYearly)     // 0b100: and in March
class HGCustomRepeatFactory : public EXBitmaskFactory {
  public:
    /// "Weekly", in the user's language; none for a code that is no frequency.
    static std::optional<std::string> choiceTitleForFrequency(std::int16_t frequency);

    /// A new list of the four frequencies; the value of an item is its code.
    static std::shared_ptr<EXChoiceList> choiceListForFrequencies();

    /// Stored occurrences as they are shown. Only those of the weekly frequency differ, of which
    /// bits beyond the seventh are not expected.
    static std::int64_t bitmaskForRepeatOccurrences(std::int64_t occurrences,
                                                    std::int16_t frequency,
                                                    const EXCalendar& calendar);

    /// Shown occurrences as they are stored.
    static std::int64_t repeatOccurrencesFromBitmask(std::int64_t bitmask, std::int16_t frequency,
                                                     const EXCalendar& calendar);

    // Labels of the bits as they are shown

    /// The first characters of the weekdays, beginning with the first one of the calendar.
    static std::vector<std::string> bitLabelsForWeekOfCalendar(const EXCalendar& calendar);

    /// "1" to "31".
    static std::vector<std::string> bitLabelsForMonthOfCalendar(const EXCalendar& calendar);

    /// "JAN" to "DEC": the first three characters of the months in capitals.
    static std::vector<std::string> bitLabelsForYearOfCalendar(const EXCalendar& calendar);

    /// Starts an editor for a rule of a task whose reference day is `day`: every frequency gets the
    /// interval 1 and the weekday, day or month of `day`; then `frequency` gets the interval and
    /// the occurrences given, each only if it is at least 1. Without a day nothing changes.
    void resetPerFrequencyDefaultsForDate(std::optional<EXDateOnly> day, std::int16_t frequency,
                                          std::int64_t interval, std::int64_t occurrences,
                                          const EXCalendar& calendar);

    /// Stores both as they are, but no occurrences for daily, and nothing for other codes.
    void updateWithFrequency(std::int16_t frequency, std::int64_t interval,
                             std::int64_t occurrences);

    /// 0 for other codes.
    std::int64_t intervalForFrequency(std::int16_t frequency) const;

    /// 0 for daily and for other codes.
    std::int64_t occurrencesForFrequency(std::int16_t frequency) const;

    // All 0 at first.
    std::int64_t dailyRepeatInterval() const { return intervals_[HGCustomRepeat::kDaily]; }
    std::int64_t weeklyRepeatInterval() const { return intervals_[HGCustomRepeat::kWeekly]; }
    std::int64_t monthlyRepeatInterval() const { return intervals_[HGCustomRepeat::kMonthly]; }
    std::int64_t yearlyRepeatInterval() const { return intervals_[HGCustomRepeat::kYearly]; }
    std::int64_t weeklyRepeatOccurrences() const { return occurrences_[HGCustomRepeat::kWeekly]; }
    std::int64_t monthlyRepeatOccurrences() const { return occurrences_[HGCustomRepeat::kMonthly]; }
    std::int64_t yearlyRepeatOccurrences() const { return occurrences_[HGCustomRepeat::kYearly]; }

  private:
    std::array<std::int64_t, 4> intervals_{};    ///< By frequency.
    std::array<std::int64_t, 4> occurrences_{};  ///< By frequency; daily's stays 0.
};

}  // namespace corvane
