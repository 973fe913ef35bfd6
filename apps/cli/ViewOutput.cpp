#include "apps/cli/ViewOutput.h"

#include "apps/cli/JsonOutput.h"
#include "apps/cli/TextOutput.h"
#include "apps/overviews/ProxyTasksModel.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

/// One view of the manager, as it is shown.
struct Shown {
    const char* name;
    const char* title;
    std::shared_ptr<HGTaskProxyModel> model;
    std::int64_t badge;
    std::optional<std::string> badgeText;
    std::optional<std::int64_t> badgeForTomorrow;
    std::optional<std::string> badgeTextForTomorrow;
    overviews::ProxyTasksModel::View view;
};

Shown shownOf(const HGTaskProxyManager& manager, View view) {
    switch (view) {
        case View::Inbox:
            return {"inbox",
                    "Inbox",
                    manager.inboxModel(),
                    manager.inboxBadgeValue(),
                    manager.inboxBadgeValueString(),
                    {},
                    {},
                    &HGTaskProxyManager::inboxModel};
        case View::Next:
            return {"next",
                    "Next",
                    manager.nextModel(),
                    manager.nextBadgeValue(),
                    manager.nextBadgeValueString(),
                    {},
                    {},
                    &HGTaskProxyManager::nextModel};
        case View::WaitingFor:
            return {"waiting-for",
                    "Waiting For",
                    manager.waitingForModel(),
                    manager.waitingForBadgeValue(),
                    manager.waitingForBadgeValueString(),
                    {},
                    {},
                    &HGTaskProxyManager::waitingForModel};
        case View::Today:
            break;
    }
    return {"today",
            "Today",
            manager.todayModel(),
            manager.todayBadgeValue(),
            manager.todayBadgeValueString(),
            manager.todayBadgeValueForTomorrow(),
            manager.todayBadgeValueStringForTomorrow(),
            &HGTaskProxyManager::todayModel};
}

std::string headingOf(const Shown& shown) {
    std::string heading = shown.title;
    if (shown.badgeText) heading += fmt::format(" [{}]", *shown.badgeText);
    if (shown.badgeTextForTomorrow) {
        heading += fmt::format(", tomorrow [{}]", *shown.badgeTextForTomorrow);
    }
    return heading + "\n";
}

std::string textOf(const HGTaskProxyManager& manager, const Shown& shown) {
    const auto tasks = std::make_shared<overviews::ProxyTasksModel>(manager, shown.view);
    tasks->setTitle(shown.title);
    tasks->reloadData();
    if (tasks->numberOfSections() == 0) return headingOf(shown) + "\n  nothing\n";
    return headingOf(shown) + sectionedTaskLines(*tasks, [&](const platform::IndexPath& path) {
               return tasks->taskProxyAtIndexPath(path);
           });
}

}  // namespace

void printView(const HGTaskProxyManager& manager, View view, Format format) {
    const Shown shown = shownOf(manager, view);
    print(format == Format::JSON
              ? viewJson(shown.name, shown.badge, shown.badgeForTomorrow, *shown.model)
              : textOf(manager, shown));
}

}  // namespace corvane::cli
