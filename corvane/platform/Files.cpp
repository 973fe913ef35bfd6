#include "corvane/platform/Files.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/MappedFile.h"

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace corvane::platform {

std::optional<Bytes> readFile(const std::string& path, Error* error) {
    auto view = MappedFile::open(path, error);
    if (!view) return std::nullopt;
    return Bytes(view->bytes().begin(), view->bytes().end());
}

std::optional<std::string> readTextFile(const std::string& path, Error* error) {
    auto view = MappedFile::open(path, error);
    if (!view) return std::nullopt;
    auto bytes = view->bytes();
    return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

std::optional<Error> removeFile(const std::string& path) {
    if (::unlink(systemPath(path)) == 0) return std::nullopt;
    int failure = errno;
    if (failure == EISDIR) {
        std::error_code code;
        std::filesystem::remove_all(path, code);
        failure = code.value();
    }
    if (failure == 0) return std::nullopt;
    return Error::fromErrno("cannot remove '" + path + "'", failure);
}

std::optional<Error> createDirectory(const std::string& path, mode_t permissions) {
    if (::mkdir(systemPath(path), permissions) == 0) return std::nullopt;
    int failure = errno;
    if (failure == EEXIST && isDirectory(path)) return std::nullopt;
    return Error::fromErrno("cannot create the directory '" + path + "'", failure);
}

std::optional<Error> createDirectories(const std::string& path, mode_t permissions) {
    auto failure = createDirectory(path, permissions);
    if (!failure || failure->code != ENOENT) return failure;
    std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return failure;
    if (auto above = createDirectories(path.substr(0, slash), permissions)) return above;
    return createDirectory(path, permissions);
}

std::optional<Error> checkDirectoryAccess(const std::string& path) {
    constexpr int kAccess = R_OK | W_OK | X_OK;
    if (::faccessat(AT_FDCWD, systemPath(path), kAccess, AT_EACCESS) == 0) return std::nullopt;
    return Error::fromErrno("cannot change the directory '" + path + "'", errno);
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return ::stat(systemPath(path), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace corvane::platform
