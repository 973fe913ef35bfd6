// Collects small pieces of a file and hands them to a sink in large ones. Not for use outside the
// platform layer.
#pragma once

#include "corvane/platform/BigEndian.h"
#include "corvane/platform/ByteSink.h"
#include "corvane/platform/LargeBlocks.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace corvane::platform {

class OutputBuffer {
  public:
    /// At most so many bytes are moved at once.
    static constexpr std::size_t kShort = 16;

    explicit OutputBuffer(ByteSink& sink)
        : sink_(sink), buffer_(makeBlock<std::uint8_t>(kSize + kShort)), at_(buffer_.get()) {}

    /// How many bytes were put so far.
    std::uint64_t position() const {
        return handedOver_ + static_cast<std::uint64_t>(at_ - buffer_.get());
    }

    void put(std::span<const std::uint8_t> bytes) {
        while (bytes.size() > room()) {
            const auto part = bytes.first(room());
            at_ = std::copy(part.begin(), part.end(), at_);
            bytes = bytes.subspan(part.size());
            flush();
        }
        at_ = std::copy(bytes.begin(), bytes.end(), at_);
    }

    /// REQUIRES: size <= kShort, and kShort readable bytes.
    void putShort(const std::uint8_t* bytes, std::size_t size) {
        if (room() < size) flush();
        std::memcpy(at_, bytes, kShort);
        at_ += size;
    }

    /// The low `size` bytes, the highest first. REQUIRES: 1 <= size <= 8.
    void putNumber(std::uint64_t number, unsigned size) {
        if (room() < size) flush();
        writeBigEndianWide(at_, number, size);
        at_ += size;
    }

    /// Hands over what is left; false where the sink did not take everything.
    bool flush() {
        const std::span bytes(buffer_.get(), at_);
        if (accepted_) accepted_ = sink_.write(std::as_bytes(bytes));
        handedOver_ += bytes.size();
        at_ = buffer_.get();
        return accepted_;
    }

  private:
    // Small enough to stay in the processor's cache, large enough to make system calls rare.
    static constexpr std::size_t kSize = 64 * 1024;

    std::size_t room() const { return kSize - static_cast<std::size_t>(at_ - buffer_.get()); }

    ByteSink& sink_;
    Block<std::uint8_t> buffer_;
    std::uint8_t* at_;
    std::uint64_t handedOver_ = 0;
    bool accepted_ = true;
};

}  // namespace corvane::platform
