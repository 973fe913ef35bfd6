#include "corvane/platform/FileStatus.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/StatxTime.h"

namespace corvane::platform {

std::optional<FileStatus> fileStatus(const std::string& path, Error* error) {
    struct statx status {};
    constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    constexpr unsigned kFields = STATX_TYPE | STATX_SIZE | STATX_BTIME | STATX_MTIME;
    if (::statx(AT_FDCWD, systemPath(path), kFlags, kFields, &status) != 0) {
        if (error) *error = Error::fromErrno("cannot look at '" + path + "'", errno);
        return std::nullopt;
    }
    FileStatus result;
    result.isRegularFile = S_ISREG(status.stx_mode);
    result.size = static_cast<std::int64_t>(status.stx_size);
    if (status.stx_mask & STATX_BTIME) result.created = toInstant(status.stx_btime);
    result.modified = toInstant(status.stx_mtime);
    return result;
}

}  // namespace corvane::platform
