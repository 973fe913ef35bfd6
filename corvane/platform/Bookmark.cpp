#include "corvane/platform/Bookmark.h"

#include "corvane/platform/FileIdentity.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/platform/NearbyFile.h"

#include <cerrno>
#include <utility>

namespace corvane::platform {

namespace {

// Stores hold these: they must not change.
constexpr std::int64_t kVersion = 1;
constexpr const char* kVersionKey = "version";
constexpr const char* kURLKey = "url";
constexpr const char* kInodeKey = "inode";
constexpr const char* kIsDirectoryKey = "isDirectory";
constexpr const char* kBirthTimeKey = "birthTime";
constexpr const char* kHandleKey = "handle";

constexpr int kNoBookmark = 1;
constexpr int kNewerVersion = 2;

struct Bookmark {
    URL url;
    std::string path;
    FileIdentity file;
};

std::optional<Bookmark> decoded(std::span<const std::byte> data, Error& error) {
    const Value root = KeyedUnarchiver::unarchiveData(data, ArchiveClasses());
    error = {"bookmark", kNoBookmark, "the data is no bookmark"};
    const Value *version = root.find(kVersionKey), *url = root.find(kURLKey),
                *inode = root.find(kInodeKey), *isDirectory = root.find(kIsDirectoryKey);
    if (!version || !version->isNumber()) return std::nullopt;
    if (version->integerValue() > kVersion) {
        error = {"bookmark", kNewerVersion, "the bookmark was made by a newer version"};
        return std::nullopt;
    }
    if (!url || !url->url() || !inode || !inode->isNumber() || !isDirectory) return std::nullopt;
    const auto path = url->url()->path();
    if (!path || !path->starts_with('/')) return std::nullopt;
    Bookmark bookmark{*url->url(), *path, {}};
    bookmark.file.inode = static_cast<std::uint64_t>(inode->integerValue());
    bookmark.file.isDirectory = isDirectory->booleanValue();
    const Value* birthTime = root.find(kBirthTimeKey);
    if (birthTime && birthTime->isNumber()) bookmark.file.birthTime = birthTime->integerValue();
    const Value* handle = root.find(kHandleKey);
    if (handle && handle->data()) bookmark.file.handle = *handle->data();
    return bookmark;
}

std::optional<ResolvedBookmark> resolved(const Bookmark& bookmark, Error& error) {
    const auto present = fileIdentity(bookmark.path, &error);
    if (present && present->isDirectory == bookmark.file.isDirectory)
        return ResolvedBookmark{bookmark.url, !isSameFile(*present, bookmark.file)};
    if (present) error = Error::fromErrno("cannot find '" + bookmark.path + "'", ENOENT);
    if (error.code != ENOENT && error.code != ENOTDIR) return std::nullopt;
    const auto path = findNearby(bookmark.path, bookmark.file);
    if (!path) return std::nullopt;
    return ResolvedBookmark{URL::fileURLWithPath(*path), true};
}

}  // namespace

std::optional<Bytes> bookmarkOfFile(const URL& file, Error* error) {
    const auto path = file.path();
    if (!path || !path->starts_with('/')) {
        if (error) {
            *error = {"bookmark", kNoBookmark,
                      "'" + std::string(file.absoluteString()) + "' is not the URL of a file"};
        }
        return std::nullopt;
    }
    auto identity = fileIdentity(*path, error);
    if (!identity) return std::nullopt;
    ValueMap map;
    map.items[kVersionKey] = kVersion;
    map.items[kURLKey] = file;
    map.items[kInodeKey] = identity->inode;
    map.items[kIsDirectoryKey] = identity->isDirectory;
    if (identity->birthTime) map.items[kBirthTimeKey] = *identity->birthTime;
    if (!identity->handle.empty()) map.items[kHandleKey] = std::move(identity->handle);
    return KeyedArchiver::archivedData(Value(std::move(map)));
}

std::optional<ResolvedBookmark> resolveBookmark(std::span<const std::byte> data, Error* error) {
    Error failure;
    std::optional<ResolvedBookmark> result;
    if (const auto bookmark = decoded(data, failure)) result = resolved(*bookmark, failure);
    if (!result && error) *error = std::move(failure);
    return result;
}

}  // namespace corvane::platform
