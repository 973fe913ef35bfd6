#include "corvane/formats/EXFileItemsOverviewModel.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/Files.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace corvane {

using platform::Error;
using platform::IndexPath;
using platform::URL;

namespace {

/// What a URL that leads nowhere in the file system has in place of a path.
constexpr const char* kNoPath = "";

std::string pathOf(const std::optional<URL>& url) {
    return url ? url->path().value_or(kNoPath) : kNoPath;
}

}  // namespace

bool EXFileItemsOverviewModel::loadData(std::optional<Error>& error) {
    if (!directoryUrl_) return false;
    const std::string path = pathOf(directoryUrl_);
    if (!platform::isDirectory(path)) {
        if (auto failure = platform::createDirectory(path)) {
            // People know this list as that of their backups, wherever these are kept.
            platform::currentConsole().writeLine(
                "ERROR: Could not auto-create 'Backups' directory");
            error = std::move(failure);
            return false;
        }
    }
    Error failure;
    const auto entries = platform::listDirectory(path, &failure);
    if (!entries) {
        error = std::move(failure);
        return false;
    }
    FileItems items;
    items.reserve(entries->size());
    for (const auto& entry : *entries)
        items.push_back(
            std::make_shared<EXFileItem>(directoryUrl_->appendingPathComponent(entry.name)));
    if (sortDescriptors_) sortByDescriptors(items, *sortDescriptors_);
    fileItems_ = std::move(items);
    return true;
}

std::int64_t EXFileItemsOverviewModel::numberOfObjectsInSection(std::int64_t) const {
    return std::ssize(fileItems_);
}

const std::shared_ptr<EXFileItem>& EXFileItemsOverviewModel::fileItemAtIndexPath(
    const IndexPath& path) const {
    return fileItems_.at(static_cast<std::size_t>(path.item));
}

EXObject EXFileItemsOverviewModel::objectAtIndexPath(const IndexPath& path) const {
    return fileItemAtIndexPath(path);
}

std::optional<IndexPath> EXFileItemsOverviewModel::indexPathOfObjectInSection(
    const EXObject& object, std::int64_t section) const {
    const auto found = std::find(fileItems_.begin(), fileItems_.end(), object.as<EXFileItem>());
    if (!object || found == fileItems_.end()) return std::nullopt;
    return IndexPath::indexPathForItem(found - fileItems_.begin(), section);
}

std::optional<URL> EXFileItemsOverviewModel::uriRepresentationForObjectAtIndexPath(
    const IndexPath& path) const {
    return fileItemAtIndexPath(path)->url();
}

std::optional<std::string> EXFileItemsOverviewModel::titleForObjectAtIndexPath(
    const IndexPath& path) const {
    return fileItemAtIndexPath(path)->fileName();
}

void EXFileItemsOverviewModel::insertFileItem(std::shared_ptr<EXFileItem> item,
                                              const IndexPath& path) {
    if (!item) throw std::invalid_argument("no file to insert");
    if (path.item < 0 || path.item > std::ssize(fileItems_))
        throw std::out_of_range("no place for a file there");
    fileItems_.insert(fileItems_.begin() + path.item, std::move(item));
    didInsertObjectsAtIndexPaths({path}, false);
}

void EXFileItemsOverviewModel::deleteObjectAtIndexPath(const IndexPath& path) {
    const std::shared_ptr<EXFileItem> item = fileItemAtIndexPath(path);
    if (auto failure = platform::removeFile(pathOf(item->url()))) {
        platform::currentConsole().writeLine(
            fmt::format("ERROR: Could not delete backup file: {}", failure->message));
        return;
    }
    fileItems_.erase(fileItems_.begin() + path.item);
    didRemoveObjectsAtIndexPaths({path}, false);
}

}  // namespace corvane
