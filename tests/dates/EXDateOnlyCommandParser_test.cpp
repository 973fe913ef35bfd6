#include "corvane/dates/EXDateOnlyCommandParser.h"

#include "corvane/dates/DateCommandGrammar.h"
#include "corvane/platform/Clock.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvane {
namespace {

TEST(EXDateOnlyCommandParser, ReadsWhatALocaleWritesAndPeopleType) {
    // On Saturday, June 15, 2024. Several texts in a row are divided by "|"; none of "" is a day.
    // clang-format off
    const struct { const char *locale, *texts, *day; } cases[] = {
        {"en_US", "3/10/24|03/10/2024|Mar 10, 24|MARCH 10, 2024|mar. 10,24|\t3/10/24\u00A0\n", "2024-03-10"},
        {"en_US", "3/10|Mar 10|Sun, Mar 10|tue, mar 10|Monday, March 10", "2025-03-10"}, {"en_US", "2/29|Feb 29", "2025-02-28"},
        {"en_US", "6/15|Jun 15|Sat, June 15|sat|SATURDAY", "2024-06-15"}, {"en_US", "1/2/49|1/2/2049", "2049-01-02"},
        {"en_US", "1/2/50", "1950-01-02"}, {"en_US", "1/2/0985", "0985-01-02"}, {"en_GB", "5/3/24|05/03/2024", "2024-03-05"},
        {"en_US", "2/30/24|29/2/23|2/30|13/1|0/1|1/0|3/10/24abc|3/10/|3.10.24|3-10|10 Mar|Mar10|Mar 10 24|3/10/4|3/10/985|"
                  "3/10/20245|003/10|3//10|3/10\xC3|M 10|Marc 10|Mar|today|tomorrow|+3/10|3/-10|10|", ""},
        {"en_GB", "5 Sep|5 Sept|5 sept.|5 SEPTEMBER|Thu, 5 Sep", "2024-09-05"}, {"de_DE", "Fr|fr.|FREITAG", "2024-06-21"},
        {"de_DE", "10. März|10.märz|10. MÄRZ|10. MA\u0308RZ|10.3.|10.3|10.03|Di., 10. März|Mi,10. März", "2025-03-10"},
        {"de_DE", "10. Sept.|10. sept|10. September", "2024-09-10"}, {"de_DE", "10 März|10/3|10. Maerz", ""},
        {"de_AT", "10. Jän|10. Januar", "2025-01-10"}, {"cs_CZ", "5.7.24|5. 7.|5.7", "2024-07-05"}, {"es_ES", "mar", "2024-06-18"},
        {"ar_EG", "١٠\u200F/٣\u200F/٢٤|10/3/24|\u202B10/3/2024\u202C", "2024-03-10"}, {"tr_TR", "SALI", "2024-06-18"}, {"nl_NL", "ZA|ZATERDAG", "2024-06-15"},
        {"ru_RU", "10 мар. 24 г.|10 МАРТА 2024 г|10 марта 24|10.03.24", "2024-03-10"}, {"el_GR", "10 ΜΑΡΤΙΟΥ|10 μαρ", "2025-03-10"},
        {"ja_JP", "9月10日|9月10日(火)|９月１０日", "2024-09-10"}, {"mn_MN", "XII/05|12-р сарын 5", "2024-12-05"},
        {"ja_JP", "3月10日(火|3月10日[火]", ""}, {"vi_VN", "1 thg 12|1 tháng 12", "2024-12-01"},
        {"fa_IR", "۱۰ سپتامبر|سه\u200Cشنبه ۱۰ سپتامبر", "2024-09-10"}, {"tr_TR", "10 Kasım|10 KASIM|10 Kasım Paz", "2024-11-10"},
    };
    // clang-format on
    for (DayNames names; const auto& [locale, texts, expected] : cases) {
        const DateCommandGrammar grammar(EXCalendar({{}, platform::Locale(locale)}));
        std::istringstream stream(texts);
        for (std::string text; std::getline(stream, text, '|');) {
            const auto day = grammar.parse(text, {2024, 6, 15});
            EXPECT_EQ(day ? day->isoString() : "", expected) << locale << " " << text;
        }
        EXPECT_FALSE(grammar.parse("29/2", {2023, 6, 15}) || grammar.parse("2/29", {2023, 6, 15}));
        EXPECT_FALSE(grammar.parse("3/10" + std::string(999, 'x'), {2024, 6, 15}));
        names.setName(DayName::Tomorrow, "Yarın");
        EXPECT_EQ(grammar.parse("YARIN", {2024, 6, 15}, names).has_value(), locale[0] == 't');
    }
}

TEST(EXDateOnlyCommandParser, NamesDaysNearTodayAndReadsThemBack) {
    const platform::ScopedLocale locale(platform::Locale("en_US"));
    const platform::ScopedTimeZone zone("Pacific/Auckland");
    const EXDateOnly today(2024, 6, 12);  // a Wednesday
    platform::FixedClock clock(today.date());
    const platform::ScopedClock scope(clock);
    using Parser = EXDateOnlyCommandParser;
    EXPECT_FALSE(Parser::dateOnlyFromString("hodie") || Parser::commandForDateOnly({}));
    Parser::setTodayName("${NowadaysKey}");
    Parser::setTodayShortName("hod");
    Parser::setTomorrowName("Morgen");
    Parser::setTomorrowShortName("Fri");
    EXPECT_EQ(Parser::dateOnlyFromString("nowadayskey"), today);
    EXLocalizable::addStringTable("en", "NowadaysKey = HODIE");
    const char* words[] = {"",       "HODIE",  "Morgen",  "Friday", "Saturday",
                           "Sunday", "Monday", "Tuesday", ""};
    for (int ahead = -1; ahead < 8; ++ahead) {
        const EXDateOnly day(2024, 6, 12 + ahead);
        const auto word = Parser::commandForDateOnly(day);
        EXPECT_EQ(word.value_or(""), words[ahead + 1]);
        EXPECT_EQ(Parser::dateOnlyFromCommand(word), word ? std::optional(day) : std::nullopt);
    }
    EXPECT_EQ(Parser::commandForDateOnly({}), "HODIE");
    for (auto [text, day] : {std::pair("hod", 12), {"WED", 12}, {"fri", 13}})
        EXPECT_EQ(Parser::dateOnlyFromCommand(text), EXDateOnly(2024, 6, day));
    EXPECT_FALSE(Parser::dateOnlyFromCommand("6/12") || Parser::dateOnlyFromCommand("nowadayskey"));
    clock.set(clock.now() + std::chrono::hours(24));
    EXPECT_EQ(Parser::dateOnlyFromString("hodie"), EXDateOnly(2024, 6, 13));
    const platform::ScopedTimeZone elsewhere("America/New_York");
    EXPECT_EQ(Parser::dateOnlyFromString("6/12"), today);
    Parser::setTodayName(std::nullopt);
    EXPECT_FALSE(Parser::dateOnlyFromString("hodie"));
}

TEST(EXDateOnlyCommandParser, FollowsTheClockAndTheZone) {
    using Parser = EXDateOnlyCommandParser;
    const platform::ScopedLocale locale(platform::Locale("en_US"));
    // Where the clocks were set back from 00:01 of the 29th, a Sunday, to 23:01 of the 28th.
    const auto setBack = std::chrono::sys_days{std::chrono::year{2006} / 10 / 29} +
                         std::chrono::minutes(2 * 60 + 31);
    const std::tuple<const char*, int, int, int> cases[] = {
        {"America/St_Johns", -61, 28, 29}, {"America/St_Johns", -60, 4, 29},
        {"America/St_Johns", -1, 4, 29},   {"America/St_Johns", 0, 28, 29},
        {"Europe/Berlin", 0, 4, 29},       {"America/St_Johns", 3540, 4, 29},
        {"Europe/Berlin", -46800, 28, 29}, {"Pacific/Kiritimati", -46800, 4, 29}};
    platform::FixedClock clock(setBack);
    const platform::ScopedClock scope(clock);
    for (const auto& [name, seconds, saturday, sunday] : cases) {
        const platform::ScopedTimeZone zone(name);
        clock.set(setBack + std::chrono::seconds(seconds) + std::chrono::microseconds(999'999));
        EXPECT_EQ(Parser::dateOnlyFromString("sat")->day(), saturday) << name << seconds;
        EXPECT_EQ(Parser::dateOnlyFromString("Sunday")->day(), sunday) << name << seconds;
    }
}

}  // namespace
}  // namespace corvane
