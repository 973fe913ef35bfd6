// The snapshot for widgets and the watch: the lists of the four main views and their badges.
#pragma once

#include "corvane/bridge/HGTaskProxyModel.h"
#include "corvane/platform/Bytes.h"
#include "corvane/toolkit/EXValue.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

// Keys of the snapshot. They are a file format and must not change.
inline constexpr std::string_view HGSharedInfoTaskProxyModelsKey = "HGSharedInfoTaskProxyModelsKey";
inline constexpr std::string_view HGSharedInfoBadgeValuesKey = "HGSharedInfoBadgeValuesKey";

inline constexpr std::string_view HGSharedInfoTaskProxyModelInboxKey =
    "HGSharedInfoTaskProxyModelInboxKey";
inline constexpr std::string_view HGSharedInfoTaskProxyModelTodayKey =
    "HGSharedInfoTaskProxyModelTodayKey";
inline constexpr std::string_view HGSharedInfoTaskProxyModelNextKey =
    "HGSharedInfoTaskProxyModelNextKey";
inline constexpr std::string_view HGSharedInfoTaskProxyModelWaitingForKey =
    "HGSharedInfoTaskProxyModelWaitingForKey";

inline constexpr std::string_view HGSharedInfoBadgeValueInboxKey = "HGSharedInfoBadgeValueInboxKey";
inline constexpr std::string_view HGSharedInfoBadgeValueTodayKey = "HGSharedInfoBadgeValueTodayKey";
/// What the Today badge will be tomorrow.
inline constexpr std::string_view HGSharedInfoBadgeValueTodayForTomorrowKey =
    "HGSharedInfoBadgeValueTodayForTomorrowKey";
inline constexpr std::string_view HGSharedInfoBadgeValueNextKey = "HGSharedInfoBadgeValueNextKey";
inline constexpr std::string_view HGSharedInfoBadgeValueWaitingForKey =
    "HGSharedInfoBadgeValueWaitingForKey";

/// Models by model key, and badge numbers by badge key; any key may be missing.
using HGTaskProxyModels = std::map<std::string, std::shared_ptr<HGTaskProxyModel>, std::less<>>;
using HGBadgeValues = std::map<std::string, std::int64_t, std::less<>>;

/// A regular value over the map that is the archive's root. To publish it, fill the two maps and
/// call writeToSharedContainer; to read it, call readFromSharedContainer.
class HGSharedInfo {
  public:
    HGSharedInfo() : HGSharedInfo(std::nullopt, std::nullopt) {}

    /// An absent argument leaves its key out of the snapshot.
    HGSharedInfo(const std::optional<HGTaskProxyModels>& taskProxyModels,
                 const std::optional<HGBadgeValues>& badgeValues);

    /// The snapshot over an archived map. A value that is no map gives one without a dictionary.
    static HGSharedInfo withDictionary(EXValue dictionary);

    /// Absent where the snapshot has no models; entries that are no models are left out.
    std::optional<HGTaskProxyModels> taskProxyModels() const;

    /// Absent where the snapshot has no badges. What is no number reads as 0.
    std::optional<HGBadgeValues> badgeValues() const;

    /// The map as archived; null where the root of the archive was none.
    const platform::ValueMap* dictionary() const { return dictionary_.map(); }

    /// A keyed archive whose root is the plain map, as files and watch messages hold it. None only
    /// for lists beyond what an archive can hold.
    std::optional<platform::Bytes> archiveToData() const;

    /// None when the bytes are no readable archive.
    static std::optional<HGSharedInfo> unarchiveFromData(std::span<const std::byte> data);

    /// Replaces the file whole; false, and the old file left as it was, when it cannot be written.
    bool writeToFile(const std::string& path) const;

    /// None when the file is missing or no readable archive.
    static std::optional<HGSharedInfo> readFromFile(const std::string& path);

    /// The same with the shared info file of the default container.
    bool writeToSharedContainer() const;
    static std::optional<HGSharedInfo> readFromSharedContainer();

  private:
    explicit HGSharedInfo(EXValue dictionary) : dictionary_(std::move(dictionary)) {}

    EXValue dictionary_;
};

}  // namespace corvane
