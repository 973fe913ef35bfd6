#include "corvane/controls/DateFieldGrammar.h"

#include "corvane/controls/SharedDateNames.h"
#include "corvane/platform/CivilDays.h"
#include "corvane/platform/LocaleData.h"
#include "corvane/platform/TimeZone.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace corvane {

namespace {

using platform::CivilDay;
using platform::NameLength;

constexpr int kDaysInWeek = 7;

/// In a week that begins on a Sunday.
constexpr platform::CivilTime kSomeSunday{.year = 2013, .month = 1, .day = 6, .hour = 12};

/// In the order in which they are tried.
constexpr std::array<std::string_view, 5> kTemplates{"dMyy", "dMMMyy", "dM", "dMMM", "EdMMM"};

/// With a month by name and a year, it is clear enough what a day too many means.
constexpr std::size_t kLenientTemplate = 1;

constexpr std::array<std::string_view, 7> kEnglishShortNames{"sun", "mon", "tue", "wed",
                                                             "thu", "fri", "sat"};
constexpr std::array<std::string_view, 7> kEnglishNames{
    "sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"};

CivilDay civilDay(EXDateOnly day) {
    return {day.year(), day.month(), day.day()};
}

EXDateOnly dateOnly(const CivilDay& day) {
    return EXDateOnly(day.year, static_cast<int>(day.month), static_cast<int>(day.day));
}

EXDateOnly daysAfter(EXDateOnly day, std::int64_t days) {
    return dateOnly(platform::addDays(civilDay(day), days));
}

/// 1 to 7: a weekday that is today's means the one of next week.
int daysUntilNext(int weekday, EXDateOnly today) {
    const int ahead = (weekday - platform::weekday(civilDay(today)) + kDaysInWeek) % kDaysInWeek;
    return ahead == 0 ? kDaysInWeek : ahead;
}

std::optional<EXDateOnly> dayOfFields(const DateFields& fields, bool isLenient, EXDateOnly today) {
    const CivilDay day{fields.year.value_or(today.year()), fields.month, fields.day};
    if (!platform::exists(day) && !isLenient) return std::nullopt;
    if (fields.year || !(dateOnly(day) < today)) return dateOnly(platform::normalized(day));
    return dateOnly(platform::normalized({day.year + 1, day.month, day.day}));
}

}  // namespace

DateFieldGrammar::DateFieldGrammar(platform::Locale locale)
    : locale_(std::move(locale)), letterCase_(platform::letterCaseOfLocale(locale_)) {
    addWeekdays();
    addPatterns();
}

void DateFieldGrammar::addWeekdays() {
    const platform::DateFormatter full("EEEE", locale_);
    const platform::DateFormatter abbreviated("E", locale_);
    std::array<std::vector<std::string>, 7> spellings;
    for (std::size_t i = 0; i < spellings.size(); ++i) {
        auto day = kSomeSunday;
        day.day += static_cast<int>(i);
        shownWeekdays_[i] = full.stringFromCivil(day);
        spellings[i] =
            spellingsOfName(abbreviated.stringFromCivil(day), NameLength::Short, locale_);
        const auto names = spellingsOfName(shownWeekdays_[i], NameLength::Full, locale_);
        if (!spellings[i].empty()) weekdayShortNames_[i] = spellings[i].front();
        if (!names.empty()) weekdayNames_[i] = names.front();
        spellings[i].insert(spellings[i].end(), names.begin(), names.end());
    }
    // Where two weekdays share a name, the earlier one has it; but a name goes before what another
    // one becomes without its stop.
    for (std::size_t i = 0; i < spellings.size(); ++i)
        for (const auto& name : {weekdayShortNames_[i], weekdayNames_[i]})
            if (!name.empty()) localizedWeekdays_.add(name, static_cast<int>(i) + 1);
    for (std::size_t i = 0; i < spellings.size(); ++i)
        for (const auto& spelling : spellings[i])
            localizedWeekdays_.add(spelling, static_cast<int>(i) + 1);
}

void DateFieldGrammar::addPatterns() {
    const auto patterns = platform::bestDatePatterns(locale_, kTemplates);
    bool withNarrowMonths = false;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        auto compiled = DatePattern::compile(patterns[i], letterCase_);
        if (!compiled) continue;
        withNarrowMonths = withNarrowMonths || compiled->hasNarrowMonth();
        patterns_.push_back({*std::move(compiled), i == kLenientTemplate});
    }
    names_ = sharedDateNames(locale_, withNarrowMonths);
}

DateFieldGrammar::DateOnly DateFieldGrammar::dayOfCommand(std::string_view text, EXDateOnly today,
                                                          const DayNames& names) const {
    const platform::TypedText localized(text, letterCase_);
    // English has its own letter case: "FRIDAY" is a Friday in Turkish too.
    const platform::TypedText english(text, platform::LetterCase::Usual);
    const auto typed = localized.trimmedText();
    if (typed.empty()) return std::nullopt;
    if (const auto days = daysAhead(english.trimmedText(), typed, names))
        return daysAfter(today, *days);
    const auto target = weekday(english.trimmedText(), typed);
    return target ? DateOnly(daysAfter(today, daysUntilNext(*target, today))) : std::nullopt;
}

std::optional<int> DateFieldGrammar::daysAhead(std::string_view english, std::string_view typed,
                                               const DayNames& names) const {
    const auto named = names.daysAhead(typed, letterCase_);
    if (named == 0 || english == "tod" || english == "today") return 0;
    if (named == 1 || english == "tom" || english == "tomorrow") return 1;
    return std::nullopt;
}

/// Where one language's Tuesday is the other one's Friday, it is the weekday that comes first.
std::optional<int> DateFieldGrammar::weekday(std::string_view english,
                                             std::string_view typed) const {
    const auto localized = localizedWeekdays_.find(typed);
    for (int number = 1; number <= kDaysInWeek; ++number) {
        const auto index = static_cast<std::size_t>(number - 1);
        if (localized == number || english == kEnglishShortNames[index] ||
            english == kEnglishNames[index])
            return number;
    }
    return std::nullopt;
}

DateFieldGrammar::DateOnly DateFieldGrammar::dayOfDate(std::string_view text,
                                                       EXDateOnly today) const {
    const platform::TypedText typed(text, letterCase_);
    for (const auto& [pattern, isLenient] : patterns_)
        if (const auto fields = pattern.match(typed.trimmedText(), *names_))
            if (const auto day = dayOfFields(*fields, isLenient, today)) return day;
    return std::nullopt;
}

std::optional<std::string> DateFieldGrammar::word(EXDateOnly day, EXDateOnly today,
                                                  const DayNames& names) const {
    const auto days = platform::dayNumber(civilDay(day)) - platform::dayNumber(civilDay(today));
    if (days == 0) return names.text(DayName::Today);
    if (days == 1) return names.text(DayName::Tomorrow);
    // After six days the weekday is today's again.
    if (days < 0 || days >= kDaysInWeek) return std::nullopt;
    return shownWeekdays_[static_cast<std::size_t>(platform::weekday(civilDay(day)) - 1)];
}

}  // namespace corvane
