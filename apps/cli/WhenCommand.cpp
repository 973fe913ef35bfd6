#include "corvane/controls/DateFieldGrammar.h"
#include "corvane/controls/DateFieldParser.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateOnlyCommandParser.h"
#include "corvane/dates/EXTimeOnlyCommandParser.h"
#include "corvane/platform/Clock.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/TextOutput.h"
#include "apps/cli/TypedDay.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

std::string textOf(const Moment& moment) {
    std::string text;
    if (moment.day) text += fmt::format("Day   {}\n", moment.day->isoString());
    if (moment.time) text += fmt::format("Time  {}\n", moment.time->isoString());
    if (moment.word) text += fmt::format("Word  {}\n", onOneLine(*moment.word));
    return text;
}

void readDay(const std::string& text, Moment& moment) {
    moment.day = typedDay(text);
    if (moment.day) moment.word = EXDateOnlyCommandParser::commandForDateOnly(moment.day);
}

void readDayOfField(const std::string& text, Moment& moment) {
    const auto date = DateFieldParser::dateFromString(text);
    if (!date) return;
    moment.day = EXCalendar::currentCalendar().dateOnlyForDate(date);
    moment.word = DateFieldParser::wordForDate(*date, DateFieldParser::grammar());
}

Moment read(const WhenQuestion& question) {
    const std::string& text = question.text;
    Moment moment;
    (question.field ? readDayOfField : readDay)(text, moment);
    moment.time = EXTimeOnlyCommandParser::timeOnlyFromString(text);
    if (!moment.day && !moment.time)
        throw Failure(fmt::format("'{}' is neither a day nor a time", text));
    return moment;
}

}  // namespace

void runWhen(const WhenQuestion& question, Format format) {
    std::optional<platform::ScopedLocale> locale;
    std::optional<platform::ScopedLanguages> languages;
    if (question.locale) {
        locale.emplace(*question.locale);
        languages.emplace(std::vector{std::string(question.locale->baseName())});
    }
    std::optional<platform::FixedClock> noon;
    std::optional<platform::ScopedClock> clock;
    if (question.today) clock.emplace(noon.emplace(question.today->date()));
    const auto moment = read(question);
    print(format == Format::JSON ? momentJson(moment) : textOf(moment));
}

}  // namespace corvane::cli
