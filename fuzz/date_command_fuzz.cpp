// Whatever is typed, a day that comes of it exists and is the same with blanks around the text; the
// word for it, and the locale's own ways of writing it, mean the same day again. The first byte
// chooses the locale, the second how far today is from a leap day.
#include "corvane/dates/DateCommandGrammar.h"
#include "corvane/platform/Calendar.h"
#include "corvane/platform/CivilDays.h"
#include "corvane/platform/LocaleData.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

using namespace corvane;

namespace {

/// The latest year that two digits stand for, and the earliest.
constexpr std::int64_t kLastShortYear = 2049, kFirstShortYear = 1950;

struct Subject {
    explicit Subject(const char* name)
        : locale(name), grammar(EXCalendar(platform::Calendar({}, locale))) {
        for (int i = 0; i < 2; ++i)
            formats.emplace_back(grammar.patterns()[static_cast<std::size_t>(i)], locale);
    }

    platform::Locale locale;
    DateCommandGrammar grammar;
    std::vector<platform::DateFormatter> formats;
};

void require(bool holds) {
    if (!holds) std::abort();
}

void check(const Subject& subject, const std::string& text, EXDateOnly today) {
    DayNames names;
    names.setName(DayName::Today, "today");
    names.setName(DayName::TomorrowShort, "İß");
    const auto& grammar = subject.grammar;
    const auto day = grammar.parse(text, today, names);
    if (text.size() + 3 <= platform::TypedText::kLongest)
        require(grammar.parse(" " + text + "\t\n", today, names) == day);
    if (!day) return;
    require(platform::exists({day->year(), day->month(), day->day()}));
    if (const auto word = grammar.word(day, today, names))
        require(grammar.parse(*word, today, names) == day);
    if (day->year() < kFirstShortYear || day->year() > kLastShortYear) return;
    for (const auto& format : subject.formats) {
        const auto written = format.stringFromCivil({day->year(), day->month(), day->day()});
        require(grammar.parse(written, today, names) == day);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Subject subjects[] = {
        Subject("en_US"), Subject("en_GB"), Subject("de_DE"), Subject("fr_CA"),
        Subject("ar_EG"), Subject("fa_IR"), Subject("ja_JP"), Subject("ko_KR"),
        Subject("ru_RU"), Subject("tr_TR"), Subject("vi_VN"), Subject("bo_CN"),
        Subject("mn_MN"), Subject("cs_CZ"), Subject("el_GR"), Subject("ff_Adlm_GN")};
    if (size < 2) return 0;
    const auto today = platform::addDays({2024, 2, 29}, 5 * (data[1] - 128));
    check(subjects[data[0] % std::size(subjects)], std::string(data + 2, data + size),
          {today.year, today.month, today.day});
    return 0;
}
