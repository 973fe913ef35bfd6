#include "corvane/vocabulary/EXStyleCollection.h"

#include <utility>

namespace corvane {

namespace {

std::shared_ptr<EXStyleCollection>& sharedCollection() {
    static std::shared_ptr<EXStyleCollection> collection;
    return collection;
}

template <class Map>
typename Map::mapped_type found(const Map& map, std::string_view name) {
    auto entry = map.find(name);
    return entry == map.end() ? nullptr : entry->second;
}

}  // namespace

std::shared_ptr<EXStyle> EXStyle::styleNamed(std::string_view name) {
    auto collection = EXStyleCollection::defaultCollection();
    return collection ? collection->styleWithName(name) : nullptr;
}

std::shared_ptr<EXStyleCollection> EXStyleCollection::defaultCollection() {
    return sharedCollection();
}

void EXStyleCollection::setDefaultCollection(std::shared_ptr<EXStyleCollection> collection) {
    sharedCollection() = std::move(collection);
}

void EXStyleCollection::addStyle(std::shared_ptr<EXStyle> style) {
    if (!style || !style->name) return;
    auto name = *style->name;
    styles_.insert_or_assign(std::move(name), std::move(style));
}

void EXStyleCollection::addImageMap(std::shared_ptr<EXImageMap> map) {
    if (!map || !map->name()) return;
    auto name = *map->name();
    imageMaps_.insert_or_assign(std::move(name), std::move(map));
}

std::shared_ptr<EXStyle> EXStyleCollection::styleWithName(std::string_view name) const {
    return found(styles_, name);
}

std::shared_ptr<EXImageMap> EXStyleCollection::imageMapWithName(std::string_view name) const {
    return found(imageMaps_, name);
}

}  // namespace corvane
