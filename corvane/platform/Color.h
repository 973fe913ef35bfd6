// A colour, which may look different on a light and on a dark screen. A value.
#pragma once

namespace corvane::platform {

enum class Appearance { Light, Dark };

/// Fractions from 0 to 1 in the sRGB space, not multiplied by alpha.
struct RGBA {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend constexpr bool operator==(const RGBA&, const RGBA&) = default;
};

///     constexpr Color blue = Color::ofBytes(95, 162, 224);
///     constexpr Color text({0, 0, 0}, {1, 1, 1});
///     text.in(Appearance::Dark).red;   // 1
class Color {
  public:
    constexpr Color() = default;  ///< black
    constexpr explicit Color(RGBA both) : Color(both, both) {}
    constexpr Color(RGBA light, RGBA dark) : light_(light), dark_(dark) {}

    static constexpr Color ofBytes(int red, int green, int blue, double alpha = 1) {
        return Color({red / 255.0, green / 255.0, blue / 255.0, alpha});
    }

    constexpr RGBA in(Appearance appearance) const {
        return appearance == Appearance::Dark ? dark_ : light_;
    }
    constexpr Color withAlpha(double alpha) const {
        return {{light_.red, light_.green, light_.blue, alpha},
                {dark_.red, dark_.green, dark_.blue, alpha}};
    }

    friend constexpr bool operator==(const Color&, const Color&) = default;

  private:
    RGBA light_;
    RGBA dark_;
};

}  // namespace corvane::platform
