// Immutable UTF-8 text that may be absent; copies share one buffer.
#pragma once

#include "corvane/platform/ReferenceCount.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace corvane::platform {

class Arena;

/// Decoded archives hold one text under many records (a project's name under each of its tasks),
/// so records keep texts by reference: a copy costs a count, and a small file that names one long
/// text a million times stays small in memory. As large as a pointer; copies may be used on several
/// threads.
class SharedText {
  public:
    /// Absent.
    SharedText() = default;

    /// A copy of the text, or absent for none. In an arena, the buffer belongs to it.
    explicit SharedText(std::optional<std::string_view> text, Arena* arena = nullptr);

    SharedText(const SharedText& other) : buffer_(other.buffer_) { hold(); }
    SharedText(SharedText&& other) noexcept : buffer_(std::exchange(other.buffer_, nullptr)) {}
    SharedText& operator=(SharedText other) noexcept {
        std::swap(buffer_, other.buffer_);
        return *this;
    }
    ~SharedText() { release(); }

    /// The text, or none. What is viewed lives as long as any copy of this object.
    std::optional<std::string_view> get() const {
        return buffer_ ? std::optional(buffer_->text()) : std::nullopt;
    }

    /// The same, with absent as empty.
    std::string_view view() const { return buffer_ ? buffer_->text() : std::string_view(); }

    bool isAbsent() const { return !buffer_; }

    /// The same for all copies, and for no other text while one of them lives; null when absent.
    const void* identity() const { return buffer_; }

    friend bool operator==(const SharedText& a, const SharedText& b) {
        return a.buffer_ == b.buffer_ || a.get() == b.get();
    }

  private:
    /// The characters follow this header in memory.
    struct Buffer {
        ReferenceCount holders;
        std::size_t size;
        Arena* arena;

        char* characters() { return reinterpret_cast<char*>(this + 1); }
        std::string_view text() const { return {reinterpret_cast<const char*>(this + 1), size}; }
    };

    void hold() const {
        if (buffer_) buffer_->holders.increment();
    }
    void release() {
        if (buffer_ && buffer_->holders.decrement()) destroy();
    }
    void destroy();

    Buffer* buffer_ = nullptr;
};

}  // namespace corvane::platform
