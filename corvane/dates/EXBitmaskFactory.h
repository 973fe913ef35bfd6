// Changes to single bits of a mask. A class of static operations for any thread, and the base of
// what prepares masks for an editor.
#pragma once

#include <cstdint>

namespace corvane {

class EXBitmaskFactory {
  public:
    /// The mask with the other value of the bit, 0 being the least significant one. Masks have the
    /// bits 0 to 30; asking for another changes nothing.
    ///   toggleBit(0b101, 1)           is 0b111
    ///   toggleBit(0, 30)              is 0x40000000
    ///   toggleBit(0b101, 31)          is 0b101
    static constexpr std::int64_t toggleBit(std::int64_t bitmask, std::int64_t bit) {
        constexpr std::int64_t kHighestBit = 30;
        return bit >= 0 && bit <= kHighestBit ? bitmask ^ (std::int64_t{1} << bit) : bitmask;
    }
};

}  // namespace corvane
