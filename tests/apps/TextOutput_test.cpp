#include "apps/cli/TextOutput.h"

#include "apps/cli/TodoLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

using testing::ElementsAre;

std::shared_ptr<HGTaskProxy> task(const char* title, std::int16_t priority = 2,
                                  const char* category = nullptr) {
    auto task = std::make_shared<HGTaskProxy>();
    task->setTitle(title);
    task->setPriority(priority);
    if (category) task->setCategoryName(category);
    return task;
}

TEST(TextOutput, AlignsColumnsByTheirWidthOnATerminal) {
    const std::vector first{task("Käse", 4, "home"), task("日本語", 2, "phone")};
    const std::vector second{task("long\ntitle", 0), task("a")};
    EXPECT_THAT(alignedTaskLines(
                    std::vector<std::span<const std::shared_ptr<HGTaskProxy>>>{first, {}, second}),
                ElementsAre("  A  Käse        @home\n"
                            "     日本語      @phone\n",
                            "",
                            "  E  long title\n"
                            "     a\n"));
}

TEST(TextOutput, MarksCompletedWaitingAndStarredTasks) {
    std::vector tasks{task("a"), task("b"), task("c")};
    tasks[0]->setStatus(kCompletedStatus);
    tasks[1]->setStatus(kOnHoldStatus);
    tasks[1]->setStarred(true);
    EXPECT_EQ(taskLines(tasks), "  x   a\n  w*  b\n      c\n");
}

TEST(TextOutput, LetsALongTitlePushOnlyItsOwnLine) {
    const std::string title(60, 't');
    const std::vector tasks{task(title.c_str(), 2, "c"), task("a", 2, "c")};
    EXPECT_EQ(taskLines(tasks), "  " + title + "  @c\n" + "  a" + std::string(47, ' ') + "  @c\n");
}

TEST(TextOutput, ShowsNoControlCharacters) {
    EXPECT_EQ(onOneLine("a\x1B[2J\r\n\tb\x7F"), "a [2J   b ");
    EXPECT_EQ(onOneLine("a\xC2\x9B"), "a\xC2\xA0");
    EXPECT_EQ(onOneLine("é\xC2\xA9"), "é\xC2\xA9");
}

}  // namespace
}  // namespace corvane::cli
