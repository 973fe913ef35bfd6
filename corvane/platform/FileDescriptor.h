// An open file descriptor that closes itself, and the call helpers that the file classes of this
// layer share. Not for use outside the platform layer.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

namespace corvane::platform {

class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() {
        if (number_ < 0) return;
        int error = errno;  // the failure that made the owner give up is still to be read
        ::close(number_);
        errno = error;
    }

    explicit operator bool() const { return number_ >= 0; }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }

  private:
    int number_ = -1;
};

/// Repeats a system call for as long as a signal interrupts it.
template <class Call>
auto retryOnInterrupt(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// The path as system calls take it. One with a NUL inside would silently name another file, and
/// is handed over as the empty path, which none of them accepts.
inline const char* systemPath(const std::string& path) {
    return path.find('\0') == std::string::npos ? path.c_str() : "";
}

/// Invalid, with errno set, where the file cannot be opened. Never inherited by other programs.
inline FileDescriptor openFile(const std::string& path, int flags, mode_t mode = 0) {
    return FileDescriptor(
        retryOnInterrupt([&] { return ::open(systemPath(path), flags | O_CLOEXEC, mode); }));
}

/// The directory that an entry is in, by the entry's path.
inline std::string directoryOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace corvane::platform
