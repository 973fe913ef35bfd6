// What the pointer and the keyboard tell a window. Values.
#pragma once

#include "corvane/platform/Point.h"

#include <cstdint>
#include <string>
#include <utility>

namespace corvane::views {

/// Bits of an event's modifier flags.
inline constexpr std::uint64_t kModifierShift = 1u << 17;
inline constexpr std::uint64_t kModifierControl = 1u << 18;
inline constexpr std::uint64_t kModifierOption = 1u << 19;
inline constexpr std::uint64_t kModifierCommand = 1u << 20;

/// Characters by which keys are known that type none.
inline constexpr char32_t kKeyEnter = 0x03;
inline constexpr char32_t kKeyTab = 0x09;
inline constexpr char32_t kKeyReturn = 0x0D;
inline constexpr char32_t kKeyBacktab = 0x19;
inline constexpr char32_t kKeyEscape = 0x1B;
inline constexpr char32_t kKeyBackspace = 0x7F;
inline constexpr char32_t kKeyUpArrow = 0xF700;
inline constexpr char32_t kKeyDownArrow = 0xF701;
inline constexpr char32_t kKeyLeftArrow = 0xF702;
inline constexpr char32_t kKeyRightArrow = 0xF703;
inline constexpr char32_t kKeyF6 = 0xF709;
inline constexpr char32_t kKeyDeleteForward = 0xF728;
inline constexpr char32_t kKeyHome = 0xF729;
inline constexpr char32_t kKeyEnd = 0xF72B;
inline constexpr char32_t kKeyPageUp = 0xF72C;
inline constexpr char32_t kKeyPageDown = 0xF72D;

class KeyEvent {
  public:
    /// Of a key that is known by a character of its own.
    explicit KeyEvent(char32_t key, std::uint64_t modifierFlags = 0);
    /// Of what a key or an input method typed.
    explicit KeyEvent(std::string characters, std::uint64_t modifierFlags = 0)
        : characters_(std::move(characters)), modifierFlags_(modifierFlags) {}

    const std::string& characters() const { return characters_; }
    /// 0 where there are none; half of it where it lies beyond the basic plane.
    char32_t firstCharacter() const;
    std::uint64_t modifierFlags() const { return modifierFlags_; }
    bool has(std::uint64_t modifiers) const { return (modifierFlags_ & modifiers) == modifiers; }

    /// Whether the characters are a text to insert, and not a key or a shortcut.
    bool isText() const;

  private:
    std::string characters_;
    std::uint64_t modifierFlags_;
};

class MouseEvent {
  public:
    explicit MouseEvent(platform::Point locationInWindow, int clickCount = 1,
                        std::uint64_t modifierFlags = 0)
        : location_(locationInWindow), clickCount_(clickCount), modifierFlags_(modifierFlags) {}

    platform::Point locationInWindow() const { return location_; }
    /// 1 for the first press and its release, 2 for those that follow within the double-click
    /// interval, and so on.
    int clickCount() const { return clickCount_; }
    std::uint64_t modifierFlags() const { return modifierFlags_; }

  private:
    platform::Point location_;
    int clickCount_;
    std::uint64_t modifierFlags_;
};

/// In seconds: how long a second click may take to count as one. Whoever knows the desktop's own
/// interval sets it; half a second until then. One thread.
double doubleClickInterval();
void setDoubleClickInterval(double seconds);

}  // namespace corvane::views
