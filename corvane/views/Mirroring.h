// Layouts of languages that are written from right to left are mirrored: what is said of the
// leading and the trailing side means right and left there. One thread, the window's.
#pragma once

#include "corvane/platform/Rect.h"
#include "corvane/views/Canvas.h"

namespace corvane::views {

/// Whether the user's language is one of those.
bool isMirrored();

/// Where a rectangle goes that was placed for a language written from left to right, in a view of
/// that width: there, or as far from the right side as it was from the left.
platform::Rect mirrored(const platform::Rect& rect, double widthOfView);

/// On which side texts begin, and on which they end.
TextAlignment leadingAlignment();
TextAlignment trailingAlignment();
/// Left, Center or Right.
TextAlignment resolved(TextAlignment alignment);

}  // namespace corvane::views
