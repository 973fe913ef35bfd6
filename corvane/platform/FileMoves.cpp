#include "corvane/platform/FileMoves.h"

#include "corvane/platform/FileDescriptor.h"

#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace corvane::platform {

namespace {

bool writeAll(int file, std::span<const std::byte> content) {
    while (!content.empty()) {
        ssize_t count =
            retryOnInterrupt([&] { return ::write(file, content.data(), content.size()); });
        if (count < 0) return false;
        content = content.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace

std::optional<std::string> resolvedPath(const std::string& path, Error* error) {
    std::error_code failure;
    std::filesystem::path resolved = std::filesystem::canonical(systemPath(path), failure);
    if (failure == std::errc::no_such_file_or_directory) {
        std::filesystem::path entry(systemPath(path));
        resolved = std::filesystem::canonical(entry.has_parent_path() ? entry.parent_path() : ".",
                                              failure) /
                   entry.filename();
        if (!failure && !entry.has_filename()) failure = std::make_error_code(std::errc(ENOENT));
    }
    if (!failure) return resolved.native();
    if (error) *error = Error::fromErrno("cannot find '" + path + "'", failure.value());
    return std::nullopt;
}

std::optional<Error> writeFileLike(const std::string& model, const std::string& path,
                                   std::span<const std::byte> content) {
    struct stat status {};
    const bool hasModel = ::stat(systemPath(model), &status) == 0;
    // Closed to others until it has the permissions of the model.
    FileDescriptor file =
        openFile(path, O_CREAT | O_TRUNC | O_WRONLY | O_NOFOLLOW, hasModel ? 0600 : 0666);
    bool written = file && writeAll(file.get(), content) &&
                   (!hasModel || ::fchmod(file.get(), status.st_mode & 0777) == 0) &&
                   retryOnInterrupt([&] { return ::fsync(file.get()); }) == 0;
    if (!written) return Error::fromErrno("cannot write '" + path + "'", errno);
    return syncDirectory(directoryOf(path));
}

std::optional<Error> moveFile(const std::string& from, const std::string& to) {
    if (std::rename(systemPath(from), systemPath(to)) != 0) {
        return Error::fromErrno("cannot move '" + from + "' to '" + to + "'", errno);
    }
    return syncDirectory(directoryOf(to));
}

std::optional<Error> syncDirectory(const std::string& path) {
    FileDescriptor directory = openFile(path, O_RDONLY | O_DIRECTORY);
    if (directory) {
        if (retryOnInterrupt([&] { return ::fsync(directory.get()); }) == 0) return std::nullopt;
        if (errno == EINVAL) return std::nullopt;
    }
    return Error::fromErrno("cannot write the directory '" + path + "' to the disk", errno);
}

}  // namespace corvane::platform
