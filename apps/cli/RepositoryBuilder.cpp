#include "apps/cli/RepositoryBuilder.h"

#include "corvane/formats/HGEntityNames.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include "apps/cli/DocumentIndex.h"
#include "apps/cli/RecordsByName.h"

#include <unordered_map>

namespace corvane::cli {

namespace {

using backup::URL;
using URIs = HGSharedRepository::URIs;

void setCategory(auto& proxy, const backup::Category* category) {
    if (!category) return;
    proxy.setCategoryName(category->nameRaw);
    proxy.setCategoryColor(category->colorRaw.value_or(0));
    proxy.setCategoryIndicator(category->indicatorRaw.value_or(0));
}

HGTaskProxy::AttachmentProxies attachmentsOf(const backup::Task& task) {
    HGTaskProxy::AttachmentProxies proxies;
    for (const backup::Attachment& attachment : task.attachments) {
        auto uri = attachment.uri == URL() ? std::nullopt : std::optional(attachment.uri);
        auto proxy = std::make_shared<HGAttachmentProxy>(std::move(uri));
        proxy->setType(attachment.typeRaw.value_or(0));
        proxy->setUrl(attachment.url);
        proxies.push_back(std::move(proxy));
    }
    return proxies;
}

/// Where the document says nothing of a status or priority, the proxy has what new ones have.
std::shared_ptr<HGTaskProxy> taskProxyOf(const backup::Task& task, const DocumentIndex& index) {
    auto proxy = std::make_shared<HGTaskProxy>(task.uri);
    proxy->setTitle(task.titleRaw);
    proxy->setNotes(task.notes);
    proxy->setStatus(task.statusRaw.value_or(proxy->status()));
    proxy->setStarred(task.starredRaw.value_or(false));
    proxy->setPriority(task.priorityRaw.value_or(proxy->priority()));
    proxy->setDue(task.dueRaw);
    proxy->setRepeat(task.repeatRaw.value_or(0));
    if (const auto* project = index.project(task.projectRaw)) {
        proxy->setProjectName(project->nameRaw);
    }
    setCategory(*proxy, index.category(task.contexts));
    if (const auto* contributor = index.contributor(task.contributor)) {
        proxy->setContributorName(nameOf(*contributor));
    }
    if (!task.attachments.empty()) proxy->setAttachmentProxies(attachmentsOf(task));
    return proxy;
}

class RepositoryBuilder {
  public:
    explicit RepositoryBuilder(const BackupDocument& document)
        : document_(document), index_(document) {
        for (const backup::Category& category : document.categories)
            add(category);
        for (const backup::Portfolio& portfolio : document.portfolios)
            add(portfolio);
        const backup::Project* general = generalProject(document);
        general_ = projectProxyOf(general ? *general : newGeneralProject());
        general_->setName(HGLocalizable::localizeName(
            general && general->nameRaw ? *general->nameRaw : std::string(HGProjectNameGeneral)));
        for (const backup::Project& project : document.projects)
            if (&project != general) add(project);
    }

    std::shared_ptr<HGSharedRepository> build(const TaskProxies& tasks) {
        for (std::size_t i = 0; i < tasks.size(); ++i)
            add(tasks[i], document_.tasks[i]);
        for (auto& [project, uris] : tasksOfProject_)
            project->setTaskProxyURIs(std::move(uris));
        for (auto& [portfolio, uris] : projectsOfPortfolio_)
            portfolio->setProjectProxyURIs(std::move(uris));
        return std::make_shared<HGSharedRepository>(
            general_, std::move(categories_), std::move(categoryURIs_), std::move(portfolios_),
            std::move(portfolioURIs_), std::move(projects_), std::move(topLevelProjects_),
            std::move(tasks_));
    }

  private:
    void add(const backup::Category& category) {
        auto proxy = std::make_shared<HGCategoryProxy>(category.uri);
        proxy->setName(category.nameRaw);
        proxy->setColor(category.colorRaw.value_or(0));
        proxy->setIndicator(category.indicatorRaw.value_or(0));
        categories_[category.uri] = std::move(proxy);
        categoryURIs_.push_back(category.uri);
    }

    void add(const backup::Portfolio& portfolio) {
        auto proxy = std::make_shared<HGPortfolioProxy>(portfolio.uri);
        proxy->setName(portfolio.nameRaw);
        portfolios_[portfolio.uri] = std::move(proxy);
        portfolioURIs_.push_back(portfolio.uri);
    }

    std::shared_ptr<HGProjectProxy> projectProxyOf(const backup::Project& project) const {
        auto proxy = std::make_shared<HGProjectProxy>(project.uri);
        proxy->setName(project.nameRaw);
        setCategory(*proxy, index_.category(project.contexts));
        return proxy;
    }

    void add(const backup::Project& project) {
        auto proxy = projectProxyOf(project);
        auto portfolio = portfolios_.find(project.portfolio);
        auto& siblings = portfolio == portfolios_.end() ? topLevelProjects_
                                                        : projectsOfPortfolio_[portfolio->second];
        siblings.push_back(project.uri);
        projects_[project.uri] = std::move(proxy);
    }

    void add(const std::shared_ptr<HGTaskProxy>& proxy, const backup::Task& task) {
        tasks_[task.uri] = proxy;
        auto project = projects_.find(task.projectRaw);
        auto& uris = tasksOfProject_[project == projects_.end() ? general_ : project->second];
        uris.push_back(task.uri);
    }

    const BackupDocument& document_;
    const DocumentIndex index_;
    std::shared_ptr<HGProjectProxy> general_;
    HGSharedRepository::ByURI<HGCategoryProxy> categories_;
    HGSharedRepository::ByURI<HGPortfolioProxy> portfolios_;
    HGSharedRepository::ByURI<HGProjectProxy> projects_;
    HGSharedRepository::ByURI<HGTaskProxy> tasks_;
    URIs categoryURIs_;
    URIs portfolioURIs_;
    URIs topLevelProjects_;
    std::unordered_map<std::shared_ptr<HGProjectProxy>, URIs> tasksOfProject_;
    std::unordered_map<std::shared_ptr<HGPortfolioProxy>, URIs> projectsOfPortfolio_;
};

}  // namespace

TaskProxies taskProxiesOf(const BackupDocument& document) {
    const DocumentIndex index(document);
    TaskProxies proxies;
    proxies.reserve(document.tasks.size());
    for (const backup::Task& task : document.tasks)
        proxies.push_back(taskProxyOf(task, index));
    return proxies;
}

std::shared_ptr<HGSharedRepository> repositoryOf(const BackupDocument& document,
                                                 const TaskProxies& tasks) {
    return RepositoryBuilder(document).build(tasks);
}

}  // namespace corvane::cli
