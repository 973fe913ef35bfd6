// Today and the six days after it, as the clock and the time zone in force have them. Finding that
// out takes longer than reading most texts, so it is kept for as long as it cannot have changed.
// For one thread at a time.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/TimeZone.h"

#include <array>
#include <chrono>
#include <optional>

namespace corvane {

///     CurrentWeek week;               // on Saturday, June 15, 2024
///     week.update();
///     week.today()                    // 2024-06-15
///     week.dayAhead(1)                // 2024-06-16
///     week.nextWeekday(6)             // 2024-06-21, a Friday
class CurrentWeek {
  public:
    /// Asks the clock and the zone. Before the first call there is no day to be had.
    void update();

    EXDateOnly today() const { return days_[0]; }

    EXDateOnly dayAhead(int days) const;

    /// Today, or the day after it that is the first such weekday. REQUIRES: 1 to 7.
    EXDateOnly nextWeekday(int weekday) const;

  private:
    void fill(EXDateOnly today);

    std::optional<platform::TimeZone> zone_;
    std::chrono::sys_seconds second_;  ///< In which the zone was asked.
    std::array<EXDateOnly, 7> days_;
    int weekday_ = 1;  ///< of today
};

}  // namespace corvane
