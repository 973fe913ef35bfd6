#include "corvane/dates/HGCustomRepeatFactory.h"

#include <gtest/gtest.h>

namespace corvane {
using F = HGCustomRepeatFactory;

TEST(HGCustomRepeat, ShowsTheWeekFromItsFirstDay) {
    for (int first = 1; first <= 7; ++first) {
        const EXCalendar c({{}, {}, {.firstWeekday = first}});
        for (std::int64_t stored = 0; stored < 128; ++stored) {
            const auto twoWeeks = stored | stored << 7, shown = twoWeeks >> (first - 1) & 127;
            EXPECT_EQ(F::bitmaskForRepeatOccurrences(stored, 1, c), shown);
            EXPECT_EQ(F::repeatOccurrencesFromBitmask(shown, 1, c), stored);
            EXPECT_EQ(F::bitmaskForRepeatOccurrences(stored, 2, c), stored);
        }
    }
    EXPECT_THROW(EXCalendar({{}, {}, {.firstWeekday = 8}}), std::invalid_argument);
    EXPECT_EQ(F::toggleBit(F::toggleBit(F::toggleBit(0, 30), 31), -1), 0x40000000);
    for (auto [locale, label] : {std::pair("en", "TFEB"), {"tr", "ÇŞUB"}, {"hi", "मंफ़रव"}}) {
        const EXCalendar c({{}, platform::Locale(locale)});
        EXPECT_EQ(F::bitLabelsForWeekOfCalendar(c)[2] + F::bitLabelsForYearOfCalendar(c)[1], label);
    }
}

TEST(HGCustomRepeat, KeepsARuleForEachFrequency) {
    const EXCalendar c({{}, {}});
    F factory;
    const auto expect = [&](std::int16_t code, std::int64_t interval, std::int64_t occurrences) {
        EXPECT_EQ(factory.intervalForFrequency(code), interval) << code;
        EXPECT_EQ(factory.occurrencesForFrequency(code), occurrences) << code;
    };
    factory.resetPerFrequencyDefaultsForDate({}, 2, 3, 5, c), expect(2, 0, 0);
    factory.resetPerFrequencyDefaultsForDate(EXDateOnly(2024, 3, 5), 2, 3, 5, c);
    expect(0, 1, 0), expect(1, 1, 0b100), expect(2, 3, 5), expect(3, 1, 0b100), expect(4, 0, 0);
    factory.resetPerFrequencyDefaultsForDate(EXDateOnly(2024, 3, 5), 2, 0, -1, c);
    for (std::int16_t code : {-1, 0, 3, 4})
        factory.updateWithFrequency(code, -2, -3);
    expect(-1, 0, 0), expect(0, -2, 0), expect(2, 1, 0b10000), expect(3, -2, -3), expect(4, 0, 0);
    EXPECT_EQ(F::choiceListForFrequencies()->titleForItemAtIndex(3), F::choiceTitleForFrequency(3));
}

}  // namespace corvane
