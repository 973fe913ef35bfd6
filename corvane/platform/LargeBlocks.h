// Memory for tables and chunks that may grow large: from a size on it asks the system for huge
// pages, which spare page faults and misses in address lookup.
#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>

namespace corvane::platform {

/// From this size on. It is that of a huge page where most desktops run; elsewhere an alignment.
inline constexpr std::size_t kLargeBlock = std::size_t{2} << 20;

/// Uninitialised memory of at least `size` bytes, aligned for any object, and as asked for: to a
/// power of 2 that is no larger than kLargeBlock. Throws std::bad_alloc where there is none. Any
/// thread may release it.
void* allocateBlock(std::size_t size, std::size_t alignment = alignof(std::max_align_t));
void releaseBlock(void* block) noexcept;

struct BlockRelease {
    void operator()(void* block) const noexcept { releaseBlock(block); }
};

template <class T>
using Block = std::unique_ptr<T[], BlockRelease>;

/// REQUIRES: a T that needs neither construction nor destruction.
template <class T>
Block<T> makeBlock(std::size_t count, std::size_t alignment = alignof(std::max_align_t)) {
    return Block<T>(static_cast<T*>(allocateBlock(count * sizeof(T), alignment)));
}

/// For standard containers.
template <class T>
struct BlockAllocator {
    using value_type = T;

    BlockAllocator() = default;
    template <class U>
    BlockAllocator(const BlockAllocator<U>&) {}  // NOLINT: rebinding

    T* allocate(std::size_t count) { return static_cast<T*>(allocateBlock(count * sizeof(T))); }
    void deallocate(T* block, std::size_t) noexcept { releaseBlock(block); }

    template <class U>
    bool operator==(const BlockAllocator<U>&) const {
        return true;
    }
};

/// The same for containers that take their memory from a resource. Lives forever.
std::pmr::memory_resource* largeBlocks();

}  // namespace corvane::platform
