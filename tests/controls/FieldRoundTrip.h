// Sets values of fields and commits what the fields show, counting what does not come back.
#pragma once

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/controls/CVMacTimeOnlyField.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateFactory.h"
#include "corvane/dates/EXDateOnlyCommandParser.h"
#include "corvane/dates/TimeCommandGrammar.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/KnownLocales.h"
#include "corvane/platform/TimeZone.h"

#include <fmt/format.h>

#include <map>
#include <string>

namespace corvane::tests {

/// Wednesday, March 4, 2026, 17:20 in Berlin, for a user of en_US; for one object at a time.
class FieldSurroundings {
  public:
    explicit FieldSurroundings(platform::Console* console = nullptr)
        : console_(console ? *console : silence_) {}
    ~FieldSurroundings() { setNames({}, {}, {}, {}); }

    /// The four names, of both parsers.
    static void setNames(std::optional<std::string> today, std::optional<std::string> todayShort,
                         std::optional<std::string> tomorrow,
                         std::optional<std::string> tomorrowShort) {
        CVMacDateField::setTodayName(today);
        CVMacDateField::setTodayShortName(todayShort);
        CVMacDateField::setTomorrowName(tomorrow);
        CVMacDateField::setTomorrowShortName(tomorrowShort);
        EXDateOnlyCommandParser::setTodayName(std::move(today));
        EXDateOnlyCommandParser::setTodayShortName(std::move(todayShort));
        EXDateOnlyCommandParser::setTomorrowName(std::move(tomorrow));
        EXDateOnlyCommandParser::setTomorrowShortName(std::move(tomorrowShort));
    }

    void setToday(EXDateOnly day) {
        clock_.set(*EXCalendar::currentCalendar().dateForDateOnly(day, EXTimeOnly(17, 20, 0)));
    }
    static EXDateOnly dayAhead(int days) {
        const auto calendar = EXCalendar::currentCalendar();
        return *calendar.dateOnlyByAddingDays(days, calendar.dateOnlyForToday());
    }

  private:
    struct : platform::Console {
        void writeLine(std::string_view) override {}
    } silence_;
    platform::ScopedConsole console_;
    platform::ScopedTimeZone zone_{"Europe/Berlin"};
    platform::ScopedLocale locale_{platform::Locale("en_US")};
    platform::ScopedLanguages languages_{{"en"}};
    platform::FixedClock clock_{platform::Instant(std::chrono::sys_seconds{
        std::chrono::sys_days(std::chrono::year(2026) / 3 / 4) + std::chrono::minutes(980)})};
    platform::ScopedClock scopedClock_{clock_};
};

struct RoundTrips {
    struct Failure {
        int count = 0;
        std::string example;
    };
    int tried = 0;
    int failed = 0;
    int passedOver = 0;
    std::map<std::string, Failure> failures;

    /// Commits what the field shows for `value` and compares what it has then.
    void commit(auto& field, const auto& value, const auto& valueOf, const std::string& what) {
        const auto shown = field.stringValue();
        field.sendAction();
        ++tried;
        if (valueOf(field) == value && field.stringValue() == shown) return;
        ++failed;
        Failure& failure = failures[what];
        if (++failure.count == 1)
            failure.example = fmt::format("'{}' became '{}'", shown, field.stringValue());
    }
};

inline std::string kindOf(const platform::Locale& locale, platform::DateStyle style) {
    return fmt::format("{}, style {}", locale.identifier(), static_cast<int>(style));
}

inline constexpr platform::DateStyle kStyles[] = {
    platform::DateStyle::Short, platform::DateStyle::Medium, platform::DateStyle::Long,
    platform::DateStyle::Full};

/// Both date fields, every `step`th of the next days in every style.
inline void tryDates(const platform::Locale& locale, int days, int step, RoundTrips& dates,
                     RoundTrips& daysOnly) {
    const auto dateField = std::make_shared<CVMacDateField>();
    const auto dayField = std::make_shared<CVMacDateOnlyField>();
    dateField->setLocale(locale);
    dayField->setLocale(locale);
    const auto calendar = EXCalendar::currentCalendar();
    for (const auto style : kStyles) {
        dateField->setDateStyle(style);
        dayField->setDateStyle(style);
        for (int ahead = 0; ahead < days; ahead += step) {
            const EXDateOnly day = FieldSurroundings::dayAhead(ahead);
            dateField->setDateValue(calendar.dateForDateOnly(day));
            dates.commit(
                *dateField, *dateField->dateValue(), [](auto& field) { return field.dateValue(); },
                kindOf(locale, style));
            dayField->setDateOnlyValue(day);
            daysOnly.commit(
                *dayField, day, [](auto& field) { return field.dateOnlyValue(); },
                kindOf(locale, style));
        }
    }
}

/// Times without seconds, in those styles that show no more than can be typed.
inline void tryTimes(const platform::Locale& locale, int minutesApart, RoundTrips& times) {
    const auto field = std::make_shared<CVMacTimeOnlyField>();
    const TimeCommandGrammar grammar(locale);
    field->setLocale(locale);
    for (const auto style : {platform::DateStyle::Short, platform::DateStyle::Medium}) {
        field->setTimeStyle(style);
        for (int minute = 0; minute < 24 * 60; minute += minutesApart) {
            const EXTimeOnly time(minute / 60, minute % 60, 0);
            field->setTimeOnlyValue(time);
            if (!grammar.parse(field->stringValue())) {
                ++times.passedOver;
                continue;
            }
            times.commit(
                *field, time, [](auto& one) { return one.timeOnlyValue(); }, kindOf(locale, style));
        }
    }
}

}  // namespace corvane::tests
