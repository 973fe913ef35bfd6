#include "apps/cli/RepositoryTasks.h"

#include <set>

namespace corvane::cli {

namespace {

using URIs = HGSharedRepository::URIs;

/// In the order of the project picker: those of portfolios, the others, then the general one.
std::vector<std::shared_ptr<HGProjectProxy>> allProjects(const HGSharedRepository& repository) {
    std::vector<std::shared_ptr<HGProjectProxy>> projects;
    auto add = [&](const std::optional<URIs>& uris) {
        auto found = repository.projectProxiesForURIRepresentations(uris.value_or(URIs()));
        projects.insert(projects.end(), found.begin(), found.end());
    };
    for (const auto& uri : repository.portfolioProxyURIs().value_or(URIs())) {
        if (!repository.portfolioProxies()) break;
        auto portfolio = repository.portfolioProxies()->find(uri);
        if (portfolio != repository.portfolioProxies()->end()) {
            add(portfolio->second->projectProxyURIs());
        }
    }
    add(repository.topLevelProjectProxyURIs());
    if (repository.generalProjectProxy()) projects.push_back(repository.generalProjectProxy());
    return projects;
}

}  // namespace

TaskProxies tasksOfProject(const HGSharedRepository& repository, const HGProjectProxy& project) {
    return repository.taskProxiesForURIRepresentations(project.taskProxyURIs().value_or(URIs()));
}

TaskProxies allTasks(const HGSharedRepository& repository) {
    TaskProxies tasks;
    std::set<std::shared_ptr<HGTaskProxy>> seen;
    auto add = [&](const std::shared_ptr<HGTaskProxy>& task) {
        if (seen.insert(task).second) tasks.push_back(task);
    };
    for (const auto& project : allProjects(repository))
        for (const auto& task : tasksOfProject(repository, *project))
            add(task);
    if (!repository.taskProxies()) return tasks;
    for (const auto& [uri, task] : *repository.taskProxies())
        add(task);
    return tasks;
}

}  // namespace corvane::cli
