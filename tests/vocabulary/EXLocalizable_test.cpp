#include "corvane/vocabulary/EXLocalizable.h"

#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace corvane {
namespace {

using platform::Locale;
using platform::ScopedLanguages;
using platform::ScopedLocale;
using platform::StringTableProblem;
using testing::ElementsAre;
using Text = std::optional<std::string>;

// The tables live as long as the process, so the tests add to languages of their own.

TEST(EXLocalizable, AsksTheLanguagesInTurnThenEnglish) {
    EXLocalizable::addStringTable("sv", "OnlySwedish = Hej\nInbox = Inkorg");
    EXLocalizable::addStringTable("de_AT", "OnlyAustrian = Servus");
    const struct {
        std::vector<std::string> languages;
        const char *key, *text;
    } cases[] = {
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
        EXPECT_EQ(EXLocalizable::localize(key, ""), text);
    }
    EXPECT_EQ(EXLocalizable::localize("NoSuchKey", "fallback"), "fallback");
    EXPECT_NE(EXLocalizable::localize("OnHold", "fallback"), "fallback");
}

TEST(EXLocalizable, TellsReferencesFromLiteralNames) {
    const std::pair<const char*, Text> cases[] = {
        {"${X}", "X"}, {"${}}", "}"}, {"${}", {}}, {"Plain", {}},
        {"", {}},      {"${X", {}},   {"$X}", {}},
    };
    for (auto& [name, key] : cases)
        EXPECT_EQ(EXLocalizable::keyFromLocalizableName(name), key) << name;

    ScopedLanguages scope({"de"});
    EXPECT_EQ(EXLocalizable::localizableNameForKey("ProjectNone"), "${ProjectNone}");
    EXPECT_EQ(EXLocalizable::localizeName(Text("${ProjectNone}")), Text("Kein Projekt"));
    EXPECT_EQ(EXLocalizable::localizeName("${NoSuchKey}"), "NoSuchKey");
    EXPECT_EQ(EXLocalizable::localizeName("${}"), "${}");
}

TEST(EXLocalizable, CollatesInTheLocaleInForceUnlessToldOtherwise) {
    ScopedLanguages languages({"de"});
    ScopedLocale locale(Locale("tr"));
    EXPECT_EQ(EXLocalizable::collationForString("ÉI"), "eı");
    EXPECT_EQ(EXLocalizable::collationForString("ÉI", Locale("en")), "ei");
    EXPECT_EQ(EXLocalizable::collationByLocalizing("Office"), "buro");
    EXPECT_EQ(EXLocalizable::collationForString(Text()), Text());
}

TEST(EXLocalizable, AnApplicationOverridesEntriesAndHearsOfBadLines) {
    ScopedLanguages scope({"de_DE"});
    EXPECT_THAT(EXLocalizable::addStringTable("de-DE.UTF-8", "Trash = Müll\nbad\n"),
                ElementsAre(StringTableProblem{2, "no \"=\""}));
    EXPECT_EQ(EXLocalizable::localize("Trash"), "Müll");
    EXPECT_EQ(EXLocalizable::localize("Inbox"), "Eingang");

    tests::TemporaryDirectory directory;
    const std::string path = directory.write("table", "Trash = Tonne");
    EXPECT_FALSE(EXLocalizable::addStringTableFromFile("de_DE", path));
    EXPECT_EQ(EXLocalizable::localize("Trash"), "Tonne");
    directory.write("table", "bad\nTrash = Tonne 2\nbad too");
    auto error = EXLocalizable::addStringTableFromFile("de_DE", path);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code, 1);
    EXPECT_EQ(error->message, path + ", line 1: no \"=\" (the first of 2 bad lines)");
    EXPECT_EQ(EXLocalizable::localize("Trash"), "Tonne 2");
    EXPECT_EQ(EXLocalizable::addStringTableFromFile("de_DE", directory / "x")->domain, "posix");
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

TEST(EXLocalizable, ATableReadsWhatTheFormatAllows) {
    // clang-format off
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Low = Niedrig", "Low", "Niedrig"}, {"Low=Niedrig", "Low", "Niedrig"},
        {" \t Low \t=\t Sehr niedrig \t", "Low", "Sehr niedrig"},
        {"Low = Niedrig\r\n", "Low", "Niedrig"}, {"\xEF\xBB\xBFLow = Niedrig", "Low", "Niedrig"},
        {"Sum = a = b", "Sum", "a = b"}, {"Number = # 1", "Number", "# 1"},
        {R"(Lines = \sa\nb\tc\\n\s)", "Lines", " a\nb\tc\\n "},
        {"No Größe = größer 😀", "No Größe", "größer 😀"},
    };
    // clang-format on
    for (auto [line, key, text] : cases) {
        auto [table, problems] = platform::StringTable::parse(line);
        EXPECT_THAT(problems, testing::IsEmpty()) << line;
        EXPECT_THAT(table.entries(), ElementsAre(testing::Pair(key, text))) << line;
    }
}

TEST(EXLocalizable, ATableReportsBadLinesAndUsesTheRest) {
    auto [table, problems] = platform::StringTable::parse(
        "# a comment = not an entry\nA = 1\n\nno sign\n = no key\nB =  \nC = \\x\nD = \\\n"
        "A = 2\nE = \xFF\n   # indented comment\nF = 3");
    EXPECT_THAT(table.entries(), ElementsAre(testing::Pair("A", "1"), testing::Pair("F", "3")));
    using Problem = StringTableProblem;
    EXPECT_THAT(problems,
                ElementsAre(Problem{4, "no \"=\""}, Problem{5, "no key"}, Problem{6, "no text"},
                            Problem{7, "unknown escape"}, Problem{8, "unknown escape"},
                            Problem{9, "a key used before"}, Problem{10, "not UTF-8"}));
}

}  // namespace
}  // namespace corvane
