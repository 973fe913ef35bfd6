#include "corvane/bridge/HGSharedContainer.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/GroupContainer.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

namespace corvane {

const HGSharedContainer& HGSharedContainer::defaultContainer() {
    static const HGSharedContainer container;
    return container;
}

std::optional<platform::URL> HGSharedContainer::rootURL() const {
    return platform::containerURLForSecurityApplicationGroupIdentifier(
        HGSharedContainerGroupIdentifier);
}

std::optional<platform::URL> HGSharedContainer::entryURL(std::string_view name) const {
    auto root = rootURL();
    return root ? std::optional(root->appendingPathComponent(name)) : std::nullopt;
}

std::optional<std::string> HGSharedContainer::entryPath(std::string_view name) const {
    auto url = entryURL(name);
    return url ? url->path() : std::nullopt;
}

std::optional<std::string> HGSharedContainer::sharedInfoFilePath() const {
    return entryPath(HGSharedContainerSharedInfoFileName);
}

std::optional<std::string> HGSharedContainer::sharedRepositoryFilePath() const {
    return entryPath(HGSharedContainerSharedRepositoryFileName);
}

std::optional<std::string> HGSharedContainer::updatedFilePath() const {
    return entryPath(HGSharedContainerUpdatedFileName);
}

std::optional<platform::URL> HGSharedContainer::insertQueueDirectoryURL() const {
    return entryURL(HGSharedContainerInsertQueueDirectoryName);
}

std::optional<platform::URL> HGSharedContainer::importedBackupFileURL() const {
    return entryURL(HGSharedContainerImportedBackupFileName);
}

std::optional<platform::Bytes> HGSharedContainer::readSharedInfoAsData() const {
    auto path = sharedInfoFilePath();
    return path ? platform::readFile(*path) : std::nullopt;
}

bool HGSharedContainer::writeSharedInfoData(std::span<const std::byte> data) const {
    auto path = sharedInfoFilePath();
    return path && !platform::replaceFile(*path, data, platform::Durability::Rename);
}

std::optional<platform::Instant> HGSharedContainer::readUpdatedTimestamp() const {
    auto path = updatedFilePath();
    if (!path) return std::nullopt;
    const auto root = platform::KeyedUnarchiver::unarchiveFile(*path, platform::ArchiveClasses());
    return root.instant() ? std::optional(*root.instant()) : std::nullopt;
}

bool HGSharedContainer::touchUpdatedTimestamp() const {
    auto path = updatedFilePath();
    return path && !platform::KeyedArchiver::archiveToFile(platform::currentClock().now(), *path);
}

}  // namespace corvane
