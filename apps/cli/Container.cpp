#include "apps/cli/Container.h"

#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/MappedFile.h"

#include "apps/cli/Failure.h"

#include <algorithm>
#include <cerrno>

namespace corvane::cli {

namespace {

/// Why a published file gave nothing.
Failure unreadable(const std::string& path) {
    requireMissing(path);
    return Failure("nothing was published in '" + existingContainerPath() + "' yet");
}

}  // namespace

std::string containerPath() {
    auto root = HGSharedContainer::defaultContainer().rootURL();
    auto path = root ? root->path() : std::nullopt;
    if (!path) throw Failure("there is no place for the container: name one with --container");
    return *path;
}

std::string existingContainerPath() {
    std::string path = containerPath();
    if (!platform::isDirectory(path)) throw Failure("there is no container at '" + path + "'");
    return path;
}

HGSharedInfo publishedInfo() {
    existingContainerPath();
    auto info = HGSharedInfo::readFromSharedContainer();
    if (!info || !info->dictionary()) {
        throw unreadable(*HGSharedContainer::defaultContainer().sharedInfoFilePath());
    }
    return *info;
}

std::shared_ptr<HGSharedRepository> publishedRepository() {
    existingContainerPath();
    if (!HGSharedRepository::restoreDefaultRepositoryFromSharedContainer()) {
        throw unreadable(*HGSharedContainer::defaultContainer().sharedRepositoryFilePath());
    }
    return HGSharedRepository::defaultRepository();
}

std::optional<HGBadgeValues> publishedBadges() {
    auto info = HGSharedInfo::readFromSharedContainer();
    return info ? info->badgeValues() : std::nullopt;
}

void requireMissing(const std::string& path) {
    platform::Error error;
    if (platform::MappedFile::open(path, &error)) {
        throw Failure("cannot read '" + path + "': not what `corvane publish` writes");
    }
    if (error.code != ENOENT) throw Failure(error);
}

void prepareQueue() {
    const auto url = HGSharedContainer::defaultContainer().insertQueueDirectoryURL();
    const std::string path = url ? url->path().value_or("") : "";
    failOn(platform::createDirectory(path));
    failOn(platform::checkDirectoryAccess(path));
}

std::vector<platform::DirectoryLock> lockDirectories(std::vector<std::string> paths) {
    for (std::string& path : paths) {
        platform::Error error;
        auto resolved = platform::resolvedPath(path, &error);
        if (!resolved) throw Failure(error);
        path = *resolved;
    }
    // Everyone in the same order, and none twice, so that nobody waits for ever.
    std::sort(paths.begin(), paths.end());
    paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
    std::vector<platform::DirectoryLock> locks;
    for (const std::string& path : paths) {
        platform::Error error;
        auto lock = platform::DirectoryLock::acquire(path, &error);
        if (!lock) throw Failure(error);
        locks.push_back(std::move(*lock));
    }
    return locks;
}

std::string directoryOf(const std::string& path) {
    std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace corvane::cli
