// What each locale itself writes must read back as the day it was written for, also in capitals.
// Prints what was tried in every locale that there are data for, and which of it failed.
#include "corvane/dates/DateCommandGrammar.h"
#include "corvane/platform/KnownLocales.h"

#include <fmt/ranges.h>

#include <set>

using namespace corvane;
using platform::NameLength, platform::NameUse;

namespace {

const EXDateOnly kToday(2024, 2, 14);
constexpr int kDays = 60, kDaysApart = 6;  // so that every month comes up
std::set<std::string> failures;
int texts = 0;

struct Trial {
    platform::Locale locale;
    DateCommandGrammar grammar{EXCalendar({{}, locale})};

    void expect(const std::string& text, std::optional<EXDateOnly> day, std::string_view what) {
        for (const auto& typed : {text, platform::upperCased(text, locale)}) {
            ++texts;
            if (grammar.parse("\t" + typed + " ", kToday) != day)
                failures.insert(fmt::format("{}: {}", locale.identifier(), what));
        }
    }

    void tryPattern(const std::string& pattern, bool hasYear) {
        const platform::DateFormatter formatter(pattern, locale);
        for (int i = -kDays / 2; i < kDays / 2; ++i) {
            auto day = *grammar.calendar().dateOnlyByAddingDays(i * kDaysApart, kToday);
            const auto text = formatter.stringFromCivil({day.year(), day.month(), day.day()});
            if (!hasYear) day = EXDateOnly(kToday.year(), day.month(), day.day());
            expect(text, grammar.calendar().dateOnlyByAddingYears(!hasYear && day < kToday, day),
                   pattern);
        }
    }

    void tryWords() {
        for (int ahead = 0; ahead < 7; ++ahead) {
            const auto day = grammar.calendar().dateOnlyByAddingDays(ahead, kToday);
            const int index = grammar.calendar().weekdayForDateOnly(day) - 1;
            if (ahead > 1) expect(grammar.word(day, kToday).value_or(""), day, "word");
            for (auto length : {NameLength::Full, NameLength::Short})
                expect(dateNamesOfLocale(locale, length, NameUse::InDate).weekdays.at(index), day,
                       "weekday " + std::to_string(index + 1));
        }
    }
};

}  // namespace

int main() {
    const auto locales = platform::knownLocales();
    for (const auto& locale : locales) {
        Trial trial{locale};
        for (std::size_t i = 0; i < trial.grammar.patterns().size(); ++i)
            trial.tryPattern(trial.grammar.patterns()[i], i < 2);
        trial.tryWords();
    }
    fmt::print("{} locales, {} pairs of locale and day, {} texts; {} kinds of failure\n{}",
               locales.size(), locales.size() * kDays, texts, failures.size(),
               fmt::join(failures, "\n"));
    return failures.empty() && texts > 0 ? 0 : 1;
}
