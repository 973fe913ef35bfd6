#include "apps/cli/QueuedTask.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace corvane::cli {
namespace {

using testing::ElementsAre;

const GeneralProjectNames kGeneral{"No Project", "Kein Projekt"};

TEST(QueuedTask, BecomesALine) {
    const EXDateOnly day(2024, 3, 5);
    const struct {
        std::function<void(HGTaskProxy&)> fill;
        const char* text;
        std::vector<std::string> lost = {};
    } cases[] = {
        {[](auto&) {}, "a"},
        {[](auto& task) { task.setTitle(" two\nlines\t"); }, "two lines"},
        {[](auto& task) { task.setTitle("\n"); }, "Untitled"},
        {[](auto& task) { task.setTitle(std::nullopt); }, "Untitled"},
        {[](auto& task) { task.setProjectName("my house/bath room"); }, "a +my-house/bath-room"},
        {[](auto& task) { task.setProjectName("No Project"); }, "a"},
        {[](auto& task) { task.setProjectName("Kein Projekt"); }, "a"},
        {[](auto& task) { task.setProjectName(""); }, "a"},
        {[](auto& task) { task.setCategoryName("at home"); }, "a @at-home"},
        {[](auto& task) { task.setCategoryName("waiting"); }, "a", {"the category waiting"}},
        {[](auto& task) { task.setNotes("n\n1"); }, "a note:n%0A1"},
        {[](auto& task) { task.setNotes(""); }, "a"},
        {[&](auto& task) { task.setDue(day); }, "a due:2024-03-05"},
        {[](auto& task) { task.setDue(EXDateOnly(2023, 2, 31)); }, "a", {"the due day 2023-02-31"}},
        {[](auto& task) { task.setDue(EXDateOnly(12024, 1, 1)); },
         "a",
         {"the due day 12024-01-01"}},
        {[](auto& task) { task.setPriority(4); }, "(A) a"},
        {[](auto& task) { task.setPriority(5); }, "a", {"the priority 5"}},
        {[](auto& task) { task.setPriority(-1); }, "a", {"the priority -1"}},
        {[](auto& task) { task.setStatus(kOnHoldStatus); }, "a @waiting"},
        {[](auto& task) { task.setStatus(kCompletedStatus); }, "x a"},
        {[](auto& task) { task.setStatus(7); }, "a", {"the status Canceled"}},
        {[](auto& task) { task.setStatus(-9); }, "a", {"the status -9"}},
        {[](auto& task) {
             task.setStarred(true);
             task.setRepeat(1);
             task.setContributorName("Ann");
             task.setAttachmentProxies({{std::make_shared<HGAttachmentProxy>()}});
         },
         "a star:1",
         {"its repeat", "the contributor Ann", "1 attachments"}},
    };
    for (const auto& c : cases) {
        HGTaskProxy task;
        task.setStatus(kInboxStatus);
        task.setTitle("a");
        c.fill(task);
        const QueuedTask queued = queuedTaskOf(task, kGeneral);
        EXPECT_EQ(queued.line.text(), c.text);
        EXPECT_EQ(queued.lost, c.lost) << c.text;
        auto readBack = TodoLine::parse(queued.line.text());
        EXPECT_TRUE(std::get<TodoLine>(readBack) == queued.line) << c.text;
    }
}

}  // namespace
}  // namespace corvane::cli
