#include "corvane/dates/DateCommandGrammar.h"

#include "corvane/platform/Calendar.h"
#include "corvane/platform/CivilDays.h"
#include "corvane/platform/LocaleData.h"
#include "corvane/platform/TypedText.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

/// In the order in which they are tried.
constexpr std::array<std::string_view, 5> kTemplates{"dMyy", "dMMMyy", "dM", "dMMM", "EdMMM"};

/// Days from today that a weekday's name says; after them it would mean today again.
constexpr std::int64_t kLastDayOfWeek = 6;

constexpr int kSomeLeapYear = 2000;

std::optional<DayCommand> commandOfFields(const DateFields& fields) {
    if (!platform::exists({fields.year.value_or(kSomeLeapYear), fields.month, fields.day}))
        return std::nullopt;
    if (fields.year) return EXDateOnly(*fields.year, fields.month, fields.day);
    return DayOfYear{fields.month, fields.day};
}

}  // namespace

DateCommandGrammar::DateCommandGrammar(EXCalendar calendar)
    : calendar_(std::move(calendar)),
      letterCase_(platform::letterCaseOfLocale(calendar_.calendar().locale())) {
    addWeekdayNames();
    addPatterns();
}

void DateCommandGrammar::addWeekdayNames() {
    int weekday = calendar_.firstWeekday();
    for (const auto& name : calendar_.createWeekdayShortNames()) {
        addShortName(name, weekday);
        weekday = EXCalendar::nextWeekday(weekday);
    }
    for (auto& name : calendar_.createWeekdayNames()) {
        addFullName(name, weekday);
        weekdayNameMap_[static_cast<std::size_t>(weekday)] = std::move(name);
        weekday = EXCalendar::nextWeekday(weekday);
    }
}

void DateCommandGrammar::addFullName(const std::string& name, int weekday) {
    auto spellings =
        spellingsOfName(name, platform::NameLength::Full, calendar_.calendar().locale());
    // The name itself comes last, so that it is the one found by its weekday.
    std::reverse(spellings.begin(), spellings.end());
    for (const auto& spelling : spellings) {
        if (!weekdayNameBimap_.objectForKey(spelling))
            weekdayNameBimap_.setObject(weekday, spelling);
        weekdayWords_.add(spelling, weekday);
    }
}

void DateCommandGrammar::addShortName(const std::string& name, int weekday) {
    for (auto& spelling :
         spellingsOfName(name, platform::NameLength::Short, calendar_.calendar().locale())) {
        weekdayWords_.add(spelling, weekday);
        weekdayShortNameMap_.emplace(std::move(spelling), weekday);
    }
}

void DateCommandGrammar::addPatterns() {
    const auto& locale = calendar_.calendar().locale();
    patterns_ = platform::bestDatePatterns(locale, kTemplates);
    bool withNarrowMonths = false;
    for (const auto& pattern : patterns_) {
        auto compiled = DatePattern::compile(pattern, letterCase_);
        if (!compiled) continue;
        withNarrowMonths = withNarrowMonths || compiled->hasNarrowMonth();
        compiledPatterns_.push_back(*std::move(compiled));
    }
    names_ = dateNameTables(locale, withNarrowMonths);
}

std::optional<DayCommand> DateCommandGrammar::read(std::string_view text,
                                                   const DayNames& names) const {
    const platform::TypedText typed(text, letterCase_);
    return readTyped(typed.trimmedText(), names);
}

std::optional<DayCommand> DateCommandGrammar::readWord(std::string_view text,
                                                       const DayNames& names) const {
    const platform::TypedText typed(text, letterCase_);
    return readTypedWord(typed.trimmedText(), names);
}

std::optional<DayCommand> DateCommandGrammar::readTyped(std::string_view typed,
                                                        const DayNames& names) const {
    auto command = readTypedWord(typed, names);
    for (auto pattern = compiledPatterns_.begin(); !command && pattern != compiledPatterns_.end();
         ++pattern)
        if (auto fields = pattern->match(typed, names_)) command = commandOfFields(*fields);
    return command;
}

std::optional<DayCommand> DateCommandGrammar::readTypedWord(std::string_view typed,
                                                            const DayNames& names) const {
    if (typed.empty()) return std::nullopt;
    if (auto days = names.daysAhead(typed, letterCase_)) return DaysAhead{*days};
    if (auto weekday = weekdayWords_.find(typed)) return NextWeekday{*weekday};
    return std::nullopt;
}

std::optional<EXDateOnly> DateCommandGrammar::parse(std::string_view text, EXDateOnly today,
                                                    const DayNames& names) const {
    auto command = read(text, names);
    return command ? dayOfCommand(*command, today, calendar_) : std::nullopt;
}

std::optional<std::string> DateCommandGrammar::word(DateOnly day, EXDateOnly today,
                                                    const DayNames& names) const {
    const auto days = calendar_.daysFromDateOnly(today, day);
    if (days == 0) return names.text(DayName::Today);
    if (days == 1) return names.text(DayName::Tomorrow);
    if (days < 0 || days > kLastDayOfWeek) return std::nullopt;
    return weekdayNameMap_[static_cast<std::size_t>(calendar_.weekdayForDateOnly(day))];
}

}  // namespace corvane
