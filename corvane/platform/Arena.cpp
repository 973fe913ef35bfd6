#include "corvane/platform/Arena.h"

#include <algorithm>

namespace corvane::platform {

namespace {

// Below the size from which allocators fetch fresh pages from the system for every block.
constexpr std::size_t kSmallChunk = 64 * 1024;

}  // namespace

void* Arena::allocate(std::size_t size, std::size_t alignment) {
    void* place = free_;
    if (!free_ || !std::align(alignment, size, place, room_)) {
        // A piece that would waste most of a chunk gets one of its own.
        if (size > nextChunkSize_ / 4) {
            place = newChunk(size);
            hold();
            return place;
        }
        free_ = newChunk(nextChunkSize_);
        room_ = nextChunkSize_;
        nextChunkSize_ =
            size_ < 2 * kLargeBlock ? std::min(2 * nextChunkSize_, kSmallChunk) : kLargeBlock;
        place = free_;
    }
    free_ = static_cast<std::byte*>(place) + size;
    room_ -= size;
    hold();
    return place;
}

std::byte* Arena::newChunk(std::size_t size) {
    // Not value-initialised: whoever gets a piece constructs an object in it.
    chunks_.push_back(makeBlock<std::byte>(size));
    size_ += size;
    return chunks_.back().get();
}

}  // namespace corvane::platform
