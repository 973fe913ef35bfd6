// A companion's view of the last shared info it loaded: models, widget lists and badges.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Never loads by itself: when the container's timestamp is newer than the last load, call
/// reloadDataFromSharedInfoFile. For the main thread, where the views that read it live.
class HGTaskProxyManager {
  public:
    /// The process's manager, empty at first.
    static HGTaskProxyManager& defaultManager();

    /// Starts with these models and badges; see the reload operations.
    explicit HGTaskProxyManager(const std::optional<HGTaskProxyModels>& taskProxyModels = {},
                                const std::optional<HGBadgeValues>& badgeValues = {});

    HGTaskProxyManager(const HGTaskProxyManager&) = delete;
    HGTaskProxyManager& operator=(const HGTaskProxyManager&) = delete;

    /// Takes the four models from the map; a missing one becomes an empty model. Without a map the
    /// models stay as they were, and only the three lists are cleared: widgets keep their views,
    /// but show no starred or due tasks that may be out of date.
    void reloadTaskProxyModels(const std::optional<HGTaskProxyModels>& taskProxyModels);

    /// Without a map there are no badges.
    void reloadBadgeValues(const std::optional<HGBadgeValues>& badgeValues);

    void reloadDataFromSharedInfo(const HGSharedInfo& info);

    /// A missing or unreadable file changes nothing.
    void reloadDataFromSharedInfoFile(const std::string& path);

    /// Never null.
    const std::shared_ptr<HGTaskProxyModel>& inboxModel() const { return inboxModel_; }
    const std::shared_ptr<HGTaskProxyModel>& todayModel() const { return todayModel_; }
    const std::shared_ptr<HGTaskProxyModel>& nextModel() const { return nextModel_; }
    const std::shared_ptr<HGTaskProxyModel>& waitingForModel() const { return waitingForModel_; }

    /// Sections of the Today and Next models; null when the snapshot does not have them.
    const std::shared_ptr<HGTaskProxyList>& starredList() const { return starredList_; }
    const std::shared_ptr<HGTaskProxyList>& dueTodayList() const { return dueTodayList_; }
    const std::shared_ptr<HGTaskProxyList>& dueTomorrowList() const { return dueTomorrowList_; }

    const HGBadgeValues& badgeValues() const { return badgeValues_; }

    /// 0 where the snapshot has no such badge.
    std::int64_t inboxBadgeValue() const;
    std::int64_t todayBadgeValue() const;
    std::int64_t todayBadgeValueForTomorrow() const;
    std::int64_t nextBadgeValue() const;
    std::int64_t waitingForBadgeValue() const;

    /// The badge as shown; absent below 1, because a badge of 0 shows nothing.
    std::optional<std::string> inboxBadgeValueString() const;
    std::optional<std::string> todayBadgeValueString() const;
    std::optional<std::string> todayBadgeValueStringForTomorrow() const;
    std::optional<std::string> nextBadgeValueString() const;
    std::optional<std::string> waitingForBadgeValueString() const;

  private:
    std::int64_t badgeValueForKey(std::string_view key) const;

    std::shared_ptr<HGTaskProxyModel> inboxModel_;
    std::shared_ptr<HGTaskProxyModel> todayModel_;
    std::shared_ptr<HGTaskProxyModel> nextModel_;
    std::shared_ptr<HGTaskProxyModel> waitingForModel_;
    std::shared_ptr<HGTaskProxyList> starredList_;
    std::shared_ptr<HGTaskProxyList> dueTodayList_;
    std::shared_ptr<HGTaskProxyList> dueTomorrowList_;
    HGBadgeValues badgeValues_;
};

}  // namespace corvane
