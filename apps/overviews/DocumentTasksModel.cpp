#include "apps/overviews/DocumentTasksModel.h"

#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/formats/HGEntityNames.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include "apps/document/BackupFile.h"

#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace corvane::overviews {

using platform::IndexPath;
using platform::URL;
using Tasks = std::vector<const backup::Task*>;

std::shared_ptr<const backup::Task> DocumentTasksModel::taskAtIndexPath(
    const IndexPath& path) const {
    return objectAtIndexPath(path).as<const backup::Task>();
}

std::optional<URL> DocumentTasksModel::uriRepresentationForObjectAtIndexPath(
    const IndexPath& path) const {
    const URL& uri = taskAtIndexPath(path)->uri;
    return uri == URL() ? std::nullopt : std::optional(uri);
}

std::optional<std::string> DocumentTasksModel::titleForObjectAtIndexPath(
    const IndexPath& path) const {
    return taskAtIndexPath(path)->titleRaw;
}

std::optional<DocumentTasksModel::Template> DocumentTasksModel::templateForNewObjectAtIndexPath(
    const IndexPath& path) const {
    return newTasks_.at(static_cast<std::size_t>(path.section));
}

bool DocumentTasksModel::loadData(std::optional<platform::Error>& error) {
    platform::Error failure;
    auto document = backup::loadBackupDocument(path_, &failure);
    if (!document) {
        error = std::move(failure);
        return false;
    }
    listTasks(std::make_shared<const backup::BackupDocument>(*std::move(document)));
    return true;
}

void DocumentTasksModel::unloadData() {
    SectionedOverviewModel::unloadData();
    newTasks_.clear();
    document_ = nullptr;
}

void DocumentTasksModel::handlePreloadedData(const EXObject& data) {
    if (auto document = data.as<const backup::BackupDocument>()) listTasks(std::move(document));
}

void DocumentTasksModel::listTasks(std::shared_ptr<const backup::BackupDocument> document) {
    newTasks_.clear();
    document_ = std::move(document);
    setSections(grouping_ == Grouping::Project ? sectionsByProject() : sectionsByStatus());
}

void DocumentTasksModel::addSection(std::vector<Section>& sections,
                                    std::optional<std::string> title, const Tasks& tasks,
                                    Template newTask) {
    if (tasks.empty()) return;
    Section& section = sections.emplace_back();
    section.title = std::move(title);
    section.objects.reserve(tasks.size());
    for (const backup::Task* task : tasks)
        section.objects.emplace_back(std::shared_ptr<const backup::Task>(document_, task));
    newTasks_.push_back(std::move(newTask));
}

std::vector<DocumentTasksModel::Section> DocumentTasksModel::sectionsByProject() {
    std::unordered_map<std::string_view, Tasks> tasksOfProject;
    for (const backup::Project& project : document_->projects)
        if (!project.general.value_or(false)) tasksOfProject[project.uri.absoluteString()];
    Tasks others;
    for (const backup::Task& task : document_->tasks) {
        const auto found = tasksOfProject.find(task.projectRaw.absoluteString());
        (found == tasksOfProject.end() ? others : found->second).push_back(&task);
    }
    std::vector<Section> sections;
    for (const backup::Project& project : document_->projects) {
        // Of two projects with one identity, the first has the tasks.
        const auto tasks = tasksOfProject.extract(project.uri.absoluteString());
        if (tasks.empty()) continue;
        addSection(sections, project.nameRaw, tasks.mapped(),
                   {{std::string(HGTaskProjectURIRepresentationKey), project.uri}});
    }
    addSection(sections, HGLocalizable::localizeName(HGProjectNameGeneral), others, {});
    return sections;
}

std::vector<DocumentTasksModel::Section> DocumentTasksModel::sectionsByStatus() {
    const std::int16_t statusOfNewTask = HGTaskProxy().status();
    std::map<EXValue, Tasks> tasksOfStatus;
    for (const backup::Task& task : document_->tasks)
        tasksOfStatus[task.statusRaw.value_or(statusOfNewTask)].push_back(&task);
    std::vector<Section> sections;
    for (const auto& item : HGChoiceListFactory::taskStatusChoiceList()->firstSection()->items())
        addSection(sections, item->title(), tasksOfStatus[item->value()],
                   {{std::string(HGTaskStatusKey), item->value()}});
    return sections;
}

}  // namespace corvane::overviews
