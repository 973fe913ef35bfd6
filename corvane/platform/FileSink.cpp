#include "corvane/platform/FileSink.h"

#include "corvane/platform/FileDescriptor.h"

#include <fcntl.h>

namespace corvane::platform {

namespace {

// Large enough for a disk to be at its best, and small files are left alone.
constexpr off_t kWriteback = off_t{1} << 20;

}  // namespace

bool FileSink::write(std::span<const std::byte> piece) {
    while (failure_ == 0 && !piece.empty()) {
        ssize_t count =
            retryOnInterrupt([&] { return ::write(file_, piece.data(), piece.size()); });
        if (count < 0) failure_ = errno;
        if (count == 0) failure_ = EIO;
        if (count <= 0) continue;
        piece = piece.subspan(static_cast<std::size_t>(count));
        size_ += count;
    }
    startWriteback();
    return failure_ == 0;
}

// Left alone, the system would wait until the file is synced or takes another one's place.
void FileSink::startWriteback() {
#ifdef SYNC_FILE_RANGE_WRITE
    if (size_ - started_ < kWriteback) return;
    ::sync_file_range(file_, started_, size_ - started_, SYNC_FILE_RANGE_WRITE);
    started_ = size_;
#endif
}

}  // namespace corvane::platform
