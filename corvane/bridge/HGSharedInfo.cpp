#include "corvane/bridge/HGSharedInfo.h"

#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

namespace corvane {

namespace {

template <class Map>
EXValue valueMap(const Map& map) {
    platform::ValueMap result;
    for (const auto& [key, value] : map)
        result.items.emplace(key, value);
    return result;
}

// The snapshot's own map can grow, so that is how archives declare it, whatever it was made from.
EXValue growableMap(const EXValue& value) {
    if (!value.map()) return {};
    if (value.map()->growable) return value;
    return platform::ValueMap{value.map()->items, true};
}

std::optional<HGSharedInfo> infoWithRoot(const EXValue& root) {
    if (root.isNull()) return std::nullopt;
    return HGSharedInfo::withDictionary(root);
}

}  // namespace

HGSharedInfo::HGSharedInfo(const std::optional<HGTaskProxyModels>& taskProxyModels,
                           const std::optional<HGBadgeValues>& badgeValues) {
    platform::ValueMap map{{}, true};
    if (taskProxyModels)
        map.items.emplace(HGSharedInfoTaskProxyModelsKey, valueMap(*taskProxyModels));
    if (badgeValues) map.items.emplace(HGSharedInfoBadgeValuesKey, valueMap(*badgeValues));
    dictionary_ = std::move(map);
}

HGSharedInfo HGSharedInfo::withDictionary(EXValue dictionary) {
    return HGSharedInfo(growableMap(dictionary));
}

std::optional<HGTaskProxyModels> HGSharedInfo::taskProxyModels() const {
    const EXValue* models = dictionary_.find(HGSharedInfoTaskProxyModelsKey);
    if (!models || !models->map()) return std::nullopt;
    HGTaskProxyModels result;
    for (const auto& [key, value] : models->map()->items)
        if (auto model = value.objectAs<HGTaskProxyModel>(); model && key.text())
            result.emplace(*key.text(), std::move(model));
    return result;
}

std::optional<HGBadgeValues> HGSharedInfo::badgeValues() const {
    const EXValue* badges = dictionary_.find(HGSharedInfoBadgeValuesKey);
    if (!badges || !badges->map()) return std::nullopt;
    HGBadgeValues result;
    for (const auto& [key, value] : badges->map()->items)
        if (key.text()) result.emplace(*key.text(), value.integerValue());
    return result;
}

std::optional<platform::Bytes> HGSharedInfo::archiveToData() const {
    return platform::KeyedArchiver::archivedData(dictionary_);
}

std::optional<HGSharedInfo> HGSharedInfo::unarchiveFromData(std::span<const std::byte> data) {
    return infoWithRoot(platform::KeyedUnarchiver::unarchiveData(data, sharedArchiveClasses()));
}

bool HGSharedInfo::writeToFile(const std::string& path) const {
    return !platform::KeyedArchiver::archiveToFile(dictionary_, path);
}

std::optional<HGSharedInfo> HGSharedInfo::readFromFile(const std::string& path) {
    return infoWithRoot(platform::KeyedUnarchiver::unarchiveFile(path, sharedArchiveClasses()));
}

bool HGSharedInfo::writeToSharedContainer() const {
    auto path = HGSharedContainer::defaultContainer().sharedInfoFilePath();
    return path && writeToFile(*path);
}

std::optional<HGSharedInfo> HGSharedInfo::readFromSharedContainer() {
    auto path = HGSharedContainer::defaultContainer().sharedInfoFilePath();
    return path ? readFromFile(*path) : std::nullopt;
}

}  // namespace corvane
