// A rectangle, such as a window's frame, as a setting. A value.
#pragma once

#include "corvane/platform/Rect.h"
#include "corvane/toolkit/EXValue.h"

#include <optional>
#include <string_view>

namespace corvane {

// The entries of the dictionary in which it is stored.
inline constexpr std::string_view EXPreferenceRectXKey = "x";
inline constexpr std::string_view EXPreferenceRectYKey = "y";
inline constexpr std::string_view EXPreferenceRectWidthKey = "width";
inline constexpr std::string_view EXPreferenceRectHeightKey = "height";

/// Stored in single precision, which is as fine as screens are: what is read again is the float
/// that is nearest to what was written.
///
///     EXPreferenceRect rect(0.1, 0, 640, 480);
///     auto stored = EXPreferenceRect::toUserDefaultsDictionary(rect);
///     EXPreferenceRect::fromUserDefaultsDictionary(stored)->x()      // 0.1f, not 0.1
class EXPreferenceRect {
  public:
    constexpr EXPreferenceRect() = default;
    constexpr EXPreferenceRect(double x, double y, double width, double height)
        : rect_{x, y, width, height} {}
    constexpr explicit EXPreferenceRect(const platform::Rect& rect) : rect_(rect) {}

    // The rectangles of the drawing and of the window system are one type here.
    static constexpr EXPreferenceRect fromCGRect(const platform::Rect& rect) {
        return EXPreferenceRect(rect);
    }
    static constexpr EXPreferenceRect fromNSRect(const platform::Rect& rect) {
        return EXPreferenceRect(rect);
    }

    /// The zero rectangle for none.
    static constexpr platform::Rect toCGRect(const std::optional<EXPreferenceRect>& rect) {
        return rect ? rect->rect_ : platform::Rect();
    }
    static constexpr platform::Rect toNSRect(const std::optional<EXPreferenceRect>& rect) {
        return toCGRect(rect);
    }

    /// Null for none.
    static EXValue toUserDefaultsDictionary(const std::optional<EXPreferenceRect>& rect);

    /// None for anything but a dictionary. Entries that are missing or no number read as 0.
    static std::optional<EXPreferenceRect> fromUserDefaultsDictionary(const EXValue& dictionary);

    constexpr double x() const { return rect_.x; }
    constexpr void setX(double x) { rect_.x = x; }
    constexpr double y() const { return rect_.y; }
    constexpr void setY(double y) { rect_.y = y; }
    constexpr double width() const { return rect_.width; }
    constexpr void setWidth(double width) { rect_.width = width; }
    constexpr double height() const { return rect_.height; }
    constexpr void setHeight(double height) { rect_.height = height; }

    friend constexpr bool operator==(const EXPreferenceRect&, const EXPreferenceRect&) = default;

  private:
    platform::Rect rect_;
};

}  // namespace corvane
