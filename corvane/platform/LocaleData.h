// What the locale data know about dates: patterns, names, week rules. Always of the Gregorian
// calendar, whichever one the locale prefers. Any thread; nothing here is cached.
#pragma once

#include "corvane/platform/Locale.h"

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::platform {

struct CivilTime;

/// The week of a region. Weekdays count from 1 = Sunday to 7 = Saturday.
struct WeekRules {
    int firstWeekday = 1;
    /// Days that a week must have in the new year to be its week 1: 4 by ISO 8601, often 1.
    int minimalDaysInFirstWeek = 1;
    /// By weekday - 1.
    std::array<bool, 7> weekend{true, false, false, false, false, false, true};

    friend bool operator==(const WeekRules&, const WeekRules&) = default;
};

/// The keyword "rg" replaces the region, "fw" the first weekday ("en_US@fw=mon").
///   weekRulesOfLocale(Locale("de_DE")).firstWeekday   is 2
///   weekRulesOfLocale(Locale("ar_EG")).weekend        marks Friday and Saturday
WeekRules weekRulesOfLocale(const Locale& locale);

/// The names of months and weekdays in one length, January and Sunday first.
struct DateNames {
    std::array<std::string, 12> months;
    std::array<std::string, 7> weekdays;
};

/// How long a name is: "March", "Mar", "M".
enum class NameLength { Full, Short, Narrow };

/// Within a date ("10 марта") or by itself ("март").
enum class NameUse { InDate, Alone };

DateNames dateNamesOfLocale(const Locale& locale, NameLength length, NameUse use);

/// The markers of the hours before and after noon, such as "AM" and "PM", "上午" and "下午".
std::array<std::string, 2> halfDayMarkersOfLocale(const Locale& locale);

/// The pattern in which the locale writes the fields of a skeleton, in Unicode's pattern letters
/// (UTS #35); empty where the locale data cannot tell.
///   bestDatePattern(Locale("en_US"), "dMyy")   is "M/d/yy"
///   bestDatePattern(Locale("de_DE"), "dMMM")   is "d. MMM"
std::string bestDatePattern(const Locale& locale, std::string_view skeleton);

/// The same for several skeletons in their order, in little more than the time of one.
std::vector<std::string> bestDatePatterns(const Locale& locale,
                                          std::span<const std::string_view> skeletons);

/// How much of a date or a time is written. The numbers are the platform's codes.
enum class DateStyle { None = 0, Short = 1, Medium = 2, Long = 3, Full = 4 };

/// The pattern in which the locale writes dates, or times, of that style; empty for none.
///   datePatternOfStyle(Locale("en_US"), DateStyle::Full)    is "EEEE, MMMM d, y"
///   timePatternOfStyle(Locale("de_DE"), DateStyle::Short)   is "HH:mm"
std::string datePatternOfStyle(const Locale& locale, DateStyle style);
std::string timePatternOfStyle(const Locale& locale, DateStyle style);

/// Writes dates by a pattern in a locale's names and digits. An immutable value; making one costs
/// as much as hundreds of texts (about 50 µs), so keep it for the next.
///     DateFormatter("EEEE", Locale("de_DE")).stringFromCivil({2024, 3, 5})   // "Dienstag"
class DateFormatter {
  public:
    DateFormatter(std::string_view pattern, const Locale& locale);
    ~DateFormatter();
    DateFormatter(DateFormatter&&) noexcept;
    DateFormatter& operator=(DateFormatter&&) noexcept;

    /// Fields beyond their range roll over: February 30 is written as March 1 or 2. Empty where
    /// the pattern is ill-formed.
    std::string stringFromCivil(const CivilTime& civil) const;

  private:
    struct Format;
    std::unique_ptr<Format> format_;
};

}  // namespace corvane::platform
