// Memory that is handed out piece by piece and returned all at once: what one archive decodes to.
#pragma once

#include "corvane/platform/LargeBlocks.h"
#include "corvane/platform/ReferenceCount.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <vector>

namespace corvane::platform {

/// Every piece holds the arena; the last one to be released takes it down. So a single record kept
/// from an archive keeps the memory of all of them. Allocate on one thread; hold and release on
/// any.
class Arena {
  public:
    /// Has one holder: whoever called.
    static Arena* create() { return new Arena; }

    /// The arena of a piece, found without reading the piece: releasing a hundred thousand texts
    /// need not fetch them into the processor's cache once more.
    static Arena& of(const void* piece) {
        return **reinterpret_cast<Arena**>(reinterpret_cast<std::uintptr_t>(piece) & ~(kUnit - 1));
    }

    /// Memory for one object, which holds the arena until it calls release(). Never null.
    /// REQUIRES: a size above 0 and an alignment of at most kHeader.
    void* allocate(std::size_t size, std::size_t alignment);

    void hold() { holders_.increment(); }
    void release() {
        if (holders_.decrement()) delete this;
    }

    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

  private:
    // At each multiple of a unit within a chunk lies the address of the arena. Pieces begin behind
    // it and before the next one.
    static constexpr std::size_t kUnit = std::size_t{64} << 10;
    static constexpr std::size_t kHeader = alignof(std::max_align_t);

    Arena() = default;
    ~Arena() = default;
    void* placeFor(std::size_t size, std::size_t alignment);
    std::byte* newChunk(std::size_t size);
    std::byte* beginUnit(std::byte* unit);
    void beginUnitFor(std::size_t size);

    ReferenceCount holders_;
    std::vector<Block<std::byte>> chunks_;
    std::byte* free_ = nullptr;  ///< in the current unit
    std::size_t room_ = 0;
    std::byte* nextUnit_ = nullptr;  ///< in the current chunk
    std::size_t chunkRoom_ = 0;
    std::size_t size_ = 0;  ///< of all chunks
};

struct ArenaRelease {
    void operator()(Arena* arena) const { arena->release(); }
};
using ArenaHolder = std::unique_ptr<Arena, ArenaRelease>;

/// Lets std::allocate_shared place objects in an arena. Holds nothing itself: each piece does.
template <class T>
class ArenaAllocator {
  public:
    using value_type = T;

    explicit ArenaAllocator(Arena& arena) : arena_(&arena) {}
    template <class U>
    ArenaAllocator(const ArenaAllocator<U>& other) : arena_(&other.arena()) {}  // NOLINT: rebinding

    T* allocate(std::size_t count) {
        return static_cast<T*>(arena_->allocate(count * sizeof(T), alignof(T)));
    }
    void deallocate(T*, std::size_t) { arena_->release(); }
    Arena& arena() const { return *arena_; }

    template <class U>
    bool operator==(const ArenaAllocator<U>& other) const {
        return arena_ == &other.arena();
    }

  private:
    Arena* arena_;
};

}  // namespace corvane::platform
