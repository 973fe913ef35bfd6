#include "corvane/platform/StringTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(StringTable, ReadsWhatTheFormatAllows) {
    struct {
        const char* what;
        const char* line;
        const char* key;
        const char* text;
    } const cases[] = {
        {"plain", "Low = Niedrig", "Low", "Niedrig"},
        {"no blanks", "Low=Niedrig", "Low", "Niedrig"},
        {"blanks around", " \t Low \t=\t Sehr niedrig \t", "Low", "Sehr niedrig"},
        {"CRLF", "Low = Niedrig\r\n", "Low", "Niedrig"},
        {"byte order mark", "\xEF\xBB\xBFLow = Niedrig", "Low", "Niedrig"},
        {"further equals signs", "Sum = a = b", "Sum", "a = b"},
        {"hash in the text", "Number = # 1", "Number", "# 1"},
        {"escapes", R"(Lines = \sa\nb\tc\\n\s)", "Lines", " a\nb\tc\\n "},
        {"a key of words", "No Project = Keins", "No Project", "Keins"},
        {"beyond ASCII", "Größe = größer 😀", "Größe", "größer 😀"},
    };
    for (auto& [what, line, key, text] : cases) {
        auto [table, problems] = StringTable::parse(line);
        EXPECT_THAT(problems, IsEmpty()) << what;
        EXPECT_THAT(table.entries(), ElementsAre(Pair(key, text))) << what;
    }
}

TEST(StringTable, ReportsBadLinesAndUsesTheRest) {
    auto [table, problems] = StringTable::parse(
        "# a comment = not an entry\n"
        "A = 1\n"
        "\n"
        "no sign\n"
        " = no key\n"
        "B =  \n"
        "C = \\x\n"
        "D = \\\n"
        "A = 2\n"
        "E = \xFF\n"
        "   # indented comment\n"
        "F = 3");
    EXPECT_THAT(table.entries(), ElementsAre(Pair("A", "1"), Pair("F", "3")));
    using Problem = StringTableProblem;
    EXPECT_THAT(problems,
                ElementsAre(Problem{4, "no \"=\""}, Problem{5, "no key"}, Problem{6, "no text"},
                            Problem{7, "unknown escape"}, Problem{8, "unknown escape"},
                            Problem{9, "a key used before"}, Problem{10, "not UTF-8"}));
}

TEST(StringTable, EntriesAddedLaterWin) {
    auto table = StringTable::parse("A = 1\nB = 2").table;
    table.add(StringTable::parse("B = zwei\nC = drei").table);
    EXPECT_THAT(table.entries(), ElementsAre(Pair("A", "1"), Pair("B", "zwei"), Pair("C", "drei")));
    ASSERT_TRUE(table.find("B"));
    EXPECT_EQ(*table.find("B"), "zwei");
    EXPECT_FALSE(table.find("b"));
}

}  // namespace
}  // namespace corvane::platform
