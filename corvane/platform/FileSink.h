// The sink behind every file that is written in pieces. Not for use outside the platform layer.
#pragma once

#include "corvane/platform/ByteSink.h"

namespace corvane::platform {

/// Writes to an open file, which it does not own, and remembers the first failure.
class FileSink final : public ByteSink {
  public:
    explicit FileSink(int file) : file_(file) {}

    bool write(std::span<const std::byte> piece) override;

    /// The errno value of what failed, 0 for as long as nothing did.
    int failure() const { return failure_; }

  private:
    int file_;
    int failure_ = 0;
};

}  // namespace corvane::platform
