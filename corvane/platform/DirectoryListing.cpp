#include "corvane/platform/DirectoryListing.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/StatxTime.h"

#include <sys/stat.h>

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <tuple>

namespace corvane::platform {

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

Directory openDirectory(const std::string& path) {
    FileDescriptor file = openFile(path, O_RDONLY | O_DIRECTORY);
    Directory directory(file ? ::fdopendir(file.get()) : nullptr);
    if (directory) file.release();
    return directory;
}

/// None when the entry is gone. One that cannot be looked at counts as older than all others, so
/// that it stays in the list of a reader who wants to be rid of it.
std::optional<Instant> creationTime(DIR* directory, const char* name) {
    struct statx status {};
    constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    if (::statx(::dirfd(directory), name, kFlags, STATX_BTIME | STATX_MTIME, &status) != 0) {
        return errno == ENOENT ? std::nullopt : std::optional(Instant::min());
    }
    return toInstant(status.stx_mask & STATX_BTIME ? status.stx_btime : status.stx_mtime);
}

}  // namespace

std::optional<std::vector<DirectoryEntry>> listDirectory(const std::string& path, Error* error) {
    auto fail = [&] {
        if (error) *error = Error::fromErrno("cannot list '" + path + "'", errno);
        return std::nullopt;
    };
    Directory directory = openDirectory(path);
    if (!directory) return fail();
    std::vector<DirectoryEntry> entries;
    for (;;) {
        errno = 0;  // readdir tells its failure from the end by this alone
        const dirent* entry = ::readdir(directory.get());
        if (!entry) break;
        std::string name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (auto time = creationTime(directory.get(), entry->d_name)) {
            entries.push_back({std::move(name), *time});
        }
    }
    if (errno != 0) return fail();
    return entries;
}

void sortByCreationTime(std::vector<DirectoryEntry>& entries) {
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return std::tie(a.creationTime, a.name) < std::tie(b.creationTime, b.name);
    });
}

}  // namespace corvane::platform
