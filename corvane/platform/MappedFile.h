// A read-only view of a regular file's whole content. A value that can be moved but not copied;
// once made it may be read from any thread.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace corvane::platform {

/// Shows the file as it was when opened: files of this system are only ever replaced whole, and the
/// view keeps the replaced one alive. A program that shortens the file in place breaks that
/// promise; touching a page that is gone then ends the process.
class MappedFile {
  public:
    /// None when the file is missing or unreadable, or is anything but a regular file (a link
    /// leads to one); `error`, where given, then tells why. Never waits for the other end of a
    /// pipe or a device.
    static std::optional<MappedFile> open(const std::string& path, Error* error = nullptr);

    /// Says that nearly all of it will be read: the system then fetches it in one go, instead of a
    /// few pages at each first touch.
    void fetch() const;

    /// The content; empty for an empty file. Stays in place when the view is moved.
    std::span<const std::byte> bytes() const {
        if (mapping_) return {mapping_.get(), mapping_.get_deleter().size};
        return copy_;
    }

  private:
    struct Unmap {
        std::size_t size;
        void operator()(const std::byte* start) const;
    };

    MappedFile() = default;
    bool map(int file, std::size_t size);
    bool read(int file, std::size_t expectedSize);

    std::unique_ptr<const std::byte, Unmap> mapping_;
    Bytes copy_;  // instead of a mapping
};

}  // namespace corvane::platform
