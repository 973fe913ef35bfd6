#include "corvane/dates/EXDateOnlyCommandParser.h"

#include "corvane/dates/DateCommandGrammar.h"
#include "corvane/dates/DayNames.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/TimeZone.h"

#include <chrono>
#include <utility>

namespace corvane {

namespace {

DayNames& dayNames() {
    static DayNames names;
    return names;
}

/// The day in the zone in force. Finding it out takes longer than reading most texts, so it is kept
/// for the second within which it cannot change.
EXDateOnly today() {
    struct Known {
        platform::TimeZone zone;
        std::chrono::sys_seconds second;
        EXDateOnly day;
    };
    static std::optional<Known> known;
    const auto now = platform::currentClock().now();
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    const auto& zone = platform::TimeZone::current();
    if (!known || known->second != second || known->zone != zone)
        known = Known{zone, second, EXDateOnly(now)};
    return known->day;
}

/// Many texts say their day without asking which one today is.
std::optional<EXDateOnly> dayOf(const std::optional<DayCommand>& command) {
    if (!command) return std::nullopt;
    if (const auto* day = std::get_if<EXDateOnly>(&*command)) return *day;
    return dayOfCommand(*command, today(), EXDateOnlyCommandParser::grammar().calendar());
}

}  // namespace

void EXDateOnlyCommandParser::setTodayName(std::optional<std::string> name) {
    dayNames().setName(DayName::Today, std::move(name));
}

std::optional<std::string> EXDateOnlyCommandParser::todayName() {
    return dayNames().name(DayName::Today);
}

void EXDateOnlyCommandParser::setTodayShortName(std::optional<std::string> name) {
    dayNames().setName(DayName::TodayShort, std::move(name));
}

std::optional<std::string> EXDateOnlyCommandParser::todayShortName() {
    return dayNames().name(DayName::TodayShort);
}

void EXDateOnlyCommandParser::setTomorrowName(std::optional<std::string> name) {
    dayNames().setName(DayName::Tomorrow, std::move(name));
}

std::optional<std::string> EXDateOnlyCommandParser::tomorrowName() {
    return dayNames().name(DayName::Tomorrow);
}

void EXDateOnlyCommandParser::setTomorrowShortName(std::optional<std::string> name) {
    dayNames().setName(DayName::TomorrowShort, std::move(name));
}

std::optional<std::string> EXDateOnlyCommandParser::tomorrowShortName() {
    return dayNames().name(DayName::TomorrowShort);
}

std::optional<EXDateOnly> EXDateOnlyCommandParser::dateOnlyFromCommand(
    std::optional<std::string_view> text) {
    return text ? dayOf(grammar().readWord(*text, dayNames())) : std::nullopt;
}

std::optional<EXDateOnly> EXDateOnlyCommandParser::dateOnlyFromString(
    std::optional<std::string_view> text) {
    return text ? dayOf(grammar().read(*text, dayNames())) : std::nullopt;
}

std::optional<std::string> EXDateOnlyCommandParser::commandForDateOnly(
    std::optional<EXDateOnly> day) {
    return grammar().word(day, today(), dayNames());
}

const DateCommandGrammar& EXDateOnlyCommandParser::grammar() {
    static const DateCommandGrammar grammar(EXCalendar::currentCalendar());
    return grammar;
}

}  // namespace corvane
