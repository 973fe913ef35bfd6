// Numbers in fields: shown, read back, and typed in all the ways that people have.

#include "corvane/platform/TypedNumber.h"

#include "corvane/platform/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

using namespace corvane::platform;

TEST(TypedNumber, IsReadAsItIsShown) {
    std::vector<std::string> numbers{"0",        "-1",     "1000",   "-1234.5",
                                     "0.001",    "1e-07",  "-2e+16", "1.7976931348623157e+308",
                                     "1234.567", "98765.4"};
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        const auto scale = static_cast<int>(random() % 40) - 20;
        char text[32];
        std::snprintf(text, sizeof text, "%.17g", std::ldexp(double(random()) - 2e9, scale));
        numbers.emplace_back(text);
    }
    for (const char* name : {"en_US", "de_DE", "fr_FR", "ar_EG", "fa_IR", "hi_IN", "de_CH", "sv_SE",
                             "mr_IN@numbers=deva", "en_US_POSIX"}) {
        const Locale locale(name);
        for (const auto& number : numbers) {
            const auto shown = typedNumberText(number, locale);
            const auto read = plainNumber(shown, locale);
            ASSERT_TRUE(read) << name << ": " << number << " as " << shown;
            EXPECT_EQ(std::stod(*read), std::stod(number)) << name << ": " << shown;
            EXPECT_TRUE(plainNumber(number, locale)) << name << ": " << number;
        }
        for (std::int64_t whole = 1; whole < 1'000'000'000'000; whole *= 7)
            for (const std::int64_t number : {whole, -whole})
                EXPECT_EQ(plainNumber(numberText(number, locale), locale), std::to_string(number))
                    << name << ": in groups";
    }
}

TEST(TypedNumber, IsShownAndTypedAsTheLocaleHasIt) {
    EXPECT_EQ(typedNumberText("-1234.5", Locale("de_DE")), "-1234,5");
    EXPECT_EQ(typedNumberText("1234.5", Locale("ar_EG")), "١٢٣٤٫٥");
    EXPECT_EQ(typedNumberText("inf", Locale("fa_IR")), "inf");
    const struct {
        const char* locale;
        const char* text;
        std::optional<std::string> number;
    } cases[] = {
        {"en_US", " 1,234.50 ", "1234.50"},
        {"en_US", "1,5", {}},
        {"en_US", "1,2345", {}},
        {"en_US", "1234,567", {}},
        {"en_US", ",567", {}},
        {"en_US", "1,234,", {}},
        {"en_US", "5.", "5."},
        {"en_US", ".5", "0.5"},
        {"en_US", "1E3", "1e3"},
        {"en_US", "-", {}},
        {"en_US", ".", {}},
        {"en_US", "1e", {}},
        {"en_US", "1.2.3", {}},
        {"en_US", "nan", {}},
        {"en_US", "0x10", {}},
        {"en_US", "12 apples", {}},
        {"en_US", "\xFF", {}},
        {"en_US", "", {}},
        {"de_DE", "1,5", "1.5"},
        {"de_DE", "1.5", "1.5"},
        {"de_DE", "1.2345", "1.2345"},
        {"de_DE", "1.234", "1234"},  // a group
        {"de_DE", "0.234", "0.234"},
        {"de_DE", "1234.567", "1234.567"},
        {"de_DE", "1.234.567,25", "1234567.25"},
        {"de_DE", "1.234.56", {}},
        {"fr_FR", "−1 234,5", "-1234.5"},
        {"fr_FR", "1 5", {}},
        {"de_CH", "1'234.5", "1234.5"},
        {"hi_IN", "12,34,567", "1234567"},
        {"hi_IN", "१२.५", "12.5"},
        {"ar_EG", "١٬٢٣٤٫٥", "1234.5"},
        {"ar_EG", "-12.5", "-12.5"},
        {"fa_IR", "\u200E\u2212۱۲٫۵", "-12.5"},
        {"en_US_POSIX", "1,234", {}},
        {"en_US@numbers=roman", "12.5", "12.5"},
    };
    for (const auto& [locale, text, number] : cases)
        EXPECT_EQ(plainNumber(text, Locale(locale)), number) << locale << ": " << text;
}
