// The directory that the main application and its companions share, and the files in it.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/URL.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// Every program that uses the container must name the same group.
inline constexpr std::string_view HGSharedContainerGroupIdentifier = "group.corvane.shared";

// Names of the entries, all directly in the container. Other programs know them: they must not
// change.
inline constexpr std::string_view HGSharedContainerSharedInfoFileName = "shared-info.archive";
inline constexpr std::string_view HGSharedContainerSharedRepositoryFileName =
    "shared-repository.archive";
inline constexpr std::string_view HGSharedContainerUpdatedFileName = "updated.timestamp";
inline constexpr std::string_view HGSharedContainerInsertQueueDirectoryName = "insert-queue";
inline constexpr std::string_view HGSharedContainerImportedBackupFileName = "imported-backup.cvbx";

/// Has no state: where the container lies is asked for anew on every call, so each of its
/// operations may be called from any thread. Without a container, everything is absent or false.
class HGSharedContainer {
  public:
    static const HGSharedContainer& defaultContainer();

    /// Absent when the system gives the group no directory; otherwise it need not exist.
    std::optional<platform::URL> rootURL() const;

    /// Paths of files.
    std::optional<std::string> sharedInfoFilePath() const;
    std::optional<std::string> sharedRepositoryFilePath() const;
    std::optional<std::string> updatedFilePath() const;

    /// URLs, unlike the three above.
    std::optional<platform::URL> insertQueueDirectoryURL() const;
    std::optional<platform::URL> importedBackupFileURL() const;

    /// The shared info file as it is, to be sent elsewhere undecoded; absent when unreadable.
    std::optional<platform::Bytes> readSharedInfoAsData() const;

    /// Replaces the shared info file whole with bytes that came from elsewhere.
    bool writeSharedInfoData(std::span<const std::byte> data) const;

    /// The moment of the last change of the shared data, to the microsecond; absent when the file
    /// is missing or unreadable.
    std::optional<platform::Instant> readUpdatedTimestamp() const;

    /// Records this moment as that of the last change.
    bool touchUpdatedTimestamp() const;

    HGSharedContainer(const HGSharedContainer&) = delete;
    HGSharedContainer& operator=(const HGSharedContainer&) = delete;

  private:
    HGSharedContainer() = default;
    std::optional<platform::URL> entryURL(std::string_view name) const;
    std::optional<std::string> entryPath(std::string_view name) const;
};

}  // namespace corvane
