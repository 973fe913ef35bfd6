#include "apps/cli/SharedInfoBuilder.h"

#include "corvane/dates/EXCalendar.h"

#include "apps/cli/TaskCodes.h"

#include <algorithm>
#include <set>
#include <string>

namespace corvane::cli {

namespace {

/// Whether the task may stand in a view: it is neither over nor put off.
bool isOpen(const HGTaskProxy& task) {
    switch (task.status()) {
        case kSomedayStatus:
        case kScratchpadStatus:
        case kCompletedStatus:
        case kCanceledStatus:
        case kTrashStatus:
            return false;
        default:
            return true;
    }
}

bool isDueBy(const HGTaskProxy& task, EXDateOnly day) {
    return task.due() && *task.due() <= day;
}

/// The open tasks that fulfil the condition, in their order.
TaskProxies openTasks(const TaskProxies& tasks, const auto& condition) {
    TaskProxies found;
    for (const auto& task : tasks)
        if (isOpen(*task) && condition(*task)) found.push_back(task);
    return found;
}

/// What to do next in each project: its first open task that waits for nobody.
TaskProxies nextTasks(const TaskProxies& tasks) {
    std::set<std::string_view> projects;
    return openTasks(tasks, [&](const HGTaskProxy& task) {
        return task.status() != kOnHoldStatus && task.projectName() &&
               projects.insert(*task.projectName()).second;
    });
}

std::shared_ptr<HGTaskProxyList> listOf(TaskProxies tasks, const char* identifier,
                                        const char* title) {
    return std::make_shared<HGTaskProxyList>(std::move(tasks), identifier, title);
}

std::shared_ptr<HGTaskProxyModel> modelOf(HGTaskProxyModel::TaskProxyLists lists) {
    return std::make_shared<HGTaskProxyModel>(std::move(lists));
}

std::int64_t badgeOf(const HGTaskProxyModel& model) {
    std::set<std::shared_ptr<HGTaskProxy>> distinct;
    for (const auto& list : *model.taskProxyLists())
        distinct.insert(list->taskProxies()->begin(), list->taskProxies()->end());
    return static_cast<std::int64_t>(distinct.size());
}

std::shared_ptr<HGTaskProxyModel> inboxModel(const TaskProxies& tasks) {
    auto inbox = [](const HGTaskProxy& task) { return task.status() == kInboxStatus; };
    return modelOf({listOf(openTasks(tasks, inbox), kInboxListIdentifier, "Inbox")});
}

std::shared_ptr<HGTaskProxyModel> todayModel(const TaskProxies& tasks, EXDateOnly day) {
    auto starred = [](const HGTaskProxy& task) { return task.starred(); };
    auto due = [&](const HGTaskProxy& task) { return !task.starred() && isDueBy(task, day); };
    return modelOf({listOf(openTasks(tasks, starred), kStarredListIdentifier, "Starred"),
                    listOf(openTasks(tasks, due), kDueTodayListIdentifier, "Due Today")});
}

std::shared_ptr<HGTaskProxyModel> nextModel(const TaskProxies& tasks, EXDateOnly tomorrow) {
    auto due = [&](const HGTaskProxy& task) { return task.due() == tomorrow; };
    return modelOf({listOf(nextTasks(tasks), kNextListIdentifier, "Next in Each Project"),
                    listOf(openTasks(tasks, due), kDueTomorrowListIdentifier, "Due Tomorrow")});
}

std::shared_ptr<HGTaskProxyModel> waitingForModel(const TaskProxies& tasks) {
    auto onHold = [](const HGTaskProxy& task) { return task.status() == kOnHoldStatus; };
    return modelOf({listOf(openTasks(tasks, onHold), kWaitingForListIdentifier, "Waiting For")});
}

}  // namespace

HGSharedInfo sharedInfoOf(const TaskProxies& tasks, EXDateOnly today) {
    const EXDateOnly tomorrow = dayAfter(today);
    auto inbox = inboxModel(tasks);
    auto todays = todayModel(tasks, today);
    auto next = nextModel(tasks, tomorrow);
    auto waitingFor = waitingForModel(tasks);
    HGTaskProxyModels models{
        {std::string(HGSharedInfoTaskProxyModelInboxKey), inbox},
        {std::string(HGSharedInfoTaskProxyModelTodayKey), todays},
        {std::string(HGSharedInfoTaskProxyModelNextKey), next},
        {std::string(HGSharedInfoTaskProxyModelWaitingForKey), waitingFor},
    };
    HGBadgeValues badges{
        {std::string(HGSharedInfoBadgeValueInboxKey), badgeOf(*inbox)},
        {std::string(HGSharedInfoBadgeValueTodayKey), badgeOf(*todays)},
        {std::string(HGSharedInfoBadgeValueTodayForTomorrowKey),
         badgeOf(*todayModel(tasks, tomorrow))},
        {std::string(HGSharedInfoBadgeValueNextKey), badgeOf(*next)},
        {std::string(HGSharedInfoBadgeValueWaitingForKey), badgeOf(*waitingFor)},
    };
    return {models, badges};
}

EXDateOnly today() {
    return EXCalendar::currentCalendar().dateOnlyForToday();
}

EXDateOnly dayAfter(EXDateOnly day) {
    return *EXCalendar::currentCalendar().dateOnlyByAddingDays(1, day);
}

}  // namespace corvane::cli
