// A number for each of many addresses, in one block of memory.
#pragma once

#include "corvane/platform/LargeBlocks.h"
#include "corvane/platform/Prefetch.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace corvane::platform {

/// A hash table for the one thing an archiver looks up for every object; entries are never removed.
class AddressTable {
  public:
    AddressTable() : entries_(64) {}

    /// The number entered for the address; 0 where there is none. REQUIRES: not null.
    std::uint32_t find(const void* address) const { return entries_[placeOf(address)].number; }

    /// Says that the address will be looked up soon.
    void prefetch(const void* address) const { platform::prefetch(&entries_[homeOf(address)]); }

    /// REQUIRES: a number other than 0, and an address that has none yet.
    void add(const void* address, std::uint32_t number) {
        if (4 * ++count_ > 3 * entries_.size()) grow();
        entries_[placeOf(address)] = {address, number};
    }

  private:
    struct Entry {
        const void* address = nullptr;
        std::uint32_t number = 0;
    };

    using Entries = std::vector<Entry, BlockAllocator<Entry>>;

    std::size_t homeOf(const void* address) const {
        // The golden ratio spreads addresses, which differ in few and the same bits.
        constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
        return (reinterpret_cast<std::uintptr_t>(address) * kSpread >> 32) & (entries_.size() - 1);
    }

    // The place of the address, or the free one where it belongs.
    std::size_t placeOf(const void* address) const {
        for (std::size_t place = homeOf(address);; place = (place + 1) & (entries_.size() - 1))
            if (!entries_[place].address || entries_[place].address == address) return place;
    }

    void grow() {
        Entries old(2 * entries_.size());
        old.swap(entries_);
        for (const Entry& entry : old)
            if (entry.address) entries_[placeOf(entry.address)] = entry;
    }

    Entries entries_;
    std::size_t count_ = 0;
};

}  // namespace corvane::platform
