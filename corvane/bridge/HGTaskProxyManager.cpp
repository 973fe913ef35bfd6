#include "corvane/bridge/HGTaskProxyManager.h"

#include <fmt/format.h>

namespace corvane {

namespace {

std::shared_ptr<HGTaskProxyModel> modelForKey(const HGTaskProxyModels& models,
                                              std::string_view key) {
    auto entry = models.find(key);
    return entry == models.end() ? nullptr : entry->second;
}

// Every publisher writes two sections or more; but the model may come from a file, and a stranger's
// file must not take the companion down.
std::shared_ptr<HGTaskProxyList> listForSection(const std::shared_ptr<HGTaskProxyModel>& model,
                                                std::size_t section) {
    if (!model || section >= model->numberOfSections()) return nullptr;
    return model->taskProxyListForSection(section);
}

std::optional<std::string> badgeString(std::int64_t value) {
    if (value < 1) return std::nullopt;
    return fmt::format("{}", static_cast<std::int32_t>(value));
}

}  // namespace

HGTaskProxyManager& HGTaskProxyManager::defaultManager() {
    static HGTaskProxyManager manager;
    return manager;
}

HGTaskProxyManager::HGTaskProxyManager(const std::optional<HGTaskProxyModels>& taskProxyModels,
                                       const std::optional<HGBadgeValues>& badgeValues) {
    reloadTaskProxyModels(taskProxyModels);
    reloadBadgeValues(badgeValues);
}

void HGTaskProxyManager::reloadTaskProxyModels(
    const std::optional<HGTaskProxyModels>& taskProxyModels) {
    starredList_ = dueTodayList_ = dueTomorrowList_ = nullptr;
    if (taskProxyModels) {
        inboxModel_ = modelForKey(*taskProxyModels, HGSharedInfoTaskProxyModelInboxKey);
        todayModel_ = modelForKey(*taskProxyModels, HGSharedInfoTaskProxyModelTodayKey);
        nextModel_ = modelForKey(*taskProxyModels, HGSharedInfoTaskProxyModelNextKey);
        waitingForModel_ = modelForKey(*taskProxyModels, HGSharedInfoTaskProxyModelWaitingForKey);
        starredList_ = listForSection(todayModel_, HGTaskProxyModelSectionStarred);
        dueTodayList_ = listForSection(todayModel_, HGTaskProxyModelSectionDueToday);
        dueTomorrowList_ = listForSection(nextModel_, HGTaskProxyModelSectionDueTomorrow);
    }
    for (auto* model : {&inboxModel_, &todayModel_, &nextModel_, &waitingForModel_})
        if (!*model) *model = std::make_shared<HGTaskProxyModel>();
}

void HGTaskProxyManager::reloadBadgeValues(const std::optional<HGBadgeValues>& badgeValues) {
    badgeValues_ = badgeValues.value_or(HGBadgeValues());
}

void HGTaskProxyManager::reloadDataFromSharedInfo(const HGSharedInfo& info) {
    reloadTaskProxyModels(info.taskProxyModels());
    reloadBadgeValues(info.badgeValues());
}

void HGTaskProxyManager::reloadDataFromSharedInfoFile(const std::string& path) {
    if (auto info = HGSharedInfo::readFromFile(path)) reloadDataFromSharedInfo(*info);
}

std::int64_t HGTaskProxyManager::badgeValueForKey(std::string_view key) const {
    auto entry = badgeValues_.find(key);
    return entry == badgeValues_.end() ? 0 : entry->second;
}

std::int64_t HGTaskProxyManager::inboxBadgeValue() const {
    return badgeValueForKey(HGSharedInfoBadgeValueInboxKey);
}

std::int64_t HGTaskProxyManager::todayBadgeValue() const {
    return badgeValueForKey(HGSharedInfoBadgeValueTodayKey);
}

std::int64_t HGTaskProxyManager::todayBadgeValueForTomorrow() const {
    return badgeValueForKey(HGSharedInfoBadgeValueTodayForTomorrowKey);
}

std::int64_t HGTaskProxyManager::nextBadgeValue() const {
    return badgeValueForKey(HGSharedInfoBadgeValueNextKey);
}

std::int64_t HGTaskProxyManager::waitingForBadgeValue() const {
    return badgeValueForKey(HGSharedInfoBadgeValueWaitingForKey);
}

std::optional<std::string> HGTaskProxyManager::inboxBadgeValueString() const {
    return badgeString(inboxBadgeValue());
}

std::optional<std::string> HGTaskProxyManager::todayBadgeValueString() const {
    return badgeString(todayBadgeValue());
}

std::optional<std::string> HGTaskProxyManager::todayBadgeValueStringForTomorrow() const {
    return badgeString(todayBadgeValueForTomorrow());
}

std::optional<std::string> HGTaskProxyManager::nextBadgeValueString() const {
    return badgeString(nextBadgeValue());
}

std::optional<std::string> HGTaskProxyManager::waitingForBadgeValueString() const {
    return badgeString(waitingForBadgeValue());
}

}  // namespace corvane
