#include "corvane/platform/LargeBlocks.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace corvane::platform {

namespace {

class LargeBlockResource final : public std::pmr::memory_resource {
    void* do_allocate(std::size_t size, std::size_t alignment) override {
        return allocateBlock(size, alignment);
    }
    void do_deallocate(void* block, std::size_t, std::size_t) override { releaseBlock(block); }
    bool do_is_equal(const memory_resource& other) const noexcept override {
        return this == &other;
    }
};

void* allocateSmallBlock(std::size_t size, std::size_t alignment) {
    void* block = nullptr;
    if (alignment <= alignof(std::max_align_t))
        block = std::malloc(size);
    else if (::posix_memalign(&block, alignment, size) != 0)
        block = nullptr;
    if (!block) throw std::bad_alloc();
    return block;
}

}  // namespace

void* allocateBlock(std::size_t size, std::size_t alignment) {
    if (size < kLargeBlock) return allocateSmallBlock(size, alignment);
    const std::size_t rounded = (size + kLargeBlock - 1) & ~(kLargeBlock - 1);
    void* block = rounded < size ? nullptr : std::aligned_alloc(kLargeBlock, rounded);
    if (!block) throw std::bad_alloc();
    ::madvise(block, rounded, MADV_HUGEPAGE);  // a wish; small pages do too
    return block;
}

void releaseBlock(void* block) noexcept {
    std::free(block);
}

std::pmr::memory_resource* largeBlocks() {
    static LargeBlockResource resource;
    return &resource;
}

}  // namespace corvane::platform
