#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/RepositoryTasks.h"
#include "apps/cli/TextOutput.h"
#include "apps/overviews/DocumentTasksModel.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

std::shared_ptr<HGProjectProxy> projectNamed(const HGSharedRepository& repository,
                                             const std::string& name) {
    if (auto project = repository.projectProxyNamed(name)) return project;
    auto general = repository.generalProjectProxy();
    return general && general->name() == name ? general : nullptr;
}

void printTasksOfDocument(const std::string& file, bool byStatus, Format format) {
    using overviews::DocumentTasksModel;
    const auto tasks = std::make_shared<DocumentTasksModel>(
        file,
        byStatus ? DocumentTasksModel::Grouping::Status : DocumentTasksModel::Grouping::Project);
    tasks->reloadData();
    if (tasks->error()) throw Failure(*tasks->error());
    const auto proxies = taskProxiesOf(*tasks->document());
    const backup::Task* first = tasks->document()->tasks.data();
    auto taskAt = [&](const platform::IndexPath& path) {
        return proxies[static_cast<std::size_t>(tasks->taskAtIndexPath(path).get() - first)];
    };
    if (format == Format::JSON) return print(sectionedTasksJson(*tasks, taskAt));
    // Sections begin with the empty line that is between them.
    print(tasks->isEmpty() ? "  no tasks\n" : sectionedTaskLines(*tasks, taskAt).substr(1));
}

void printPublishedTasks(const std::optional<std::string>& project, Format format) {
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

}  // namespace

void runTasks(const TasksQuestion& question, Format format) {
    if (!question.document) return printPublishedTasks(question.project, format);
    printTasksOfDocument(*question.document, question.byStatus, format);
}

}  // namespace corvane::cli
