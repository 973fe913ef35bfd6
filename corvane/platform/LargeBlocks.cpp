#include "corvane/platform/LargeBlocks.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace corvane::platform {

void* allocateBlock(std::size_t size) {
    if (size < kLargeBlock) {
        if (void* block = std::malloc(size)) return block;
        throw std::bad_alloc();
    }
    const std::size_t rounded = (size + kLargeBlock - 1) & ~(kLargeBlock - 1);
    void* block = rounded < size ? nullptr : std::aligned_alloc(kLargeBlock, rounded);
    if (!block) throw std::bad_alloc();
    ::madvise(block, rounded, MADV_HUGEPAGE);  // a wish; small pages do too
    return block;
}

void releaseBlock(void* block) noexcept {
    std::free(block);
}

}  // namespace corvane::platform
