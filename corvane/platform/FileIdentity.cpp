#include "corvane/platform/FileIdentity.h"

#include "corvane/platform/BigEndian.h"
#include "corvane/platform/FileDescriptor.h"

#include <sys/stat.h>

#include <array>
#include <cstring>

namespace corvane::platform {

namespace {

/// The handle's type in four bytes, and the handle.
Bytes handleOf(const std::string& path) {
    alignas(file_handle) std::array<unsigned char, sizeof(file_handle) + MAX_HANDLE_SZ> buffer{};
    auto* handle = reinterpret_cast<file_handle*>(buffer.data());
    handle->handle_bytes = MAX_HANDLE_SZ;
    int mount = 0;
    if (::name_to_handle_at(AT_FDCWD, path.c_str(), handle, &mount, AT_SYMLINK_FOLLOW) != 0)
        return {};
    Bytes bytes(4 + handle->handle_bytes);
    writeBigEndian(reinterpret_cast<std::uint8_t*>(bytes.data()),
                   static_cast<std::uint32_t>(handle->handle_type), 4);
    std::memcpy(bytes.data() + 4, buffer.data() + sizeof(file_handle), handle->handle_bytes);
    return bytes;
}

}  // namespace

std::optional<FileIdentity> fileIdentity(const std::string& path, Error* error) {
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    struct statx status {};
    constexpr unsigned kWanted = STATX_TYPE | STATX_INO | STATX_BTIME;
    if (::statx(AT_FDCWD, systemPath(path), AT_NO_AUTOMOUNT, kWanted, &status) != 0) {
        if (error) *error = Error::fromErrno("cannot find '" + path + "'", errno);
        return std::nullopt;
    }
    FileIdentity identity;
    identity.inode = status.stx_ino;
    identity.isDirectory = S_ISDIR(status.stx_mode);
    if (status.stx_mask & STATX_BTIME) {
        identity.birthTime =
            status.stx_btime.tv_sec * kNanosecondsPerSecond + status.stx_btime.tv_nsec;
    }
    identity.handle = handleOf(path);
    return identity;
}

bool isSameFile(const FileIdentity& a, const FileIdentity& b) {
    return a.inode == b.inode && a.isDirectory == b.isDirectory &&
           (!a.birthTime || !b.birthTime || a.birthTime == b.birthTime) &&
           (a.handle.empty() || b.handle.empty() || a.handle == b.handle);
}

}  // namespace corvane::platform
