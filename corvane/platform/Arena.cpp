#include "corvane/platform/Arena.h"

#include <algorithm>

namespace corvane::platform {

namespace {

constexpr std::size_t kFirstChunk = 4096;

}  // namespace

void* Arena::allocate(std::size_t size, std::size_t alignment) {
    void* place = placeFor(size, alignment);
    hold();
    return place;
}

void* Arena::placeFor(std::size_t size, std::size_t alignment) {
    void* place = free_;
    if (!std::align(alignment, size, place, room_)) {
        if (size > kUnit - kHeader) return beginUnit(newChunk(kHeader + size));
        beginUnitFor(size);
        place = free_;
    }
    free_ = static_cast<std::byte*>(place) + size;
    room_ -= size;
    return place;
}

void Arena::beginUnitFor(std::size_t size) {
    if (chunkRoom_ == 0) {
        // As much again as there is, up to a unit: allocators fetch fresh pages from the system for
        // every block that is larger. From some megabytes on, large blocks are worth that.
        chunkRoom_ = size_ < 2 * kLargeBlock ? std::clamp(size_, kFirstChunk, kUnit) : kLargeBlock;
        chunkRoom_ = std::max(chunkRoom_, kHeader + size);
        nextUnit_ = newChunk(chunkRoom_);
    }
    const std::size_t unit = std::min(chunkRoom_, kUnit);
    free_ = beginUnit(nextUnit_);
    room_ = unit - kHeader;
    nextUnit_ += unit;
    chunkRoom_ -= unit;
}

// What comes behind the header.
std::byte* Arena::beginUnit(std::byte* unit) {
    new (unit) Arena*(this);
    return unit + kHeader;
}

std::byte* Arena::newChunk(std::size_t size) {
    // Not value-initialised: whoever gets a piece constructs an object in it.
    chunks_.push_back(makeBlock<std::byte>(size, kUnit));
    size_ += size;
    return chunks_.back().get();
}

}  // namespace corvane::platform
