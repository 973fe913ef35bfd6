// Memory that is handed out piece by piece and returned all at once: what one archive decodes to.
#pragma once

#include "corvane/platform/LargeBlocks.h"
#include "corvane/platform/ReferenceCount.h"

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

namespace corvane::platform {

/// Every piece holds the arena; the last one to be released takes it down. So a single record kept
/// from an archive keeps the memory of all of them. Allocate on one thread; release on any.
class Arena {
  public:
    /// Has one holder: whoever called.
    static Arena* create() { return new Arena; }

    /// Memory for one object, which holds the arena until it calls release(). Never null.
    void* allocate(std::size_t size, std::size_t alignment);

    void hold() { holders_.increment(); }
    void release() {
        if (holders_.decrement()) delete this;
    }

    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

  private:
    Arena() = default;
    ~Arena() = default;
    std::byte* newChunk(std::size_t size);

    ReferenceCount holders_;
    std::vector<Block<std::byte>> chunks_;
    std::byte* free_ = nullptr;
    std::size_t room_ = 0;
    std::size_t nextChunkSize_ = 4096;
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
