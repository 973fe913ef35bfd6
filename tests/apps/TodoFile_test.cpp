#include "apps/cli/TodoFile.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

TEST(TodoFile, NumbersTasksAndProblemsByTheirLines) {
    const struct {
        const char *content, *tasks, *problems;
    } cases[] = {
        {"", "", ""},
        {"\n", "", ""},
        {"a", "1:a;", ""},
        {"a\nb\n", "1:a;2:b;", ""},
        {"a\r\n\r\n \t\r\nb", "1:a;4:b;", ""},
        {"\xEF\xBB\xBFx a\nb", "1:x a;2:b;", ""},
        {"a\n+p\nb\rc\n\xFF\nd", "1:a;5:d;", "2:no title;3:control characters;4:not UTF-8;"},
    };
    for (const auto& c : cases) {
        const TodoFile file(c.content);
        std::string tasks, problems;
        for (const auto& task : file.tasks())
            tasks += fmt::format("{}:{};", task.lineNumber, task.text);
        for (const auto& problem : file.problems())
            problems += fmt::format("{}:{};", problem.lineNumber, problem.reason);
        EXPECT_EQ(tasks, c.tasks);
        EXPECT_EQ(problems, c.problems);
    }
}

TEST(TodoFile, AddsLinesAsTheFileEndsItsOwn) {
    const struct {
        const char *content, *with;
    } cases[] = {
        {"", "n\nm\n"},
        {"a\n", "a\nn\nm\n"},
        {"a", "a\nn\nm\n"},
        {"a\r\n", "a\r\nn\r\nm\r\n"},
        {"a\r\nb", "a\r\nb\r\nn\r\nm\r\n"},
        {"a\nb\r\n", "a\nb\r\nn\nm\n"},
        {"\n", "\nn\nm\n"},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBFn\nm\n"},
        {"\xFF \r", "\xFF \r\nn\nm\n"},
    };
    const std::vector<std::string> lines{"n", "m"};
    for (const auto& c : cases) {
        EXPECT_EQ(contentWithLines(c.content, lines), c.with);
        EXPECT_EQ(contentWithLines(c.content, {}), c.content);
    }
}

}  // namespace
}  // namespace corvane::cli
