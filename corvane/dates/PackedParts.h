// The packing that days and times of day share: three parts in one signed 64-bit number. Includes
// only the standard library, so that every layer may include it.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

/// sign(high) * ((|high| << 16) + (middle << 8) + low). The number is a file format: it must not
/// change. Parts are not range-checked; what does not fit wraps in 64 bits.
constexpr std::int64_t packParts(std::int64_t high, std::int64_t middle, std::int64_t low) {
    // In unsigned arithmetic, which wraps where signed arithmetic would be undefined.
    auto magnitude = static_cast<std::uint64_t>(high);
    if (high < 0) magnitude = -magnitude;
    std::uint64_t packed = (magnitude << 16) + (static_cast<std::uint64_t>(middle) << 8) +
                           static_cast<std::uint64_t>(low);
    return static_cast<std::int64_t>(high < 0 ? -packed : packed);
}

/// Base of the packed values: reading the parts, comparison and hash. `Self` is the deriving class,
/// so that days compare only with days.
template <class Self>
class PackedParts {
  public:
    constexpr std::int64_t integerValue() const { return packed_; }
    constexpr std::int64_t number() const { return packed_; }

    constexpr std::size_t hash() const {
        return static_cast<std::size_t>(packed_ ^ (packed_ >> 32));
    }

    constexpr bool isEqual(std::optional<Self> other) const {
        return other && other->packed_ == packed_;
    }

    /// -1, 0 or 1 in the order of the packed numbers; 1 where there is nothing to compare with.
    constexpr int compare(std::optional<Self> other) const {
        if (!other || other->packed_ < packed_) return 1;
        return other->packed_ > packed_ ? -1 : 0;
    }

    friend constexpr bool operator==(const PackedParts&, const PackedParts&) = default;
    friend constexpr auto operator<=>(const PackedParts&, const PackedParts&) = default;

  protected:
    constexpr PackedParts() = default;
    explicit constexpr PackedParts(std::int64_t packed) : packed_(packed) {}

    constexpr std::int64_t high() const {
        auto magnitude = static_cast<std::uint64_t>(packed_);
        if (packed_ < 0) magnitude = -magnitude;
        auto part = static_cast<std::int64_t>(magnitude >> 16);
        return packed_ < 0 ? -part : part;
    }

    // The bytes as stored: below zero they are those of the two's complement.
    constexpr int middle() const { return static_cast<int>((packed_ >> 8) & 0xff); }
    constexpr int low() const { return static_cast<int>(packed_ & 0xff); }

  private:
    std::int64_t packed_ = 0;
};

}  // namespace corvane
