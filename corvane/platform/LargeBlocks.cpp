#include "corvane/platform/LargeBlocks.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace corvane::platform {

namespace {

// The size of a huge page where most desktops run; elsewhere only an alignment.
constexpr std::size_t kHugePage = std::size_t{2} << 20;

}  // namespace

void* allocateBlock(std::size_t size) {
    if (size < kHugePage) {
        if (void* block = std::malloc(size)) return block;
        throw std::bad_alloc();
    }
    const std::size_t rounded = (size + kHugePage - 1) & ~(kHugePage - 1);
    void* block = rounded < size ? nullptr : std::aligned_alloc(kHugePage, rounded);
    if (!block) throw std::bad_alloc();
    ::madvise(block, rounded, MADV_HUGEPAGE);  // a wish; small pages do too
    return block;
}

void releaseBlock(void* block) noexcept {
    std::free(block);
}

}  // namespace corvane::platform
