#include "apps/cli/ViewOutput.h"

#include "apps/cli/JsonOutput.h"
#include "apps/cli/TextOutput.h"

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
                    {}};
        case View::Next:
            return {"next",
                    "Next",
                    manager.nextModel(),
                    manager.nextBadgeValue(),
                    manager.nextBadgeValueString(),
                    {},
                    {}};
        case View::WaitingFor:
            return {"waiting-for",
                    "Waiting For",
                    manager.waitingForModel(),
                    manager.waitingForBadgeValue(),
                    manager.waitingForBadgeValueString(),
                    {},
                    {}};
        case View::Today:
            break;
    }
    return {"today",
            "Today",
            manager.todayModel(),
            manager.todayBadgeValue(),
            manager.todayBadgeValueString(),
            manager.todayBadgeValueForTomorrow(),
            manager.todayBadgeValueStringForTomorrow()};
}

std::string headingOf(const Shown& shown) {
    std::string heading = shown.title;
    if (shown.badgeText) heading += fmt::format(" [{}]", *shown.badgeText);
    if (shown.badgeTextForTomorrow) {
        heading += fmt::format(", tomorrow [{}]", *shown.badgeTextForTomorrow);
    }
    return heading + "\n";
}

std::vector<std::string> sectionTexts(const HGTaskProxyModel& model) {
    std::vector<std::span<const std::shared_ptr<HGTaskProxy>>> lists;
    for (std::size_t i = 0; i < model.numberOfSections(); ++i) {
        const auto& tasks = model.taskProxyListForSection(i)->taskProxies();
        if (tasks)
            lists.emplace_back(*tasks);
        else
            lists.emplace_back();
    }
    return alignedTaskLines(lists);
}

std::string textOf(const Shown& shown) {
    std::string text = headingOf(shown);
    const auto sections = sectionTexts(*shown.model);
    if (sections.empty()) text += "\n  nothing\n";
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const auto title = shown.model->taskProxyListForSection(i)->title();
        text += "\n";
        // A single section that is called like its view needs no title of its own.
        if (title && *title != shown.title) text += onOneLine(*title) + "\n";
        text += sections[i].empty() ? "  nothing\n" : sections[i];
    }
    return text;
}

}  // namespace

void printView(const HGTaskProxyManager& manager, View view, Format format) {
    const Shown shown = shownOf(manager, view);
    print(format == Format::JSON
              ? viewJson(shown.name, shown.badge, shown.badgeForTomorrow, *shown.model)
              : textOf(shown));
}

}  // namespace corvane::cli
