// The sink behind every file that is written in pieces. Not for use outside the platform layer.
#pragma once

#include "corvane/platform/ByteSink.h"

#include <sys/types.h>

namespace corvane::platform {

/// Writes to a file that was empty when opened, which it does not own, and remembers the first
/// failure. The disk takes large files while they are being written.
class FileSink final : public ByteSink {
  public:
    explicit FileSink(int file) : file_(file) {}

    bool write(std::span<const std::byte> piece) override;

    /// The errno value of what failed, 0 for as long as nothing did.
    int failure() const { return failure_; }

  private:
    void startWriteback();

    int file_;
    int failure_ = 0;
    off_t size_ = 0;     ///< of what was written
    off_t started_ = 0;  ///< of that, what the disk was given already
};

}  // namespace corvane::platform
