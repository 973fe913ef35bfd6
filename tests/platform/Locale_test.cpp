#include "corvane/platform/Locale.h"

#include "corvane/platform/TextFolding.h"

#include <gtest/gtest.h>

#include <map>

namespace corvane::platform {
namespace {

TEST(Locale, ReadsEveryKindOfName) {
    // clang-format off
    const struct {
        const char *name, *identifier, *baseName, *language;
    } cases[] = {
        {"de_DE", "de_DE", "de_DE", "de"}, {"de_DE.UTF-8", "de_DE", "de_DE", "de"},
        {"de_DE@euro", "de_DE", "de_DE", "de"}, {"DE-at", "de_AT", "de_AT", "de"},
        {"sr_RS.UTF-8@latin", "sr_Latn_RS", "sr_Latn_RS", "sr"},
        {"sr@latin", "sr_Latn", "sr_Latn", "sr"},
        {"en_US.UTF-8@rg=gbzzzz", "en_US@rg=gbzzzz", "en_US", "en"},
        {"en-US-u-fw-mon", "en_US@fw=mon", "en_US", "en"}, {"haw_US", "haw_US", "haw_US", "haw"},
    };
    // clang-format on
    for (auto [name, identifier, baseName, language] : cases) {
        Locale locale(name);
        EXPECT_EQ(locale.identifier(), identifier) << name;
        EXPECT_EQ(locale.baseName(), baseName) << name;
        EXPECT_EQ(locale.language(), language) << name;
    }
    const std::string overlong(10000, 'a');
    for (auto name : {"", "C", "POSIX", "C.UTF-8", "@", ".", "!!", "x", "_US", " de", "german",
                      "../../etc/passwd", overlong.c_str()})
        EXPECT_EQ(Locale(name), Locale("en_US_POSIX")) << name;
}

TEST(Locale, FollowsTheEnvironment) {
    const struct {
        std::map<std::string, std::string> variables;
        const char* locale;
        std::vector<std::string> languages;
    } cases[] = {
        {{}, "C", {"en_US_POSIX"}},
        {{{"LANG", "fr_FR.UTF-8"}}, "fr_FR", {"fr_FR"}},
        {{{"LANG", "fr_FR"}, {"LC_TIME", "de_DE"}}, "de_DE", {"fr_FR"}},
        {{{"LANG", "fr_FR"}, {"LC_MESSAGES", "it_IT"}}, "fr_FR", {"it_IT"}},
        {{{"LC_ALL", "sv"}, {"LC_TIME", "de_DE"}, {"LC_MESSAGES", "it"}}, "sv", {"sv"}},
        {{{"LANG", "de_DE"}, {"LANGUAGE", ":de_AT:sv::de_DE:"}}, "de_DE", {"de_AT", "sv", "de_DE"}},
        {{{"LANG", "de_DE"}, {"LANGUAGE", "sv"}}, "de_DE", {"sv", "de_DE"}},
        {{{"LC_ALL", "C.UTF-8"}, {"LANG", "de"}, {"LANGUAGE", "sv"}}, "C", {"en_US_POSIX"}},
    };
    for (const auto& each : cases) {
        auto reader = [&](const char* name) {
            auto found = each.variables.find(name);
            return found == each.variables.end() ? std::string() : found->second;
        };
        EXPECT_EQ(localeOfEnvironment(reader), Locale(each.locale));
        EXPECT_EQ(languagesOfEnvironment(reader), each.languages);
    }
}

TEST(Locale, FoldsCaseAndAccentsAndNothingElse) {
    // clang-format off
    const struct {
        const char *locale, *text, *folded;
    } cases[] = {
        {"en", "Hello, World [42]", "hello, world [42]"},
        {"en", "Café CRÈME Cafe\u0301", "cafe creme cafe"}, {"vi", "Tiếng Việt", "tieng viet"},
        {"el", "Άνοιξη ΑΣ", "ανοιξη ας"}, {"ru", "Ёлка Йод", "елка иод"},
        {"de", "Straße ØŁÆ ﬁn", "straße øłæ ﬁn"}, {"ja", "ガぱカハ", "ガぱカハ"}, {"ja", "カ\u3099", "ガ"},
        {"hi", "हिन्दी", "हिन्दी"}, {"ta", "தமிழ்", "தமிழ்"}, {"ar", "آ", "آ"}, {"ko", "한글", "한글"},
        {"en", "カ\u0301", "カ"},  // a Latin accent anywhere
        {"en", "a\u3099", "a"},    // a foreign mark on a Latin letter
        {"en", "\u3099x", "\u3099x"}, {"en", "\U00010400😀", "\U00010428😀"},
        {"en", "İstanbul", "istanbul"}, {"tr", "ILIK", "ılık"}, {"tr", "KALEM", "kalem"},
        {"tr_TR", "İstanbul IĞDIR", "istanbul ıgdır"}, {"az", "I\u0307", "i"}, {"tr", "Ì", "ı"},
        {"en", "A\xFF\xC3", "a\uFFFD\uFFFD"},
    };
    // clang-format on
    for (auto [locale, text, folded] : cases)
        EXPECT_EQ(foldedForCollation(text, Locale(locale)), folded) << text << " in " << locale;
}

// Beside a letter that needs the full way, ASCII must come out as it does alone.
TEST(Locale, TheShortWayForASCIIAgreesWithTheFullOne) {
    for (auto name : {"en", "tr", "lt"}) {
        for (char c = 1; c < 0x7F; ++c) {
            std::string text(1, c), beside = text + "カ";
            EXPECT_EQ(foldedForCollation(text, Locale(name)) + "カ",
                      foldedForCollation(beside, Locale(name)));
        }
    }
}

}  // namespace
}  // namespace corvane::platform
