// The colours that views have in common where nobody gives them others.
#pragma once

#include "corvane/platform/Color.h"

namespace corvane::views {

struct Theme {
    using Color = platform::Color;

    Color text{{0.10, 0.11, 0.13}, {0.92, 0.93, 0.94}};
    Color secondaryText{{0.42, 0.44, 0.48}, {0.62, 0.64, 0.68}};
    Color placeholderText{{0.62, 0.64, 0.68}, {0.45, 0.47, 0.50}};
    Color background{{1, 1, 1}, {0.12, 0.125, 0.135}};
    Color controlBackground{{0.96, 0.965, 0.97}, {0.20, 0.205, 0.22}};
    Color pressedBackground{{0.85, 0.86, 0.88}, {0.30, 0.31, 0.33}};
    Color separator{{0.88, 0.885, 0.90}, {0.22, 0.225, 0.24}};
    Color border{{0.76, 0.77, 0.79}, {0.33, 0.34, 0.36}};
    Color accent{{0.13, 0.47, 0.82}, {0.35, 0.64, 0.95}};
    Color selection{{0.80, 0.89, 0.98}, {0.16, 0.32, 0.50}};
    Color inactiveSelection{{0.88, 0.89, 0.90}, {0.25, 0.26, 0.28}};
};

/// The one in force; what the declarations say, until whoever knows the desktop's colours sets
/// others. One thread, the one that draws.
const Theme& theme();
void setTheme(const Theme& theme);

}  // namespace corvane::views
