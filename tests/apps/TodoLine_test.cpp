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
    const std::pair<const char*, const char*> cases[] = {
        {"(A) Call Bob +house @phone due:2024-03-05", "Call Bob|house|phone|-|2024-03-05|4|"},
        {"x (B) Call Bob", "Call Bob|-|-|-|-|3|x"},
        {"x 2024-03-01 2024-02-01 Call", "2024-03-01 2024-02-01 Call|-|-|-|-|2|x"},
        {"(Z) a", "a|-|-|-|-|0|"},
        {"(a) a", "(a) a|-|-|-|-|2|"},
        {" (A) a", "(A) a|-|-|-|-|2|"},
        {"x", "x|-|-|-|-|2|"},
        {"+one a +two @three b @four", "a +two b @four|one|three|-|-|2|"},
        {"@waiting a @phone", "a|-|phone|-|-|2|w"},
        {"star:1 a star:0", "a star:0|-|-|-|-|2|*"},
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
        {"x ", "problem: no title"},
        {"caf\xE9", "problem: not UTF-8"},
        {"a\x1B[31mb", "problem: control characters"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(parsed(text), expected) << text;
}

TEST(TodoLine, WritesTheLineThatReadsBack) {
    const std::pair<TodoLine, const char*> cases[] = {
        {{"a", "p", "c", "n 1", EXDateOnly(2024, 3, 5), 4, true, true, true},
         "x (A) a +p @c @waiting due:2024-03-05 star:1 note:n%201"},
        {{.title = "x", .project = "p"}, "(C) x +p"},
        {{.title = "(A) team", .completed = true}, "x (C) (A) team"},
        {{.title = "x ray", .priority = 0}, "(E) x ray"},
        {{.title = "\uFEFF"}, "(C) \uFEFF"},
        // The task's own project first, so that the one in the title is not taken for it.
        {{.title = "a +b @c", .project = "p"}, "+p a +b \\@c"},
        {{.title = "a star:1", .starred = true}, "star:1 a star:1"},
        {{.title = "a due:2024-01-01 \\+b"}, "a \\due:2024-01-01 \\\\+b"},
    };
    for (const auto& [line, text] : cases) {
        EXPECT_EQ(line.text(), text);
        EXPECT_EQ(parsed(text), described(line));
    }
}

TEST(TodoLine, ReadsBackWhateverItWrote) {
    // clang-format off
    const std::vector<std::string> words{
        "a", "x", "X", "(A)", "(C)", "+p", "++", "+", "@c", "@", "@waiting", "@@waiting", "\\",
        "\\+p", "\\\\@c", "star:1", "star:2", "note:n", "note:%", "note:", "due:", "id:1",
        "\\star:1", "2024-01-01", "é", "\\note:", "💡", "due:2024-01-01", "due:2024-13-01"};
    // clang-format on
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

}  // namespace
}  // namespace corvane::cli
