#include "apps/cli/RepositoryBuilder.h"

#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include "apps/cli/PercentText.h"
#include "apps/cli/TextHash.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <unordered_map>

namespace corvane::cli {

namespace {

using platform::URL;

constexpr std::string_view kGeneralProjectNameKey = "ProjectNone";

URL uriNamed(std::string_view kind, std::string_view name) {
    return URL(fmt::format("x-corvane-todo://{}/{}", kind, percentEncoded(name)));
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

std::int16_t colorOf(std::string_view category) {
    const auto count = HGColorNameProvider::allColorNames().size();
    return static_cast<std::int16_t>(stableHash(category) % count);
}

/// 0, no indicator, where none has the category's name.
std::int16_t indicatorOf(std::string_view category) {
    const auto& names = HGIndicatorNameProvider::allCategoryIndicatorNames();
    auto found = std::find_if(names.begin() + 1, names.end(),
                              [&](const auto& name) { return equalIgnoringCase(name, category); });
    return found == names.end() ? std::int16_t{0}
                                : static_cast<std::int16_t>(found - names.begin());
}

/// "a" of "a/b"; empty where the project belongs to no portfolio.
std::string_view portfolioNameOf(std::string_view project) {
    auto slash = project.find('/');
    bool divides = slash != project.npos && slash > 0 && slash + 1 < project.size();
    return divides ? project.substr(0, slash) : std::string_view();
}

/// Hands out the URIs of the tasks of one list.
class TaskURIs {
  public:
    URL uriOf(const std::string& line) {
        std::uint64_t hash = 0;
        do {
            hash = stableHash(fmt::format("{}\n{}", line, ordinals_[line]++));
        } while (!used_.insert(hash).second);
        return URL(fmt::format("x-corvane-todo://task/{:016x}", hash));
    }

  private:
    std::unordered_map<std::string, int> ordinals_;
    std::set<std::uint64_t> used_;
};

std::shared_ptr<HGTaskProxy> taskProxyOf(const TodoLine& line, const URL& uri) {
    auto task = std::make_shared<HGTaskProxy>(uri);
    task->setTitle(line.title);
    task->setNotes(line.notes);
    task->setStatus(line.status());
    task->setStarred(line.starred);
    task->setPriority(line.priority);
    task->setDue(line.due);
    task->setProjectName(line.project);
    if (line.category) {
        task->setCategoryName(line.category);
        task->setCategoryColor(colorOf(*line.category));
        task->setCategoryIndicator(indicatorOf(*line.category));
    }
    return task;
}

/// Records by URI with the URIs in the order of their making.
template <class T>
struct Ordered {
    HGSharedRepository::ByURI<T> records;
    HGSharedRepository::URIs uris;

    /// The record of this name, and whether it was made only now.
    std::pair<std::shared_ptr<T>, bool> at(std::string_view kind, std::string_view name) {
        const URL uri = uriNamed(kind, name);
        auto& record = records[uri];
        bool isNew = !record;
        if (isNew) {
            record = std::make_shared<T>(uri);
            record->setName(std::string(name));
            uris.push_back(uri);
        }
        return {record, isNew};
    }
};

class RepositoryBuilder {
  public:
    void add(const std::shared_ptr<HGTaskProxy>& task) {
        const URL& uri = *task->uriRepresentation();
        tasks_[uri] = task;
        if (task->categoryName()) addCategory(*task);
        auto project = task->projectName() ? projectNamed(*task->projectName()) : general_;
        tasksOfProject_[project].push_back(uri);
        if (task->categoryName() && project != general_ && !project->categoryName()) {
            project->setCategoryName(task->categoryName());
            project->setCategoryColor(task->categoryColor());
            project->setCategoryIndicator(task->categoryIndicator());
        }
    }

    std::shared_ptr<HGSharedRepository> build() {
        for (auto& [project, uris] : tasksOfProject_)
            project->setTaskProxyURIs(uris);
        for (auto& [portfolio, uris] : projectsOfPortfolio_)
            portfolio->setProjectProxyURIs(uris);
        return std::make_shared<HGSharedRepository>(general_, categories_.records, categories_.uris,
                                                    portfolios_.records, portfolios_.uris,
                                                    projects_.records, topLevelProjects_, tasks_);
    }

  private:
    static std::shared_ptr<HGProjectProxy> generalProject() {
        auto project = std::make_shared<HGProjectProxy>(URL("x-corvane-todo://general-project"));
        project->setName(HGLocalizable::localize(kGeneralProjectNameKey));
        return project;
    }

    void addCategory(const HGTaskProxy& task) {
        auto [category, isNew] = categories_.at("category", *task.categoryName());
        if (!isNew) return;
        category->setColor(task.categoryColor());
        category->setIndicator(task.categoryIndicator());
    }

    std::shared_ptr<HGProjectProxy> projectNamed(std::string_view name) {
        auto [project, isNew] = projects_.at("project", name);
        if (!isNew) return project;
        auto portfolioName = portfolioNameOf(name);
        auto& siblings =
            portfolioName.empty()
                ? topLevelProjects_
                : projectsOfPortfolio_[portfolios_.at("portfolio", portfolioName).first];
        siblings.push_back(*project->uriRepresentation());
        return project;
    }

    std::shared_ptr<HGProjectProxy> general_ = generalProject();
    Ordered<HGCategoryProxy> categories_;
    Ordered<HGPortfolioProxy> portfolios_;
    Ordered<HGProjectProxy> projects_;
    HGSharedRepository::URIs topLevelProjects_;
    HGSharedRepository::ByURI<HGTaskProxy> tasks_;
    std::map<std::shared_ptr<HGProjectProxy>, HGSharedRepository::URIs> tasksOfProject_;
    std::map<std::shared_ptr<HGPortfolioProxy>, HGSharedRepository::URIs> projectsOfPortfolio_;
};

}  // namespace

TaskProxies taskProxiesOf(const TodoFile& file) {
    TaskURIs uris;
    TaskProxies tasks;
    for (const TodoFile::Task& task : file.tasks())
        tasks.push_back(taskProxyOf(task.line, uris.uriOf(task.text)));
    return tasks;
}

std::shared_ptr<HGSharedRepository> repositoryOf(const TaskProxies& tasks) {
    RepositoryBuilder builder;
    for (const auto& task : tasks)
        builder.add(task);
    return builder.build();
}

}  // namespace corvane::cli
