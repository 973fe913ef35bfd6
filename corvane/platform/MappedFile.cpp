#include "corvane/platform/MappedFile.h"

#include "corvane/platform/FileDescriptor.h"

#include <sys/mman.h>
#include <sys/stat.h>

namespace corvane::platform {

namespace {

// Up to here reading is cheaper than setting a mapping up and tearing it down: 3 against 10 µs in a
// running program. A program that has just started pays more for fresh memory than for a mapping,
// so the bound stays well below the 1 MiB up to which a running one would still gain.
constexpr std::size_t kLargestReadSize = 16 * 1024;

std::optional<Error> refuse(const std::string& path, int number) {
    return Error::fromErrno("cannot read '" + path + "'", number);
}

std::optional<Error> refuseKind(const std::string& path, mode_t mode) {
    if (S_ISDIR(mode)) return refuse(path, EISDIR);
    return Error{"posix", EINVAL, "cannot read '" + path + "': not a regular file"};
}

}  // namespace

void MappedFile::Unmap::operator()(const std::byte* start) const {
    ::munmap(const_cast<std::byte*>(start), size);
}

std::optional<MappedFile> MappedFile::open(const std::string& path, Error* error) {
    MappedFile view;
    auto failure = [&]() -> std::optional<Error> {
        FileDescriptor file = openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
        struct stat status {};
        if (!file || ::fstat(file.get(), &status) != 0) return refuse(path, errno);
        if (!S_ISREG(status.st_mode)) return refuseKind(path, status.st_mode);
        auto size = static_cast<std::size_t>(status.st_size);
        // Some file systems cannot map; all can read.
        if (size > kLargestReadSize && view.map(file.get(), size)) return std::nullopt;
        if (!view.read(file.get(), size)) return refuse(path, errno);
        return std::nullopt;
    }();
    if (!failure) return view;
    if (error) *error = std::move(*failure);
    return std::nullopt;
}

bool MappedFile::map(int file, std::size_t size) {
    void* start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (start == MAP_FAILED) return false;
    mapping_ = {static_cast<const std::byte*>(start), Unmap{size}};
    return true;
}

void MappedFile::fetch() const {
#ifdef MADV_POPULATE_READ
    // Without effect on older systems, where the first touch does it.
    if (mapping_)
        ::madvise(const_cast<std::byte*>(mapping_.get()), mapping_.get_deleter().size,
                  MADV_POPULATE_READ);
#endif
}

// Reads to the end whatever size was announced: the kernel's own files announce 0.
bool MappedFile::read(int file, std::size_t expectedSize) {
    std::size_t filled = 0;
    copy_.resize(expectedSize + 1);
    for (;;) {
        ssize_t count = retryOnInterrupt(
            [&] { return ::read(file, copy_.data() + filled, copy_.size() - filled); });
        if (count < 0) return false;
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
        if (filled == copy_.size()) copy_.resize(2 * filled + kLargestReadSize);
    }
    copy_.resize(filled);
    return true;
}

}  // namespace corvane::platform
