#include "corvane/vocabulary/CVColorManager.h"

#include <utility>

namespace corvane {

namespace {

std::shared_ptr<CVColorManager>& sharedManager() {
    static std::shared_ptr<CVColorManager> manager;
    return manager;
}

}  // namespace

std::shared_ptr<CVColorManager> CVColorManager::instance() {
    return sharedManager();
}

void CVColorManager::setInstance(std::shared_ptr<CVColorManager> manager) {
    sharedManager() = manager;
    if (manager) manager->defineGlobalColors();
}

std::optional<platform::Color> CVColorManager::colorWithIdentifier(
    std::string_view identifier) const {
    auto entry = colors_.find(identifier);
    if (entry == colors_.end()) return std::nullopt;
    return entry->second;
}

void CVColorManager::addColorWithIdentifier(std::string_view, double, double, double, double) {}

void CVColorManager::defineGlobalColors() {}

void CVColorManager::storeColor(const platform::Color& color, std::string_view identifier) {
    colors_.insert_or_assign(std::string(identifier), color);
}

}  // namespace corvane
