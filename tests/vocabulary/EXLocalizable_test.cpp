#include "corvane/vocabulary/EXLocalizable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <thread>

namespace corvane {
namespace {

using platform::Locale;
using platform::ScopedLanguages;
using platform::ScopedLocale;
using platform::StringTableProblem;
using testing::ElementsAre;
using testing::IsEmpty;
using Text = std::optional<std::string>;

// The tables live as long as the process, so the tests add to languages of their own.

TEST(EXLocalizable, AsksTheLanguagesInTurnThenEnglish) {
    EXLocalizable::addStringTable("sv", "OnlySwedish = Hej\nInbox = Inkorg");
    EXLocalizable::addStringTable("de_AT", "OnlyAustrian = Servus");
    struct {
        std::vector<std::string> languages;
        const char* key;
        const char* text;
    } const cases[] = {
        {{"en"}, "InProgress", "In Progress"}, {{"en_US_POSIX"}, "InProgress", "In Progress"},
        {{"de"}, "InProgress", "In Arbeit"},   {{"de_AT"}, "InProgress", "In Arbeit"},
        {{"de_AT"}, "OnlyAustrian", "Servus"}, {{"de"}, "OnlyAustrian", "OnlyAustrian"},
        {{"sv_SE", "de"}, "Inbox", "Inkorg"},  {{"sv_SE", "de"}, "InProgress", "In Arbeit"},
        {{"de", "sv"}, "Inbox", "Eingang"},    {{"de", "sv"}, "OnlySwedish", "Hej"},
        {{"sv"}, "InProgress", "In Progress"}, {{"xx"}, "InProgress", "In Progress"},
        {{"de"}, "NoSuchKey", "NoSuchKey"},    {{"de"}, "", ""},
    };
    for (auto& [languages, key, text] : cases) {
        ScopedLanguages scope(languages);
        EXPECT_EQ(EXLocalizable::localize(key), text) << languages.front() << " " << key;
    }
}

TEST(EXLocalizable, TheDefaultStandsInForAMissingKeyOnly) {
    ScopedLanguages scope({"en"});
    EXPECT_EQ(EXLocalizable::localize("NoSuchKey", "fallback"), "fallback");
    EXPECT_EQ(EXLocalizable::localize("NoSuchKey", ""), "NoSuchKey");
    EXPECT_EQ(EXLocalizable::localize("OnHold", "fallback"), "On Hold");
}

TEST(EXLocalizable, TellsReferencesFromLiteralNames) {
    struct {
        const char* name;
        Text key;
    } const cases[] = {
        {"${X}", "X"}, {"${}}", "}"}, {"${}", {}}, {"Plain", {}},
        {"", {}},      {"${X", {}},   {"$X}", {}},
    };
    for (auto& [name, key] : cases)
        EXPECT_EQ(EXLocalizable::keyFromLocalizableName(name), key) << name;

    ScopedLanguages scope({"de"});
    auto name = EXLocalizable::localizableNameForKey("ProjectNone");
    EXPECT_EQ(name, "${ProjectNone}");
    EXPECT_EQ(EXLocalizable::localizeName(name), "Kein Projekt");
    EXPECT_EQ(EXLocalizable::localizeName("${NoSuchKey}"), "NoSuchKey");
    EXPECT_EQ(EXLocalizable::localizeName("${}"), "${}");
}

TEST(EXLocalizable, CollatesInTheLocaleInForceUnlessToldOtherwise) {
    ScopedLanguages languages({"de"});
    ScopedLocale locale(Locale("tr"));
    EXPECT_EQ(EXLocalizable::collationForString("ÉI"), "eı");
    EXPECT_EQ(EXLocalizable::collationForString("ÉI", Locale("en")), "ei");
    EXPECT_EQ(EXLocalizable::collationByLocalizing("Office"), "buro");
}

TEST(EXLocalizable, AbsentTextStaysAbsent) {
    ScopedLanguages scope({"en"});
    EXPECT_EQ(EXLocalizable::localize(Text()), Text());
    EXPECT_EQ(EXLocalizable::localizeName(Text()), Text());
    EXPECT_EQ(EXLocalizable::collationForString(Text()), Text());
    EXPECT_EQ(EXLocalizable::localizeName(Text("${OnHold}")), Text("On Hold"));
}

TEST(EXLocalizable, AnApplicationOverridesEntriesAndHearsOfBadLines) {
    ScopedLanguages scope({"de_DE"});
    EXPECT_THAT(EXLocalizable::addStringTable("de-DE.UTF-8", "Trash = Müll\nbad\n"),
                ElementsAre(StringTableProblem{2, "no \"=\""}));
    EXPECT_EQ(EXLocalizable::localize("Trash"), "Müll");
    EXPECT_THAT(EXLocalizable::addStringTable("de_DE", "Trash = Tonne"), IsEmpty());
    EXPECT_EQ(EXLocalizable::localize("Trash"), "Tonne");
    EXPECT_EQ(EXLocalizable::localize("Inbox"), "Eingang");
}

TEST(EXLocalizable, ReadsTablesFromFiles) {
    ScopedLanguages scope({"fi"});
    const std::string path = testing::TempDir() + "EXLocalizable_test.strings";
    std::ofstream(path) << "FromFile = Tiedosto";
    EXPECT_FALSE(EXLocalizable::addStringTableFromFile("fi", path));

    std::ofstream(path) << "bad\nFromFile = Tiedosto 2\nbad too";
    auto error = EXLocalizable::addStringTableFromFile("fi", path);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code, 1);
    EXPECT_EQ(error->message, path + ", line 1: no \"=\" (the first of 2 bad lines)");
    EXPECT_EQ(EXLocalizable::localize("FromFile"), "Tiedosto 2");

    std::remove(path.c_str());
    ASSERT_TRUE(EXLocalizable::addStringTableFromFile("fi", path));
    EXPECT_EQ(EXLocalizable::addStringTableFromFile("fi", path)->domain, "posix");
    EXPECT_EQ(EXLocalizable::localize("FromFile"), "Tiedosto 2");
}

TEST(EXLocalizable, TablesMayBeAddedWhileOthersLookUp) {
    ScopedLanguages scope({"nb"});
    EXLocalizable::addStringTable("nb", "Odd = 0");
    std::atomic<bool> done{false};
    std::thread reader([&] {
        while (!done)
            EXPECT_THAT(EXLocalizable::localize("Odd"), testing::MatchesRegex("[0-9]+"));
    });
    for (int i = 1; i <= 500; ++i)
        EXLocalizable::addStringTable("nb", "Odd = " + std::to_string(i));
    done = true;
    reader.join();
    EXPECT_EQ(EXLocalizable::localize("Odd"), "500");
}

}  // namespace
}  // namespace corvane
