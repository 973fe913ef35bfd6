// Collects the small pieces of a text and hands them to a sink in large ones. For the writers of
// this folder.
#pragma once

#include "corvane/platform/ByteSink.h"

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string_view>

namespace corvane {

/// The sink must outlive it. What was put last reaches the sink with flush() only.
class TextBuffer {
  public:
    explicit TextBuffer(platform::ByteSink& sink)
        : sink_(sink), buffer_(new char[kSize]), at_(buffer_.get()), end_(at_ + kSize) {}

    /// Takes the pieces one after the other; false once the sink did not take something, after
    /// which nothing more goes there.
    template <class... Pieces>
    bool put(const Pieces&... pieces) {
        const std::size_t size = (textOf(pieces).size() + ... + 0);
        if (size >= room()) return putAround({textOf(pieces)...});
        (append(textOf(pieces)), ...);
        return true;
    }

    /// A piece as the text it stands for; of a literal the length is known, which saves counting.
    static constexpr std::string_view textOf(std::string_view piece) { return piece; }
    template <std::size_t N>
    static constexpr std::string_view textOf(const char (&literal)[N]) {
        return {literal, N - 1};
    }

    /// Hands over what is left.
    bool flush();

  private:
    // Small enough to stay in the processor's cache, large enough to make system calls rare.
    static constexpr std::size_t kSize = 256 * 1024;

    std::size_t room() const { return static_cast<std::size_t>(end_ - at_); }

    void append(std::string_view piece) {
        if (piece.empty()) return;  // whose address may be null, which memcpy forbids
        std::memcpy(at_, piece.data(), piece.size());
        at_ += piece.size();
    }

    bool putAround(std::initializer_list<std::string_view> pieces);
    bool handOver(std::string_view text);

    platform::ByteSink& sink_;
    std::unique_ptr<char[]> buffer_;
    char* at_;
    char* end_;  // the buffer's start once the sink has failed, so that nothing fits any more
};

}  // namespace corvane
