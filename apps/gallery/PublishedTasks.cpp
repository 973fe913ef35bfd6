#include "apps/gallery/PublishedTasks.h"

#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/controls/OutputDateFormatter.h"
#include "corvane/platform/Locale.h"

#include "apps/overviews/ProxyTasksModel.h"

namespace corvane::gallery {

namespace {

constexpr std::int64_t kStatusCompleted = 6;
constexpr std::int64_t kIndicators = 45;  // icon numbers are color × 45 + indicator

std::string shortText(EXDateOnly day) {
    const OutputDateFormatter formatter(platform::currentLocale(), platform::DateStyle::Short);
    const auto date = EXDateOnly::dateFromDateOnly(day);
    return date ? formatter.stringFromDate(*date) : day.isoString();
}

std::vector<ExampleSection> sectionsOf(const HGTaskProxyManager& manager,
                                       overviews::ProxyTasksModel::View view) {
    const auto model = std::make_shared<overviews::ProxyTasksModel>(manager, view);
    model->reloadData();
    std::vector<ExampleSection> sections;
    for (std::int64_t section = 0; section < model->numberOfSections(); ++section) {
        ExampleSection shown{model->titleForSection(section).value_or(""), {}};
        for (std::int64_t row = 0; row < model->numberOfObjectsInSection(section); ++row)
            if (const auto task = model->taskProxyAtIndexPath({section, row}))
                shown.tasks.push_back(shownTask(*task));
        sections.push_back(std::move(shown));
    }
    return sections;
}

}  // namespace

ExampleTask shownTask(const HGTaskProxy& task) {
    ExampleTask shown;
    shown.title = task.title().value_or("");
    shown.note = task.projectName().value_or("");
    if (const auto due = task.due()) shown.due = shortText(*due);
    shown.done = task.status() == kStatusCompleted;
    if (const auto icon = task.categoryIconIndex(); icon >= 0) {
        shown.color = icon / kIndicators;
        shown.indicator = icon % kIndicators;
    }
    return shown;
}

std::optional<PublishedTasks> publishedTasks() {
    const auto info = HGSharedInfo::readFromSharedContainer();
    if (!info) return std::nullopt;
    HGTaskProxyManager manager;
    manager.reloadDataFromSharedInfo(*info);
    return PublishedTasks{sectionsOf(manager, &HGTaskProxyManager::todayModel),
                          sectionsOf(manager, &HGTaskProxyManager::nextModel),
                          info->taskProxyModels().value_or(HGTaskProxyModels())};
}

}  // namespace corvane::gallery
