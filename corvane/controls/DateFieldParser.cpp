#include "corvane/controls/DateFieldParser.h"

#include "corvane/controls/DateFieldGrammar.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateFactory.h"
#include "corvane/platform/Calendar.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"

#include <fmt/format.h>

#include <array>

namespace corvane {

namespace {

EXDateOnly dayOf(platform::Instant date, const platform::Calendar& calendar) {
    const auto day = calendar.dayOfInstant(date);
    return EXDateOnly(day.year, static_cast<int>(day.month), static_cast<int>(day.day));
}

EXDateOnly today(const platform::Calendar& calendar) {
    return dayOf(platform::currentClock().now(), calendar);
}

void traceWeekdays(const DateFieldGrammar& grammar) {
    // Whoever searches logs for these lines knows the fifth one as it is.
    constexpr std::array<std::string_view, 7> kWeekdays{"Sunday",  "Monday", "Tuesday", "Wednesday",
                                                        "Thurday", "Friday", "Saturday"};
    for (std::size_t i = 0; i < kWeekdays.size(); ++i)
        platform::currentConsole().writeLine(
            fmt::format("DEBUG: {} localized as '{}' and short '{}'", kWeekdays[i],
                        grammar.weekdayNames()[i], grammar.weekdayShortNames()[i]));
}

}  // namespace

DateFieldParser::Date DateFieldParser::dateFromCommand(const Text& text) {
    return dateFromCommand(text, grammar());
}

DateFieldParser::Date DateFieldParser::dateFromString(const Text& text) {
    return dateFromString(text, grammar());
}

DateFieldParser::Date DateFieldParser::dateFromCommand(const Text& text,
                                                       const DateFieldGrammar& grammar) {
    if (!text) return std::nullopt;
    const EXCalendar calendar = EXCalendar::currentCalendar();
    const auto day = grammar.dayOfCommand(*text, today(calendar.calendar()), dayNames());
    return EXDateFactory::standardizeDate(calendar.dateForDateOnly(day), calendar.calendar());
}

DateFieldParser::Date DateFieldParser::dateFromString(const Text& text,
                                                      const DateFieldGrammar& grammar) {
    if (!text) return std::nullopt;
    if (const auto date = dateFromCommand(text, grammar)) return date;
    const EXCalendar calendar = EXCalendar::currentCalendar();
    const auto day = grammar.dayOfDate(*text, today(calendar.calendar()));
    return EXDateFactory::mergeDate(calendar.dateForDateOnly(day), platform::currentClock().now(),
                                    calendar.calendar());
}

std::optional<std::string> DateFieldParser::wordForDate(platform::Instant date,
                                                        const DateFieldGrammar& grammar) {
    const auto calendar = platform::Calendar::current();
    return grammar.word(dayOf(date, calendar), today(calendar), dayNames());
}

const DateFieldGrammar& DateFieldParser::grammar() {
    static const DateFieldGrammar& built = []() -> const DateFieldGrammar& {
        static const DateFieldGrammar grammar(platform::currentLocale());
        traceWeekdays(grammar);
        return grammar;
    }();
    return built;
}

}  // namespace corvane
