// What views look like in the application's palette.
#pragma once

#include "corvane/views/Theme.h"

namespace corvane {

/// From the named colors, so that views and whoever draws by name agree. The theme in force does
/// not change by that: a program puts it in force once its color resources are.
///
///     const views::ScopedTheme theme(themeOfPalette());
views::Theme themeOfPalette();

}  // namespace corvane
