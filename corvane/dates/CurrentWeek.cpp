#include "corvane/dates/CurrentWeek.h"

#include "corvane/platform/CivilDays.h"
#include "corvane/platform/Clock.h"

namespace corvane {

namespace {

EXDateOnly daysAfter(EXDateOnly from, std::int64_t days) {
    const auto day = platform::addDays({from.year(), from.month(), from.day()}, days);
    return {day.year, day.month, day.day};
}

}  // namespace

void CurrentWeek::update() {
    const auto now = platform::currentClock().now();
    const auto& zone = platform::TimeZone::current();
    // Not for the whole day: where the clocks are set back across midnight, a day has a gap.
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    if (second == second_ && zone_ && *zone_ == zone) return;
    const EXDateOnly today(now);
    if (!zone_ || today != days_[0]) fill(today);
    second_ = second;
    zone_ = zone;
}

void CurrentWeek::fill(EXDateOnly today) {
    weekday_ = platform::weekday({today.year(), today.month(), today.day()});
    for (std::size_t ahead = 0; ahead < days_.size(); ++ahead)
        days_[ahead] = daysAfter(today, static_cast<std::int64_t>(ahead));
}

EXDateOnly CurrentWeek::dayAhead(int days) const {
    const bool isInWeek = days >= 0 && days < static_cast<int>(days_.size());
    return isInWeek ? days_[static_cast<std::size_t>(days)] : daysAfter(today(), days);
}

EXDateOnly CurrentWeek::nextWeekday(int weekday) const {
    const int ahead = weekday - weekday_;
    return days_[static_cast<std::size_t>(ahead < 0 ? ahead + 7 : ahead)];
}

}  // namespace corvane
