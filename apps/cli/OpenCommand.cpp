#include "apps/cli/Container.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/RepositoryTasks.h"
#include "apps/cli/TaskCodes.h"
#include "apps/cli/TextOutput.h"

#include <algorithm>

namespace corvane::cli {

namespace {

/// No view of that kind is published, but its tasks are.
void showSomeday(Format format) {
    TaskProxies tasks = allTasks(*publishedRepository());
    std::erase_if(tasks, [](const auto& task) { return task->status() != kSomedayStatus; });
    if (format == Format::JSON) return print(tasksJson(tasks));
    print("Someday\n\n" + (tasks.empty() ? std::string("  nothing\n") : taskLines(tasks)));
}

}  // namespace

void runOpen(const SchemeRequest& request, Format format) {
    if (const auto* newTask = std::get_if<NewTask>(&request)) return runAdd(*newTask);
    if (const auto* view = std::get_if<View>(&request)) return runShow(*view, format);
    showSomeday(format);
}

}  // namespace corvane::cli
