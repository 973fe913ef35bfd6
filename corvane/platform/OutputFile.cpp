#include "corvane/platform/OutputFile.h"

#include <sys/stat.h>

namespace corvane::platform {

std::unique_ptr<OutputFile> OutputFile::open(const std::string& path, Error* error) {
    return opened(path, O_WRONLY, error);
}

std::unique_ptr<OutputFile> OutputFile::create(const std::string& path, Error* error) {
    return opened(path, O_WRONLY | O_CREAT | O_TRUNC, error);
}

std::unique_ptr<OutputFile> OutputFile::opened(const std::string& path, int flags, Error* error) {
    FileDescriptor file = openFile(path, flags, 0666);
    if (!file) {
        if (error) *error = Error::fromErrno("cannot open '" + path + "' for writing", errno);
        return nullptr;
    }
    return std::unique_ptr<OutputFile>(new OutputFile(std::move(file), path));
}

std::optional<Error> OutputFile::finish() {
    const int closed = ::close(file_.release()) == 0 || errno == EINTR ? 0 : errno;
    return described(sink_.failure() != 0 ? sink_.failure() : closed);
}

std::optional<Error> OutputFile::failure() const {
    return described(sink_.failure());
}

std::optional<Error> OutputFile::described(int failure) const {
    if (failure == 0) return std::nullopt;
    return Error::fromErrno("cannot write '" + path_ + "'", failure);
}

std::optional<Error> removeRegularFile(const std::string& path) {
    struct stat status {};
    const char* entry = systemPath(path);
    const bool exists = ::lstat(entry, &status) == 0;
    if (!exists || !(S_ISREG(status.st_mode) || S_ISLNK(status.st_mode))) return std::nullopt;
    if (::unlink(entry) == 0 || errno == ENOENT) return std::nullopt;
    return Error::fromErrno("cannot remove '" + path + "'", errno);
}

}  // namespace corvane::platform
