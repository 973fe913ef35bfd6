#include "corvane/toolkit/EXRandomGenerator.h"

#include "corvane/platform/Clock.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <limits>

namespace corvane {

namespace {

// The published constants: multiplier and modulus, and both by Schrage's method, which multiplies
// without leaving 32 bits.
constexpr std::int64_t kIA = 16807;
constexpr std::int64_t kIM = 2147483647;
constexpr std::int64_t kIQ = 127773;
constexpr std::int64_t kIR = 2836;
constexpr int kTableSize = 32;
constexpr int kWarmUpSteps = 40;
constexpr std::int64_t kNDIV = 1 + (kIM - 1) / kTableSize;
constexpr double kAM = 1.0 / static_cast<double>(kIM);
constexpr double kRNMX = 0.99999988;

struct Shuffle {
    std::array<std::int64_t, kTableSize> table{};
    std::int64_t iy = 0;
};

Shuffle& sharedShuffle() {
    static Shuffle shuffle;
    return shuffle;
}

}  // namespace

void EXRandomGenerator::reset() {
    const auto sinceEpoch = platform::currentClock().now().time_since_epoch();
    idum_ = -std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count();
}

void EXRandomGenerator::step() {
    // Only a state set from outside lies beyond the modulus, and would lead out of the table. A
    // multiple of the modulus would stay 0 for ever.
    if (idum_ >= kIM) idum_ = std::max<std::int64_t>(idum_ % kIM, 1);
    const std::int64_t k = idum_ / kIQ;
    idum_ = kIA * (idum_ - k * kIQ) - kIR * k;
    if (idum_ < 0) idum_ += kIM;
}

void EXRandomGenerator::fillTable() {
    // The smallest number has no positive counterpart.
    const bool isSmallest = idum_ == std::numeric_limits<std::int64_t>::min();
    idum_ = isSmallest ? 1 : std::max<std::int64_t>(-idum_, 1);
    auto& shuffle = sharedShuffle();
    for (int j = kWarmUpSteps - 1; j >= 0; --j) {
        step();
        if (j < kTableSize) shuffle.table[static_cast<std::size_t>(j)] = idum_;
    }
    shuffle.iy = shuffle.table[0];
}

double EXRandomGenerator::randomValue() {
    auto& shuffle = sharedShuffle();
    if (idum_ <= 0 || shuffle.iy == 0) fillTable();
    step();
    auto& place = shuffle.table[static_cast<std::size_t>(shuffle.iy / kNDIV)];
    shuffle.iy = place;
    place = idum_;
    return std::min(kAM * static_cast<double>(shuffle.iy), kRNMX);
}

}  // namespace corvane
