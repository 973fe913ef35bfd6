#include "corvane/platform/UserDefaultsFile.h"

#include "corvane/platform/DirectoryLock.h"
#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/PropertyListValue.h"

#include <cerrno>
#include <filesystem>
#include <span>
#include <system_error>

namespace corvane::platform {

namespace {

using Settings = UserDefaultsFile::Settings;

bool exists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

/// None for a damaged file.
std::optional<Settings> settingsIn(std::span<const std::byte> file) {
    const auto root = valueFromPropertyList(file);
    if (!root || !root->map()) return std::nullopt;
    return root->map()->items;
}

/// A lock that the file system does not know keeps nobody from writing.
bool lockIsUnknown(int code) {
    return code == ENOLCK || code == EOPNOTSUPP || code == ENOSYS || code == EINVAL;
}

std::optional<Error> lockDirectory(const std::string& path, std::optional<DirectoryLock>& lock) {
    Error error;
    lock = DirectoryLock::acquire(path, &error);
    return lock || lockIsUnknown(error.code) ? std::nullopt : std::optional(error);
}

}  // namespace

std::optional<Error> UserDefaultsFile::readBytes(Bytes& bytes) const {
    Error error{"posix", ENOENT, "there is no directory for settings"};
    if (path_.empty()) return error;
    auto content = readFile(path_, &error);
    if (!content && error.code != ENOENT) return error;
    // An empty file is none of ours, and as damaged as any other.
    if (content && content->empty()) content->push_back({});
    bytes = content ? std::move(*content) : Bytes();
    return std::nullopt;
}

std::optional<Error> UserDefaultsFile::read(Settings& settings) {
    Content content;
    if (auto failure = readBytes(content.bytes)) return failure;
    auto found = content.bytes.empty() ? Settings() : settingsIn(content.bytes);
    if (!found) {
        // Another process may be putting it aside, and writing a new one, at this moment.
        std::optional<DirectoryLock> lock;
        if (auto failure = lockDirectory(directoryOf(path_), lock)) return failure;
        if (auto failure = readHeld(content)) return failure;
        found = std::move(content.settings);
    }
    settings = std::move(*found);
    return std::nullopt;
}

std::optional<Error> UserDefaultsFile::update(Settings& settings,
                                              const std::function<void(Settings&)>& change) {
    Content content;
    if (path_.empty()) return readBytes(content.bytes);
    if (auto failure = createDirectories(directoryOf(path_), 0700)) return failure;
    std::optional<DirectoryLock> lock;
    if (auto failure = lockDirectory(directoryOf(path_), lock)) return failure;
    removeAbandonedFiles(directoryOf(path_));
    if (auto failure = readHeld(content)) return failure;
    change(content.settings);
    if (auto failure = write(content.settings, content.bytes)) return failure;
    settings = std::move(content.settings);
    return std::nullopt;
}

std::optional<Error> UserDefaultsFile::readHeld(Content& content) {
    if (auto failure = readBytes(content.bytes)) return failure;
    if (content.bytes.empty()) return std::nullopt;
    if (auto settings = settingsIn(content.bytes)) {
        content.settings = std::move(*settings);
        return std::nullopt;
    }
    content.bytes.clear();
    return moveAside();
}

std::optional<Error> UserDefaultsFile::moveAside() {
    std::string aside = path_ + ".damaged";
    for (int number = 2; exists(aside); ++number)
        aside = path_ + ".damaged-" + std::to_string(number);
    if (auto failure = moveFile(path_, aside)) return failure;
    placeOfDamaged_ = aside;
    return std::nullopt;
}

std::optional<Error> UserDefaultsFile::write(const Settings& settings, const Bytes& present) const {
    const auto bytes = propertyListFromValue(ValueMap{settings});
    if (!bytes) return Error{"settings", EFBIG, "cannot write '" + path_ + "': too large"};
    if (*bytes == present) return std::nullopt;
    return replaceFile(path_, *bytes, Durability::Synced);
}

}  // namespace corvane::platform
