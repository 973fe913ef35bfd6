// One of the views that a companion shows, as the proxy manager has loaded it.
#pragma once

#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/models/SectionedOverviewModel.h"

#include <memory>
#include <optional>
#include <string>

namespace corvane::overviews {

/// Lists the manager's tasks as they are at each load. The manager must outlive it; what makes the
/// manager load again has the model reload, too. Can be preloaded with an HGTaskProxyModel.
///
///     auto today = std::make_shared<ProxyTasksModel>(manager, &HGTaskProxyManager::todayModel);
///     today->reloadData();
///     today->taskProxyAtIndexPath({0, 0})->title()
class ProxyTasksModel : public SectionedOverviewModel {
  public:
    using View = const std::shared_ptr<HGTaskProxyModel>& (HGTaskProxyManager::*)() const;

    ProxyTasksModel(const HGTaskProxyManager& manager, View view)
        : manager_(manager), view_(view) {}

    std::shared_ptr<HGTaskProxy> taskProxyAtIndexPath(const IndexPath& path) const;
    std::optional<platform::URL> uriRepresentationForObjectAtIndexPath(
        const IndexPath& path) const override;
    std::optional<std::string> titleForObjectAtIndexPath(const IndexPath& path) const override;

    bool loadData(std::optional<platform::Error>& error) override;
    void handlePreloadedData(const EXObject& data) override;

  private:
    void listTasks(const HGTaskProxyModel& lists);

    const HGTaskProxyManager& manager_;
    View view_;
};

}  // namespace corvane::overviews
