#include "corvane/platform/AppendFile.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <utility>

namespace corvane::platform {

namespace {

bool isRegular(int file) {
    struct stat status {};
    if (::fstat(file, &status) != 0) return false;
    if (S_ISREG(status.st_mode)) return true;
    errno = EINVAL;
    return false;
}

bool isNamed(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && status.st_nlink > 0;
}

/// Whoever removes a file holds it meanwhile. One that was removed before it was locked is not the
/// file of that name any more.
bool lock(int file) {
    if (::flock(file, LOCK_EX | LOCK_NB) == 0 && isNamed(file)) return true;
    errno = EAGAIN;
    return false;
}

bool endsInLine(int file) {
    const off_t size = ::lseek(file, 0, SEEK_END);
    char last = '\n';
    return size > 0 && ::pread(file, &last, 1, size - 1) == 1 && last != '\n';
}

}  // namespace

std::optional<AppendFile> AppendFile::opened(const std::string& path, int flags, Error* error) {
    constexpr int kAlways = O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    FileDescriptor file = openFile(path, kAlways | flags, 0600);
    if (!file || !isRegular(file.get()) || !lock(file.get())) {
        if (error) *error = Error::fromErrno("cannot open '" + path + "'", errno);
        return std::nullopt;
    }
    AppendFile result(std::move(file), path);
    result.endsWithinLine_ = endsInLine(result.file_.get());
    return result;
}

std::optional<AppendFile> AppendFile::create(const std::string& path, Error* error) {
    return opened(path, O_CREAT | O_EXCL, error);
}

std::optional<AppendFile> AppendFile::open(const std::string& path, Error* error) {
    return opened(path, 0, error);
}

bool AppendFile::removeUnlessHeld(const std::string& path) {
    const auto held = open(path);
    return held && ::unlink(path.c_str()) == 0;
}

bool AppendFile::hasName() const {
    return isNamed(file_.get());
}

bool AppendFile::write(std::string_view bytes, std::size_t& written) {
    while (written < bytes.size()) {
        const auto rest = bytes.substr(written);
        const auto count =
            retryOnInterrupt([&] { return ::write(file_.get(), rest.data(), rest.size()); });
        if (count == 0) errno = ENOSPC;
        if (count <= 0) return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

/// By the file's size of this moment: others may have emptied it.
void AppendFile::takeBack(std::size_t bytes) {
    struct stat status {};
    const auto length = static_cast<off_t>(bytes);
    const bool taken = ::fstat(file_.get(), &status) == 0 && status.st_size >= length &&
                       ::ftruncate(file_.get(), status.st_size - length) == 0;
    endsWithinLine_ = !taken;
}

std::size_t AppendFile::appendLines(std::string_view lines, Error* error) {
    std::size_t written = 0;
    bool complete = true;
    if (endsWithinLine_) complete = write("\n", written);
    if (complete) {
        endsWithinLine_ = false;
        written = 0;
        complete = write(lines, written);
    }
    if (complete) return lines.size();
    if (error) *error = Error::fromErrno("cannot write '" + path_ + "'", errno);
    const std::size_t whole = lines.substr(0, written).rfind('\n') + 1;  // npos + 1 is 0
    if (written > whole) takeBack(written - whole);
    return whole;
}

}  // namespace corvane::platform
