// A key with modifiers as the service for global hot keys wants it, and its modifiers as events
// have them. Values.
#pragma once

#include <array>
#include <cstdint>

namespace corvane::platform {

/// The modifiers have the service's layout: bit 8 is Command, 9 Shift, 11 Option, 12 Control.
class PTKeyCombo {
  public:
    constexpr PTKeyCombo() = default;
    constexpr PTKeyCombo(std::int64_t keyCode, std::uint64_t modifiers)
        : keyCode_(keyCode), modifiers_(modifiers) {}

    constexpr std::int64_t keyCode() const { return keyCode_; }
    constexpr std::uint64_t modifiers() const { return modifiers_; }

    friend constexpr bool operator==(const PTKeyCombo&, const PTKeyCombo&) = default;

  private:
    std::int64_t keyCode_ = 0;
    std::uint64_t modifiers_ = 0;
};

namespace detail {

struct ModifierBits {
    std::uint64_t carbon, cocoa;
};
inline constexpr std::array<ModifierBits, 4> kModifierBits{{
    {1u << 8, 1u << 20},   // Command
    {1u << 9, 1u << 17},   // Shift
    {1u << 11, 1u << 19},  // Option
    {1u << 12, 1u << 18},  // Control
}};

}  // namespace detail

/// From the hot-key service's layout to that of events, where bit 17 is Shift, 18 Control, 19
/// Option and 20 Command. Other bits are dropped.
///
///     SRCarbonToCocoaFlags(0x1100)     // 0x140000: Command and Control
///     SRCocoaToCarbonFlags(0x140000)   // 0x1100
constexpr std::uint64_t SRCarbonToCocoaFlags(std::uint64_t carbon) {
    std::uint64_t cocoa = 0;
    for (const auto& bits : detail::kModifierBits)
        if (carbon & bits.carbon) cocoa |= bits.cocoa;
    return cocoa;
}

/// The way back.
constexpr std::uint64_t SRCocoaToCarbonFlags(std::uint64_t cocoa) {
    std::uint64_t carbon = 0;
    for (const auto& bits : detail::kModifierBits)
        if (cocoa & bits.cocoa) carbon |= bits.carbon;
    return carbon;
}

}  // namespace corvane::platform
