#include "corvane/controls/PaneMemory.h"

#include "corvane/platform/UserDefaults.h"
#include "corvane/preferences/HGCorvanePreferencesKeys.h"
#include "corvane/toolkit/EXValue.h"

#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kSizes = "sizes";
constexpr const char* kCollapsed = "collapsed";

std::string keyFor(const std::string& name) {
    return std::string(HGCorvanePreferencesKeyPrefix) + "splitView " + name;
}

const platform::ValueList* listIn(const EXValue& map, const char* key, std::size_t count) {
    const EXValue* value = map.find(key);
    const auto* list = value ? value->list() : nullptr;
    return list && list->items.size() == count ? list : nullptr;
}

}  // namespace

void rememberPanes(const std::string& name, const std::vector<RememberedPane>& panes) {
    platform::ValueList sizes;
    platform::ValueList collapsed;
    for (const RememberedPane& pane : panes) {
        sizes.items.emplace_back(pane.size);
        collapsed.items.emplace_back(pane.collapsed);
    }
    platform::ValueMap map;
    map.items.emplace(kSizes, std::move(sizes));
    map.items.emplace(kCollapsed, std::move(collapsed));
    platform::UserDefaults::standard().setValue(keyFor(name), std::move(map));
}

std::optional<std::vector<RememberedPane>> rememberedPanes(const std::string& name,
                                                           std::size_t count) {
    const EXValue value = platform::UserDefaults::standard().value(keyFor(name));
    const auto* sizes = listIn(value, kSizes, count);
    const auto* collapsed = listIn(value, kCollapsed, count);
    if (!sizes || !collapsed) return std::nullopt;
    std::vector<RememberedPane> panes;
    for (std::size_t i = 0; i < count; ++i) {
        const EXValue& size = sizes->items[i];
        const double points = size.realValue();
        if (!size.isNumber() || !std::isfinite(points) || points < 0) return std::nullopt;
        panes.push_back({points, collapsed->items[i].booleanValue()});
    }
    return panes;
}

}  // namespace corvane
