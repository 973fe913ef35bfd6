#include "apps/overviews/ProxyTasksModel.h"

#include <utility>
#include <vector>

namespace corvane::overviews {

using platform::IndexPath;

std::shared_ptr<HGTaskProxy> ProxyTasksModel::taskProxyAtIndexPath(const IndexPath& path) const {
    return objectAtIndexPath(path).as<HGTaskProxy>();
}

std::optional<platform::URL> ProxyTasksModel::uriRepresentationForObjectAtIndexPath(
    const IndexPath& path) const {
    return taskProxyAtIndexPath(path)->uriRepresentation();
}

std::optional<std::string> ProxyTasksModel::titleForObjectAtIndexPath(const IndexPath& path) const {
    const auto task = taskProxyAtIndexPath(path);
    return task->title() ? std::optional<std::string>(*task->title()) : std::nullopt;
}

bool ProxyTasksModel::loadData(std::optional<platform::Error>&) {
    listTasks(*(manager_.*view_)());
    return true;
}

void ProxyTasksModel::handlePreloadedData(const EXObject& data) {
    if (auto lists = data.as<HGTaskProxyModel>()) listTasks(*lists);
}

void ProxyTasksModel::listTasks(const HGTaskProxyModel& lists) {
    std::vector<Section> sections;
    for (std::size_t i = 0; i < lists.numberOfSections(); ++i) {
        const HGTaskProxyList& list = *lists.taskProxyListForSection(i);
        Section& section = sections.emplace_back();
        if (const auto title = list.title()) section.title = std::string(*title);
        if (const auto& tasks = list.taskProxies())
            section.objects.assign(tasks->begin(), tasks->end());
    }
    setSections(std::move(sections));
}

}  // namespace corvane::overviews
