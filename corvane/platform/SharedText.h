// Immutable UTF-8 text that may be absent; copies share one buffer.
#pragma once

#include "corvane/platform/Arena.h"
#include "corvane/platform/ReferenceCount.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace corvane::platform {

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

    SharedText(const SharedText& other) : bits_(other.bits_) { hold(); }
    SharedText(SharedText&& other) noexcept : bits_(std::exchange(other.bits_, 0)) {}
    SharedText& operator=(SharedText other) noexcept {
        std::swap(bits_, other.bits_);
        return *this;
    }
    ~SharedText() { release(); }

    /// The text, or none. What is viewed lives as long as any copy of this object.
    std::optional<std::string_view> get() const {
        return isAbsent() ? std::nullopt : std::optional(buffer()->text());
    }

    /// The same, with absent as empty.
    std::string_view view() const { return isAbsent() ? std::string_view() : buffer()->text(); }

    bool isAbsent() const { return bits_ == 0; }

    /// The same for all copies, and for no other text while one of them lives; null when absent.
    const void* identity() const { return buffer(); }

    friend bool operator==(const SharedText& a, const SharedText& b) {
        return a.bits_ == b.bits_ || a.get() == b.get();
    }

  private:
    /// The characters follow this header in memory.
    struct Buffer {
        std::size_t size;

        char* characters() { return reinterpret_cast<char*>(this + 1); }
        std::string_view text() const { return {reinterpret_cast<const char*>(this + 1), size}; }
    };
    /// Outside arenas.
    struct CountedBuffer {
        ReferenceCount holders;
        Buffer buffer;
    };
    static constexpr std::uintptr_t kInArena = 1;  // 0 in the address of every buffer
    static_assert(alignof(Buffer) > kInArena);

    bool isInArena() const { return (bits_ & kInArena) != 0; }
    Buffer* buffer() const { return reinterpret_cast<Buffer*>(bits_ & ~kInArena); }
    CountedBuffer* counted() const {
        return reinterpret_cast<CountedBuffer*>(bits_ - offsetof(CountedBuffer, buffer));
    }

    // Copies of a text in an arena are counted by the arena alone, as it keeps the memory of all.
    void hold() const {
        if (isAbsent()) return;
        if (isInArena())
            Arena::of(buffer()).hold();
        else
            counted()->holders.increment();
    }
    void release() {
        if (isAbsent()) return;
        if (isInArena())
            Arena::of(buffer()).release();
        else if (counted()->holders.decrement())
            destroy();
    }
    void destroy();

    /// The address of the buffer, marked where it lies in an arena; 0 when absent.
    std::uintptr_t bits_ = 0;
};

}  // namespace corvane::platform
