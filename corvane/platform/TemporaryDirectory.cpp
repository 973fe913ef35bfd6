#include "corvane/platform/TemporaryDirectory.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/UserDirectories.h"

#include <sys/stat.h>

#include <utility>

namespace corvane::platform {

namespace {

const std::string*& directoryInForce() {
    static const std::string* path = nullptr;
    return path;
}

std::string directoryOfAllUsers() {
    if (directoryInForce()) return *directoryInForce();
    auto path = environmentVariable("TMPDIR");
    return path && path->starts_with('/') ? *path : "/tmp";
}

/// Whether nobody else can make entries there. What the superuser owns counts as nobody's.
bool isClosedToOthers(const struct stat& status) {
    const bool isOwned = status.st_uid == ::getuid() || status.st_uid == 0;
    return S_ISDIR(status.st_mode) && isOwned && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

}  // namespace

std::optional<std::string> temporaryDirectory() {
    std::string path = directoryOfAllUsers();
    struct stat status {};
    if (::stat(systemPath(path), &status) != 0) return std::nullopt;
    if (isClosedToOthers(status)) return path;
    path += "/corvane-" + std::to_string(::getuid());
    if (::mkdir(systemPath(path), 0700) != 0 && errno != EEXIST) return std::nullopt;
    // Not through a link: anybody may have made one.
    if (::lstat(systemPath(path), &status) != 0 || !isClosedToOthers(status)) return std::nullopt;
    return path;
}

ScopedTemporaryDirectory::ScopedTemporaryDirectory(std::string path)
    : path_(std::move(path)), previous_(std::exchange(directoryInForce(), &path_)) {}

ScopedTemporaryDirectory::~ScopedTemporaryDirectory() {
    directoryInForce() = previous_;
}

}  // namespace corvane::platform
