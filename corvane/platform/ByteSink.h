// Where bytes go that are made piece by piece, so that nobody needs to hold all of them at once.
#pragma once

#include "corvane/platform/Bytes.h"

#include <functional>
#include <span>
#include <utility>

namespace corvane::platform {

class ByteSink {
  public:
    virtual ~ByteSink() = default;

    /// Takes the next piece; false where it cannot, after which nothing more should come.
    virtual bool write(std::span<const std::byte> piece) = 0;
};

/// Writes all of a content, and answers false as soon as the sink does. May be called again, for
/// the same bytes.
using ContentWriter = std::function<bool(ByteSink&)>;

/// Keeps everything.
class BytesSink final : public ByteSink {
  public:
    explicit BytesSink(std::size_t expectedSize = 0) { bytes_.reserve(expectedSize); }

    bool write(std::span<const std::byte> piece) override {
        bytes_.insert(bytes_.end(), piece.begin(), piece.end());
        return true;
    }
    Bytes take() { return std::move(bytes_); }

  private:
    Bytes bytes_;
};

}  // namespace corvane::platform
