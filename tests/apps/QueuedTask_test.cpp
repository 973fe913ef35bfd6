#include "apps/cli/QueuedTask.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

TEST(QueuedTask, BecomesALineThatReadsBackAndTellsWhatIsLost) {
    using Task = HGTaskProxy;
    // clang-format off
    const struct { void (*fill)(Task&); const char* text; std::vector<std::string> lost = {}; } cases[] = {
        {[](Task& task) { task.setTitle(" two\nlines\t"); }, "two lines"},
        {[](Task& task) { task.setTitle(std::nullopt); }, "Untitled"},
        {[](Task& task) { task.setTitle("\n"); }, "Untitled"},
        {[](Task& task) { task.setProjectName("my house/bath room"); }, "a +my-house/bath-room"},
        {[](Task& task) { task.setProjectName("Kein Projekt"); }, "a"},
        {[](Task& task) { task.setProjectName(""); task.setNotes(""); }, "a"},
        {[](Task& task) { task.setCategoryName("waiting"); }, "a", {"the category waiting"}},
        {[](Task& task) { task.setDue(EXDateOnly(2023, 2, 31)); }, "a", {"the due day 2023-02-31"}},
        {[](Task& task) { task.setPriority(4); task.setNotes("n\n1"); }, "(A) a note:n%0A1"},
        {[](Task& task) { task.setPriority(5); }, "a", {"the priority 5"}},
        {[](Task& task) { task.setStatus(kOnHoldStatus); }, "a @waiting"},
        {[](Task& task) { task.setStatus(7); }, "a", {"the status Canceled"}},
        {[](Task& task) { task.setRepeat(1); }, "a", {"its repeat"}},
        {[](Task& task) { task.setAttachmentProxies({{std::make_shared<HGAttachmentProxy>()}}); },
         "a", {"1 attachment"}},
    };
    // clang-format on
    for (const auto& c : cases) {
        Task task;
        task.setStatus(kInboxStatus);
        task.setTitle("a");
        c.fill(task);
        const QueuedTask queued = queuedTaskOf(task, {"No Project", "Kein Projekt"});
        EXPECT_EQ(queued.line.text(), c.text);
        EXPECT_EQ(queued.lost, c.lost) << c.text;
        EXPECT_TRUE(std::get<TodoLine>(TodoLine::parse(c.text)) == queued.line) << c.text;
    }
}

}  // namespace
}  // namespace corvane::cli
