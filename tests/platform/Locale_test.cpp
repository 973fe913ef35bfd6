#include "corvane/platform/Locale.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace corvane::platform {
namespace {

TEST(Locale, ReadsEveryKindOfName) {
    struct {
        const char* name;
        const char* identifier;
        const char* baseName;
        const char* language;
    } const cases[] = {
        {"de_DE", "de_DE", "de_DE", "de"},
        {"de_DE.UTF-8", "de_DE", "de_DE", "de"},
        {"de_DE@euro", "de_DE", "de_DE", "de"},
        {"de-AT", "de_AT", "de_AT", "de"},
        {"DE_at", "de_AT", "de_AT", "de"},
        {"sr_RS.UTF-8@latin", "sr_Latn_RS", "sr_Latn_RS", "sr"},
        {"sr@latin", "sr_Latn", "sr_Latn", "sr"},
        {"en_US.UTF-8@rg=gbzzzz", "en_US@rg=gbzzzz", "en_US", "en"},
        {"en-US-u-fw-mon", "en_US@fw=mon", "en_US", "en"},
        {"haw_US", "haw_US", "haw_US", "haw"},
    };
    for (auto& [name, identifier, baseName, language] : cases) {
        Locale locale(name);
        EXPECT_EQ(locale.identifier(), identifier) << name;
        EXPECT_EQ(locale.baseName(), baseName) << name;
        EXPECT_EQ(locale.language(), language) << name;
    }
}

TEST(Locale, TakesWhatIsNoLocaleForTheInvariantOne) {
    const std::string overlong(10000, 'a');
    for (auto name : {"", "C", "POSIX", "C.UTF-8", "@", ".", "!!", "x", "_US", " de", "german",
                      "../../etc/passwd", overlong.c_str()})
        EXPECT_EQ(Locale(name), Locale("en_US_POSIX")) << name;
    EXPECT_EQ(Locale().language(), "en");
}

TEST(Locale, FollowsTheEnvironment) {
    struct {
        std::map<std::string, std::string> variables;
        const char* locale;
        std::vector<std::string> languages;
    } const cases[] = {
        {{}, "C", {"en_US_POSIX"}},
        {{{"LANG", "fr_FR.UTF-8"}}, "fr_FR", {"fr_FR"}},
        {{{"LANG", "fr_FR"}, {"LC_TIME", "de_DE"}}, "de_DE", {"fr_FR"}},
        {{{"LANG", "fr_FR"}, {"LC_MESSAGES", "it_IT"}}, "fr_FR", {"it_IT"}},
        {{{"LANG", "fr_FR"}, {"LC_TIME", "de_DE"}, {"LC_MESSAGES", "it"}, {"LC_ALL", "sv"}},
         "sv",
         {"sv"}},
        {{{"LANG", "de_DE"}, {"LANGUAGE", ":de_AT:sv::de_DE:"}}, "de_DE", {"de_AT", "sv", "de_DE"}},
        {{{"LANG", "de_DE"}, {"LANGUAGE", "sv"}}, "de_DE", {"sv", "de_DE"}},
        {{{"LC_ALL", "C.UTF-8"}, {"LANG", "de"}, {"LANGUAGE", "sv"}}, "C", {"en_US_POSIX"}},
    };
    for (auto& [variables, locale, languages] : cases) {
        auto reader = [&variables = variables](const char* name) {
            auto found = variables.find(name);
            return found == variables.end() ? std::string() : found->second;
        };
        EXPECT_EQ(localeOfEnvironment(reader), Locale(locale)) << testing::PrintToString(variables);
        EXPECT_EQ(languagesOfEnvironment(reader), languages) << testing::PrintToString(variables);
    }
}

TEST(Locale, ScopesNest) {
    const auto before = currentLocale();
    const auto languagesBefore = preferredLanguages();
    {
        ScopedLocale outer(Locale("tr_TR"));
        ScopedLanguages languages({"de", "en"});
        {
            ScopedLocale inner(Locale("sv_SE"));
            EXPECT_EQ(currentLocale(), Locale("sv_SE"));
        }
        EXPECT_EQ(currentLocale(), Locale("tr_TR"));
        EXPECT_EQ(preferredLanguages().front(), "de");
    }
    EXPECT_EQ(currentLocale(), before);
    EXPECT_EQ(preferredLanguages(), languagesBefore);
}

}  // namespace
}  // namespace corvane::platform
