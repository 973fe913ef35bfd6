#include "corvane/dates/EXTimeOnlyCommandParser.h"

#include "corvane/dates/TimeCommandGrammar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvane {
namespace {

TEST(EXTimeOnlyCommandParser, ReadsTimesOfEitherClock) {
    // Several texts in a row are divided by "|"; none of "" is a time.
    // clang-format off
    const struct { const char *locale, *texts, *time; } cases[] = {
        {"en_US", "10:30|10:30 am|10:30:00 A.M.|١٠:٣٠", "10:30:00"}, {"en_US", "22|10pm|22:0|22:00:00", "22:00:00"},
        {"en_US", "10:30 pm|10:30pm|10:30\u202F\tPM|10:30p.m.|10:30 P.M", "22:30:00"}, {"en_US", "7|07|7am", "07:00:00"},
        {"en_US", "12 am|12:00:00am|0|00:00", "00:00:00"}, {"en_US", "12 pm|12", "12:00:00"}, {"en_US", "22:15", "22:15:00"},
        {"en_US", "25|24:00|noon|10.30|1030|10:60|10:30:60|13pm|0 am|22:15 pm|10:30:|10:|:30|pm| 10:30|10:30 |10 :30|10: 30|"
                  "10pmx|10:30 pm pm|-1|010|10:030|1:2:3:4|10:30\xC3|", ""}, {"en_US", "1:2:3 pm|13:02:03", "13:02:03"},
        {"ja_JP", "10:30午後|10:30 午後|10:30 PM", "22:30:00"}, {"ja_JP", "午後10:30", ""}, {"sv_SE", "10em|10 pm", "22:00:00"},
        {"es_ES", "10 p. m.|10 p.m.|10PM|10 p\u00A0m", "22:00:00"}, {"tr_TR", "9:05 ös|21:05|9:05 ÖS|9:05pm", "21:05:00"},
        {"ar_EG", "١٠:٣٠ م|10:30م|10:30pm", "22:30:00"}, {"el_GR", "9 Μ.Μ.|9μμ", "21:00:00"}, {"da_DK", "10.30", ""},
    };
    // clang-format on
    for (const auto& [locale, texts, expected] : cases) {
        const TimeCommandGrammar grammar{platform::Locale(locale)};
        std::istringstream stream(texts);
        for (std::string text; std::getline(stream, text, '|');) {
            const auto time = grammar.parse(text);
            EXPECT_EQ(time ? time->isoString() : "", expected) << locale << " " << text;
        }
    }
    EXPECT_EQ(EXTimeOnlyCommandParser::timeOnlyFromString("7:05"), EXTimeOnly(7, 5, 0));
}

}  // namespace
}  // namespace corvane
