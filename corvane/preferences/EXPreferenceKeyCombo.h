// A key with modifiers, as a setting. A value.
#pragma once

#include "corvane/platform/PTKeyCombo.h"
#include "corvane/toolkit/EXValue.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

// The entries of the dictionary in which it is stored.
inline constexpr std::string_view EXPreferenceKeyComboCodeKey = "code";
inline constexpr std::string_view EXPreferenceKeyComboModifiersKey = "modifiers";

/// `code` is a virtual key code of the keyboard, such as 47 for the period. `modifiers` has the
/// layout of events: bit 20 is Command, 18 Control (SRCarbonToCocoaFlags has all).
///
///     EXPreferenceKeyCombo combo(47, 0x140000);    // Control, Command and period
///     *EXPreferenceKeyCombo::toPTKeyCombo(combo)   // PTKeyCombo(47, 0x1100)
///     EXPreferenceKeyCombo::toUserDefaultsDictionary(combo)
///                                                  // {"code": 47, "modifiers": 1310720}
class EXPreferenceKeyCombo {
  public:
    constexpr EXPreferenceKeyCombo() = default;
    constexpr EXPreferenceKeyCombo(std::int64_t code, std::uint64_t modifiers)
        : code_(code), modifiers_(modifiers) {}
    constexpr explicit EXPreferenceKeyCombo(const std::optional<platform::PTKeyCombo>& combo) {
        if (!combo) return;
        code_ = combo->keyCode();
        modifiers_ = platform::SRCarbonToCocoaFlags(combo->modifiers());
    }

    static constexpr std::optional<platform::PTKeyCombo> toPTKeyCombo(
        const std::optional<EXPreferenceKeyCombo>& combo) {
        if (!combo) return std::nullopt;
        return platform::PTKeyCombo(combo->code_,
                                    platform::SRCocoaToCarbonFlags(combo->modifiers_));
    }
    static constexpr std::optional<EXPreferenceKeyCombo> fromPTKeyCombo(
        const std::optional<platform::PTKeyCombo>& combo) {
        return combo ? std::optional(EXPreferenceKeyCombo(combo)) : std::nullopt;
    }

    /// Null for none.
    static EXValue toUserDefaultsDictionary(const std::optional<EXPreferenceKeyCombo>& combo);

    /// None for anything but a dictionary. Entries that are missing or no number read as 0.
    static std::optional<EXPreferenceKeyCombo> fromUserDefaultsDictionary(
        const EXValue& dictionary);

    constexpr std::int64_t code() const { return code_; }
    constexpr void setCode(std::int64_t code) { code_ = code; }
    constexpr std::uint64_t modifiers() const { return modifiers_; }
    constexpr void setModifiers(std::uint64_t modifiers) { modifiers_ = modifiers; }

    friend constexpr bool operator==(const EXPreferenceKeyCombo&,
                                     const EXPreferenceKeyCombo&) = default;

  private:
    std::int64_t code_ = 0;
    std::uint64_t modifiers_ = 0;
};

}  // namespace corvane
