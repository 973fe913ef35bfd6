#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/RepositoryTasks.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

std::shared_ptr<HGProjectProxy> projectNamed(const HGSharedRepository& repository,
                                             const std::string& name) {
    if (auto project = repository.projectProxyNamed(name)) return project;
    auto general = repository.generalProjectProxy();
    return general && general->name() == name ? general : nullptr;
}

}  // namespace

void runTasks(const std::optional<std::string>& project, Format format) {
    const auto repository = publishedRepository();
    TaskProxies tasks;
    if (project) {
        auto found = projectNamed(*repository, *project);
        if (!found) throw Failure(fmt::format("there is no project '{}'", *project));
        tasks = tasksOfProject(*repository, *found);
    } else {
        tasks = allTasks(*repository);
    }
    if (format == Format::JSON) return print(tasksJson(tasks));
    print(tasks.empty() ? "  no tasks\n" : taskLines(tasks));
}

}  // namespace corvane::cli
