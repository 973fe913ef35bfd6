#include "corvane/dates/EXDateOnlyCommandParser.h"

#include "corvane/dates/CurrentWeek.h"
#include "corvane/dates/DateCommandGrammar.h"

namespace corvane {

namespace {

const CurrentWeek& currentWeek() {
    static CurrentWeek week;
    week.update();
    return week;
}

using Read = std::optional<DayCommand> (DateCommandGrammar::*)(std::string_view,
                                                               const DayNames&) const;

/// False where the text says no day. Not as an optional, because handing those on from function to
/// function takes as long as reading a word.
bool readDay(std::string_view text, Read read, EXDateOnly& day) {
    const auto& grammar = EXDateOnlyCommandParser::grammar();
    const auto command = (grammar.*read)(text, EXDateOnlyCommandParser::dayNames());
    if (!command) return false;
    // Many texts say their day without asking which one today is.
    if (const auto* said = std::get_if<EXDateOnly>(&*command)) {
        day = *said;
        return true;
    }
    const auto& week = currentWeek();
    if (const auto* next = std::get_if<NextWeekday>(&*command)) {
        day = week.nextWeekday(next->weekday);
        return true;
    }
    if (const auto* ahead = std::get_if<DaysAhead>(&*command)) {
        day = week.dayAhead(ahead->days);
        return true;
    }
    const auto found = dayOfCommand(*command, week.today(), grammar.calendar());
    day = found.value_or(day);
    return found.has_value();
}

std::optional<EXDateOnly> dayOf(const std::optional<std::string_view>& text, Read read) {
    EXDateOnly day;
    const bool isDay = text && readDay(*text, read, day);
    return isDay ? std::optional(day) : std::nullopt;
}

}  // namespace

std::optional<EXDateOnly> EXDateOnlyCommandParser::dateOnlyFromCommand(
    std::optional<std::string_view> text) {
    return dayOf(text, &DateCommandGrammar::readWord);
}

std::optional<EXDateOnly> EXDateOnlyCommandParser::dateOnlyFromString(
    std::optional<std::string_view> text) {
    return dayOf(text, &DateCommandGrammar::read);
}

std::optional<std::string> EXDateOnlyCommandParser::commandForDateOnly(
    std::optional<EXDateOnly> day) {
    return grammar().word(day, currentWeek().today(), dayNames());
}

const DateCommandGrammar& EXDateOnlyCommandParser::grammar() {
    static const DateCommandGrammar grammar(EXCalendar::currentCalendar());
    return grammar;
}

}  // namespace corvane
