#include "corvane/platform/FileCopy.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/Files.h"

#include <sys/stat.h>

#include <array>

namespace corvane::platform {

namespace {

constexpr std::size_t kPiece = 64 * 1024;

bool isRegularFile(const std::string& path) {
    struct stat status {};
    return ::lstat(systemPath(path), &status) == 0 && S_ISREG(status.st_mode);
}

/// 0 or the errno value of a failed reading; a failed writing is the sink's to tell.
int copyContent(int file, ByteSink& sink, bool& written) {
    std::vector<std::byte> piece(kPiece);
    for (off_t position = 0;;) {
        const ssize_t count =
            retryOnInterrupt([&] { return ::pread(file, piece.data(), piece.size(), position); });
        if (count < 0) return errno;
        written = count == 0 || sink.write({piece.data(), static_cast<std::size_t>(count)});
        if (count == 0 || !written) return 0;
        position += count;
    }
}

}  // namespace

std::optional<Error> copyFile(const std::string& from, const std::string& to,
                              Durability durability) {
    auto cannotRead = [&](int failure) {
        return Error::fromErrno("cannot read '" + from + "'", failure);
    };
    // Not mapped: the file is another program's, which may shorten it meanwhile.
    const FileDescriptor source = openFile(from, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    if (!source || ::fstat(source.get(), &status) != 0) return cannotRead(errno);
    if (!S_ISREG(status.st_mode)) return cannotRead(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    if (!isRegularFile(to)) (void)removeFile(to);  // where that fails, so does what follows
    int readFailure = 0;
    auto failure = replaceFileInPieces(
        to,
        [&](ByteSink& sink) {
            bool written = false;
            readFailure = copyContent(source.get(), sink, written);
            return readFailure == 0 && written;
        },
        durability);
    return readFailure ? cannotRead(readFailure) : failure;
}

}  // namespace corvane::platform
