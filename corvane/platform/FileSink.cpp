#include "corvane/platform/FileSink.h"

#include "corvane/platform/FileDescriptor.h"

namespace corvane::platform {

bool FileSink::write(std::span<const std::byte> piece) {
    while (failure_ == 0 && !piece.empty()) {
        ssize_t count =
            retryOnInterrupt([&] { return ::write(file_, piece.data(), piece.size()); });
        if (count < 0) failure_ = errno;
        if (count == 0) failure_ = EIO;
        if (count > 0) piece = piece.subspan(static_cast<std::size_t>(count));
    }
    return failure_ == 0;
}

}  // namespace corvane::platform
