#include "corvane/vocabulary/CVImageManager.h"

#include <utility>

namespace corvane {

namespace {

std::shared_ptr<CVImageManager>& sharedManager() {
    static std::shared_ptr<CVImageManager> manager;
    return manager;
}

}  // namespace

std::shared_ptr<CVImageManager> CVImageManager::instance() {
    return sharedManager();
}

void CVImageManager::setInstance(std::shared_ptr<CVImageManager> manager) {
    sharedManager() = std::move(manager);
}

platform::ImagePtr CVImageManager::imageWithIdentifier(std::string_view identifier) const {
    auto entry = images_.find(identifier);
    return entry == images_.end() ? nullptr : entry->second;
}

void CVImageManager::loadImageWithName(std::string_view, std::string_view) {}

void CVImageManager::storeImage(platform::ImagePtr image, std::string_view identifier) {
    if (image) images_.insert_or_assign(std::string(identifier), std::move(image));
}

}  // namespace corvane
