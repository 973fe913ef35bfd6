#include "corvane/platform/DirectoryLock.h"

#include <sys/file.h>

namespace corvane::platform {

std::optional<DirectoryLock> DirectoryLock::acquire(const std::string& path, Error* error) {
    FileDescriptor directory = openFile(path, O_RDONLY | O_DIRECTORY);
    bool locked =
        directory && retryOnInterrupt([&] { return ::flock(directory.get(), LOCK_EX); }) == 0;
    if (locked) return DirectoryLock(std::move(directory));
    if (error) *error = Error::fromErrno("cannot lock '" + path + "'", errno);
    return std::nullopt;
}

}  // namespace corvane::platform
