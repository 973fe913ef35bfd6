// A task's own rule of repeating. Says when, but computes no days: that is up to the application
// that owns the tasks. A plain value.
#pragma once

#include <cstdint>

namespace corvane {

/// Every `interval` days, weeks, months or years, on the days or months of the occurrences.
///
///     HGCustomRepeat rule(HGCustomRepeat::kWeekly, 2, 0b100010);   // Monday, Friday every 2 weeks
///     HGCustomRepeat() == HGCustomRepeat(HGCustomRepeat::kDaily, 1, 0)          // true
class HGCustomRepeat {
  public:
    /// Codes of the frequencies. They are stored, so they must not change.
    static constexpr std::int16_t kDaily = 0;
    static constexpr std::int16_t kWeekly = 1;
    static constexpr std::int16_t kMonthly = 2;
    static constexpr std::int16_t kYearly = 3;

    constexpr HGCustomRepeat() = default;
    constexpr HGCustomRepeat(std::int16_t frequency, std::int64_t interval,
                             std::int64_t occurrences)
        : frequency_(frequency), interval_(interval), occurrences_(occurrences) {}

    constexpr std::int16_t frequency() const { return frequency_; }
    constexpr std::int64_t interval() const { return interval_; }

    /// A mask; 0 where nothing is chosen. Weekly, bit 0 is Sunday and bit 6 Saturday, whatever
    /// weekday the user's week begins with; monthly, bit 0 is the 1st; yearly, bit 0 is January;
    /// daily, there are none.
    constexpr std::int64_t occurrences() const { return occurrences_; }

    constexpr void setFrequency(std::int16_t frequency) { frequency_ = frequency; }
    constexpr void setInterval(std::int64_t interval) { interval_ = interval; }
    constexpr void setOccurrences(std::int64_t occurrences) { occurrences_ = occurrences; }

    friend constexpr bool operator==(const HGCustomRepeat&, const HGCustomRepeat&) = default;

  private:
    std::int16_t frequency_ = kDaily;
    std::int64_t interval_ = 1;
    std::int64_t occurrences_ = 0;
};

}  // namespace corvane
