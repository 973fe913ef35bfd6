// The colours that views have in common where nobody gives them others.
#pragma once

#include "corvane/platform/Color.h"

namespace corvane::views {

/// Texts can be read on every ground: their contrast is at least 4.5, also that of placeholders and
/// of what is disabled.
struct Theme {
    using Color = platform::Color;

    Color text{{0.10, 0.11, 0.13}, {0.92, 0.93, 0.94}};
    Color secondaryText{{0.35, 0.36, 0.40}, {0.70, 0.71, 0.75}};
    Color placeholderText{{0.35, 0.36, 0.40}, {0.70, 0.71, 0.75}};
    Color textOnAccent{{1, 1, 1}, {0.12, 0.125, 0.135}};  ///< also of symbols

    // Grounds.
    Color background{{1, 1, 1}, {0.12, 0.125, 0.135}};
    Color controlBackground{{0.96, 0.965, 0.97}, {0.20, 0.205, 0.22}};
    Color pressedBackground{{0.85, 0.86, 0.88}, {0.26, 0.27, 0.29}};
    Color selection{{0.80, 0.89, 0.98}, {0.15, 0.27, 0.42}};
    Color inactiveSelection{{0.88, 0.89, 0.90}, {0.25, 0.26, 0.28}};
    Color accent{{0.04, 0.35, 0.72}, {0.48, 0.71, 1.0}};  ///< also of texts that can be clicked

    // Lines.
    Color separator{{0.88, 0.885, 0.90}, {0.22, 0.225, 0.24}};
    Color border{{0.76, 0.77, 0.79}, {0.33, 0.34, 0.36}};
};

/// The one in force; what the declarations say, until whoever knows the application's colours sets
/// others. One thread, the one that draws.
const Theme& theme();
void setTheme(const Theme& theme);

/// Puts another one in force for as long as it lives.
class ScopedTheme {
  public:
    explicit ScopedTheme(const Theme& theme) : before_(views::theme()) { setTheme(theme); }
    ~ScopedTheme() { setTheme(before_); }
    ScopedTheme(const ScopedTheme&) = delete;
    ScopedTheme& operator=(const ScopedTheme&) = delete;

  private:
    Theme before_;
};

}  // namespace corvane::views
