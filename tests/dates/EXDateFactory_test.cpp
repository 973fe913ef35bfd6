#include "corvane/dates/EXDateFactory.h"

#include "corvane/platform/Clock.h"

#include <gtest/gtest.h>

namespace corvane {
using namespace std::chrono_literals;
using F = EXDateFactory;

TEST(EXDateFactory, FindsTheMomentsOfDays) {
    const platform::Calendar c(platform::TimeZone::named("Europe/Berlin").value(),
                               platform::Locale("de_DE"));
    auto at = [&](platform::CivilTime civil) { return c.timeZone().instantFromCivil(civil); };
    const platform::FixedClock clock(at({2024, 10, 26, 23, 30, 7}));
    const platform::ScopedClock scope(clock);
    const auto now = clock.now() + 250ms,
               again = at({2024, 10, 27, 2, 30}) + 1h;  // 02:30 once more
    auto fields = *F::standardizedComponentsFromDate(now, c);
    EXPECT_EQ(fields, (platform::DateComponents{
                          .year = 2024, .month = 10, .day = 26, .weekday = 7, .weekOfYear = 43}));
    const std::pair<F::Date, platform::CivilTime> moments[] = {
        {F::standardizedDateFromComponents(fields, c), {2024, 10, 26, 8}},
        {c.instantFromComponents(fields), {2024, 10, 26, 8}},
        {F::standardizeDate(now, c), {2024, 10, 26, 8}},
        {F::mergeDate(again, now, c), {2024, 10, 27, 23, 30, 7}},
        {F::startOfDate(again, c), {2024, 10, 27}},
        {F::endOfDate(again, c), {2024, 10, 27, 23, 59, 59}},
        {F::today(c), {2024, 10, 26, 8}},
        {F::startOfToday(c), {2024, 10, 26}},
        {F::endOfToday(c), {2024, 10, 26, 23, 59, 59}},
        {F::tomorrow(c), {2024, 10, 27, 8}},
        {F::startOfTomorrow(c), {2024, 10, 27}},
        {F::endOfTomorrow(c), {2024, 10, 27, 23, 59, 59}},
        {F::dayAfterTomorrow(c), {2024, 10, 28, 8}},
        {F::startOfDayAfterTomorrow(c), {2024, 10, 28}},
        {F::endOfYesterday(c), {2024, 10, 25, 23, 59, 59}},
        {F::endOfNextDays(6, c), {2024, 11, 1, 23, 59, 59}},
        {F::dateByAddingDays(c, 1, again), {2024, 10, 28, 2, 30}},
        {F::dateByAddingWeeks(c, -30, again), {2024, 3, 31, 3}},
        {c.instantFromComponents({.year = 2024, .second = 86'400LL * 36'525}), {2124, 1, 2}},
        {F::standardizedDateFromISODateOnlyString(c, "2024-03-05Z"), {2024, 3, 5, 8}}};
    for (const auto& [moment, expected] : moments)
        EXPECT_EQ(moment, at(expected));
    for (auto text :
         {"", "2024-03-05", "2024-3-5Z", "24-03-05Z", "2024-03-05z", "2024-02-30Z", "0000-01-01Z",
          " 2024-03-05Z", "2024-03-05Z ", "12024-03-05Z", "2024-+3-05Z", "2024/03/05Z"})
        EXPECT_EQ(F::standardizedDateFromISODateOnlyString(c, text), std::nullopt) << text;
    EXPECT_EQ(F::dateByAddingDays(c, 0, again), again);
    EXPECT_EQ(*F::dateByAddingDays(c, 366, now) - at({2025, 10, 27, 23, 30, 7}), 250ms);
    EXPECT_EQ(F::dateByAddingWeeks(c, INT64_MAX, now + 1us), platform::Instant::max());
    EXPECT_TRUE(F::isToday(c, F::startOfToday(c)) && F::isTomorrow(c, again) &&
                !F::isToday(c, again) && !F::isTomorrow(c, now) && !F::isToday(c, {}));
    EXPECT_EQ(F::daysFromDate(c, F::endOfTomorrow(c), F::startOfToday(c)) +
                  F::daysFromFirstWeekdayToDate(c, again),
              6 - 1);
}

}  // namespace corvane
