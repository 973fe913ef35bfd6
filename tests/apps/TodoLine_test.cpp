#include "apps/cli/TodoLine.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace corvane::cli {
namespace {

/// "title|project|category|notes|due|priority|marks"
std::string described(const TodoLine& line) {
    return line.title + "|" + line.project.value_or("-") + "|" + line.category.value_or("-") + "|" +
           line.notes.value_or("-") + "|" + (line.due ? line.due->isoString() : "-") + "|" +
           std::to_string(line.priority) + "|" + (line.completed ? "x" : "") +
           (line.onHold ? "w" : "") + (line.starred ? "*" : "");
}

std::string parsed(std::string_view text) {
    auto result = TodoLine::parse(text);
    auto* line = std::get_if<TodoLine>(&result);
    return line ? described(*line) : "problem: " + std::get<std::string>(result);
}

TEST(TodoLine, ReadsFieldsAndLeavesTheRestInTheTitle) {
    const struct {
        const char *text, *expected;
    } cases[] = {
        {"Call Bob", "Call Bob|-|-|-|-|2|"},
        {"(A) Call Bob +house @phone due:2024-03-05", "Call Bob|house|phone|-|2024-03-05|4|"},
        {"x Call Bob", "Call Bob|-|-|-|-|2|x"},
        {"x (B) Call Bob", "Call Bob|-|-|-|-|3|x"},
        {"x 2024-03-01 2024-02-01 Call", "2024-03-01 2024-02-01 Call|-|-|-|-|2|x"},
        {"(E) a", "a|-|-|-|-|0|"},
        {"(F) a", "a|-|-|-|-|0|"},
        {"(Z) a", "a|-|-|-|-|0|"},
        {"(a) a", "(a) a|-|-|-|-|2|"},
        {"(A)a", "(A)a|-|-|-|-|2|"},
        {" (A) a", "(A) a|-|-|-|-|2|"},
        {"X a", "X a|-|-|-|-|2|"},
        {"x", "x|-|-|-|-|2|"},
        {"+one a +two @three b @four", "a +two b @four|one|three|-|-|2|"},
        {"a + b @ c", "a + b @ c|-|-|-|-|2|"},
        {"a+b c@d", "a+b c@d|-|-|-|-|2|"},
        {"@waiting a @phone", "a|-|phone|-|-|2|w"},
        {"@Waiting a", "a|-|Waiting|-|-|2|"},
        {"star:1 a star:0", "a star:0|-|-|-|-|2|*"},
        {"a due:2024-02-29", "a|-|-|-|2024-02-29|2|"},
        {"a due:2023-02-29", "a due:2023-02-29|-|-|-|-|2|"},
        {"a due:2024-3-5 due:tomorrow due:", "a due:2024-3-5 due:tomorrow due:|-|-|-|-|2|"},
        {"a due:2024-01-01 due:2024-01-02", "a due:2024-01-02|-|-|-|2024-01-01|2|"},
        {"a note:two%0Alines note:b", "a note:b|-|-|two\nlines|-|2|"},
        {"a note:%C3 note:%4 note:%zz note:", "a note:%C3 note:%4 note:%zz note:|-|-|-|-|2|"},
        {"a id:4 p:2 https://x.org/?a=b", "a id:4 p:2 https://x.org/?a=b|-|-|-|-|2|"},
        {"a  b   +p   c\td  ", "a  b   c\td|p|-|-|-|2|"},
        {"Weigh \\+1 against \\@x \\due:2024-01-01",
         "Weigh +1 against @x due:2024-01-01|-|-|-|-|2|"},
        {"C:\\dir \\n \\\\+a", "C:\\dir \\n \\+a|-|-|-|-|2|"},
        {"Schlüssel für Zoë +büro", "Schlüssel für Zoë|büro|-|-|-|2|"},
        {"(B) +house", "problem: no title"},
        {"x ", "problem: no title"},
        {"caf\xE9", "problem: not UTF-8"},
        {"a\x1B[31mb", "problem: control characters"},
        {"a\rb", "problem: control characters"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parsed(c.text), c.expected) << c.text;
}

TEST(TodoLine, TellsTheStatusFromTheOtherFields) {
    const struct {
        const char* text;
        std::int16_t status;
    } cases[] = {
        {"a", kInboxStatus},           {"a @phone star:1", kInboxStatus},
        {"a +p", kActionableStatus},   {"a due:2024-01-01", kActionableStatus},
        {"a @waiting", kOnHoldStatus}, {"a @waiting +p due:2024-01-01", kOnHoldStatus},
        {"x a", kCompletedStatus},     {"x a @waiting +p", kCompletedStatus},
    };
    for (const auto& c : cases)
        EXPECT_EQ(std::get<TodoLine>(TodoLine::parse(c.text)).status(), c.status) << c.text;
}

TEST(TodoLine, WritesTheLineThatReadsBack) {
    const EXDateOnly day(2024, 3, 5);
    const struct {
        TodoLine line;
        const char* text;
    } cases[] = {
        {{.title = "a b"}, "a b"},
        {{.title = "a",
          .project = "p",
          .category = "c",
          .notes = "n 1",
          .due = day,
          .priority = 4,
          .starred = true,
          .onHold = true,
          .completed = true},
         "x (A) a +p @c @waiting due:2024-03-05 star:1 note:n%201"},
        {{.title = "x ray"}, "(C) x ray"},
        {{.title = "x", .project = "p"}, "(C) x +p"},
        {{.title = "(A) team"}, "(C) (A) team"},
        {{.title = "(A) team", .completed = true}, "x (C) (A) team"},
        {{.title = "x ray", .priority = 0}, "(E) x ray"},
        // The task's own project first, so that the one in the title is not taken for it.
        {{.title = "a +b", .project = "p"}, "+p a +b"},
        {{.title = "a +b @c", .project = "p"}, "+p a +b \\@c"},
        {{.title = "a star:1", .starred = true}, "star:1 a star:1"},
        {{.title = "a due:2024-01-01 \\+b"}, "a \\due:2024-01-01 \\\\+b"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.line.text(), c.text);
        EXPECT_EQ(parsed(c.text), described(c.line));
    }
}

TEST(TodoLine, ReadsBackWhateverItWrote) {
    const std::vector<std::string> words{"a",
                                         "x",
                                         "X",
                                         "(A)",
                                         "(C)",
                                         "+p",
                                         "++",
                                         "+",
                                         "@c",
                                         "@",
                                         "@waiting",
                                         "@@waiting",
                                         "\\",
                                         "\\+p",
                                         "\\\\@c",
                                         "star:1",
                                         "star:2",
                                         "note:n",
                                         "note:%",
                                         "note:",
                                         "due:",
                                         "id:1",
                                         "\\star:1",
                                         "2024-01-01",
                                         "é",
                                         "\\note:",
                                         "💡",
                                         "due:2024-01-01",
                                         "due:2024-13-01"};
    std::mt19937 random(20240305);
    auto upTo = [&](std::size_t count) { return random() % count; };
    auto maybe = [&](auto value) {
        return upTo(2) ? std::optional(std::move(value)) : std::nullopt;
    };
    for (int round = 0; round < 20000; ++round) {
        TodoLine line;
        for (std::size_t count = 1 + upTo(5); count > 0; --count)
            line.title += words[upTo(words.size())] + std::string(count > 1 ? 1 + upTo(2) : 0, ' ');
        line.project = maybe(words[upTo(words.size())]);
        line.category = maybe(words[upTo(4)]);
        line.notes = maybe(line.title + "\n\t%2");
        line.due = maybe(EXDateOnly(2024, 1 + static_cast<int>(upTo(12)), 28));
        line.priority = static_cast<std::int16_t>(upTo(5));
        line.starred = upTo(2);
        line.onHold = upTo(2);
        line.completed = upTo(2);
        ASSERT_EQ(parsed(line.text()), described(line)) << line.text();
    }
}

TEST(TodoLine, HoldsTheNearestTitleAndName) {
    const struct {
        const char *text, *title, *name;
    } cases[] = {
        {"a b", "a b", "a-b"}, {"  a\r\nb\t ", "a  b", "--a--b--"},        {"\x7F\x01", "", "--"},
        {"", "", ""},          {"büro/küche", "büro/küche", "büro/küche"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(heldTitle(c.text), c.title);
        EXPECT_EQ(heldName(c.text), c.name);
    }
}

}  // namespace
}  // namespace corvane::cli
