// Reading typed days, against ICU's own strict formatters, tried in the same order: those of the
// weekdays' names first, then those of the dates.
#include "corvane/dates/DateCommandGrammar.h"
#include "corvane/dates/EXDateOnlyCommandParser.h"
#include "corvane/platform/LocaleData.h"

#include <benchmark/benchmark.h>
#include <unicode/calendar.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

#include <memory>
#include <vector>

namespace corvane::bench {
namespace {

constexpr const char* kLocale = "en_US";

class ICUParser {
  public:
    ICUParser() {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::DateTimePatternGenerator> generator(
            icu::DateTimePatternGenerator::createInstance(locale_, status));
        for (const char* pattern : {"EEE", "EEEE"}) {
            weekdayFormats_.push_back(
                std::make_unique<icu::SimpleDateFormat>(pattern, locale_, status));
            weekdayFormats_.back()->setLenient(false);
        }
        for (const char* skeleton : {"dMyy", "dMMMyy", "dM", "dMMM", "EdMMM"}) {
            const auto pattern = generator->getBestPattern(icu::UnicodeString(skeleton), status);
            formats_.push_back(std::make_unique<icu::SimpleDateFormat>(pattern, locale_, status));
            formats_.back()->setLenient(false);
        }
        calendar_.reset(icu::Calendar::createInstance(locale_, status));
        calendar_->setLenient(false);
    }

    std::optional<EXDateOnly> parse(std::string_view utf8) {
        auto text = icu::UnicodeString::fromUTF8({utf8.data(), static_cast<int32_t>(utf8.size())});
        text.trim();
        for (const auto& format : weekdayFormats_)
            if (const int weekday = parseWeekday(text, *format)) return next(weekday);
        for (std::size_t i = 0; i < formats_.size(); ++i)
            if (auto day = parse(text, *formats_[i], i >= 2)) return day;
        return std::nullopt;
    }

  private:
    EXDateOnly day() {
        UErrorCode status = U_ZERO_ERROR;
        return {calendar_->get(UCAL_YEAR, status), calendar_->get(UCAL_MONTH, status) + 1,
                calendar_->get(UCAL_DATE, status)};
    }

    EXDateOnly next(int weekday) {
        UErrorCode status = U_ZERO_ERROR;
        calendar_->setTime(icu::Calendar::getNow(), status);
        const int today = calendar_->get(UCAL_DAY_OF_WEEK, status);
        calendar_->add(UCAL_DATE, (weekday - today + 7) % 7, status);
        return day();
    }

    /// 0 where the text is no such name.
    int parseWeekday(const icu::UnicodeString& text, const icu::SimpleDateFormat& format) {
        UErrorCode status = U_ZERO_ERROR;
        calendar_->clear();
        icu::ParsePosition position(0);
        format.parse(text, *calendar_, position);
        if (position.getErrorIndex() >= 0 || position.getIndex() != text.length()) return 0;
        return calendar_->get(UCAL_DAY_OF_WEEK, status);
    }

    std::optional<EXDateOnly> parse(const icu::UnicodeString& text,
                                    const icu::SimpleDateFormat& format, bool yearless) {
        UErrorCode status = U_ZERO_ERROR;
        calendar_->setTime(icu::Calendar::getNow(), status);
        const auto today = yearless ? day() : EXDateOnly();
        icu::ParsePosition position(0);
        format.parse(text, *calendar_, position);
        if (position.getErrorIndex() >= 0 || position.getIndex() != text.length()) return {};
        calendar_->getTime(status);
        if (U_FAILURE(status)) return std::nullopt;
        if (day() < today) calendar_->add(UCAL_YEAR, 1, status);
        return day();
    }

    icu::Locale locale_{kLocale};
    std::vector<std::unique_ptr<icu::SimpleDateFormat>> weekdayFormats_, formats_;
    std::unique_ptr<icu::Calendar> calendar_;
};

void check(benchmark::State& state, const std::optional<EXDateOnly>& day, bool isDay) {
    if (day.has_value() != isDay) state.SkipWithError("a wrong answer");
}

void dayOfText(benchmark::State& state, std::string_view text, bool isDay) {
    const platform::ScopedLocale locale{platform::Locale(kLocale)};
    const std::optional<std::string_view> typed = text;
    check(state, EXDateOnlyCommandParser::dateOnlyFromString(typed), isDay);
    for (auto _ : state)
        benchmark::DoNotOptimize(EXDateOnlyCommandParser::dateOnlyFromString(typed));
}

/// With the application's words for today and tomorrow set, of which ICU knows nothing.
void dayOfTextWithNames(benchmark::State& state, std::string_view text) {
    using Parser = EXDateOnlyCommandParser;
    const std::pair<void (*)(std::optional<std::string>), const char*> names[] = {
        {Parser::setTodayName, "${Today}"},
        {Parser::setTodayShortName, "tod"},
        {Parser::setTomorrowName, "${Tomorrow}"},
        {Parser::setTomorrowShortName, "tom"}};
    for (const auto& [set, name] : names)
        set(name);
    dayOfText(state, text, true);
    for (const auto& [set, name] : names)
        set(std::nullopt);
}

void dayOfTextByICU(benchmark::State& state, std::string_view text, bool isDay) {
    static ICUParser parser;
    check(state, parser.parse(text), isDay);
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.parse(text));
}

/// Through the grammar, because the parser keeps its first locale.
void dayOfForeignText(benchmark::State& state, const char* locale, std::string_view text) {
    const DateCommandGrammar grammar(
        EXCalendar(platform::Calendar(platform::TimeZone::current(), platform::Locale(locale))));
    const auto today = grammar.calendar().dateOnlyForToday();
    check(state, grammar.parse(text, today), true);
    for (auto _ : state)
        benchmark::DoNotOptimize(grammar.parse(text, today));
}

void building(benchmark::State& state) {
    const EXCalendar calendar(
        platform::Calendar(platform::TimeZone::current(), platform::Locale(kLocale)));
    for (auto _ : state)
        benchmark::DoNotOptimize(DateCommandGrammar(calendar));
}

void buildingByICU(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(ICUParser());
}

#define DAY_OF_TEXT(name, text, isDay)               \
    BENCHMARK_CAPTURE(dayOfText, name, text, isDay); \
    BENCHMARK_CAPTURE(dayOfTextByICU, name, text, isDay)

DAY_OF_TEXT(word, "thursday", true);
DAY_OF_TEXT(shortWord, "fri", true);
BENCHMARK_CAPTURE(dayOfTextWithNames, word, "thursday");
BENCHMARK_CAPTURE(dayOfTextWithNames, tomorrow, "tomorrow");
DAY_OF_TEXT(numeric, "03/10/24", true);
DAY_OF_TEXT(numericWithoutYear, "3/10", true);
DAY_OF_TEXT(monthName, "Mar 10", true);
DAY_OF_TEXT(weekdayAndMonthName, "Sun, Mar 10", true);
DAY_OF_TEXT(noDate, "buy milk", false);
DAY_OF_TEXT(almostADate, "Sun, Mar 10 or so", false);
BENCHMARK_CAPTURE(dayOfForeignText, arabicNumeric, "ar_EG", "١٠/٣/٢٤");
BENCHMARK_CAPTURE(dayOfForeignText, arabicWord, "ar_EG", "الخميس");
BENCHMARK_CAPTURE(dayOfForeignText, russianMonthName, "ru_RU", "вт, 10 сентября");
BENCHMARK_CAPTURE(dayOfForeignText, japaneseMonth, "ja_JP", "9月10日(火)");
BENCHMARK(building)->Name("building/parser");
BENCHMARK(buildingByICU)->Name("buildingByICU/parser");

}  // namespace
}  // namespace corvane::bench

BENCHMARK_MAIN();
