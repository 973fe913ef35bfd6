// The reference program's own drawings: what no icon set has, and what must be there without one.
#pragma once

#include "corvane/platform/Color.h"

#include <map>
#include <string_view>

class QPainter;

namespace corvane::gallery {

/// On a square of this many units. Templates are black.
inline constexpr double kShapeSide = 24;

using Shape = void (*)(QPainter& painter, platform::Appearance appearance);
using Shapes = std::map<std::string_view, Shape>;

/// By resource name, without suffixes.
const Shapes& badgeShapes();    ///< badges, and the indicators that icon sets lack
const Shapes& stateShapes();    ///< states of tasks and actions, priorities
const Shapes& contactShapes();  ///< contributors, links, the touch bar

/// A frame of an animation, 0 to 11.
void drawSyncing(QPainter& painter, platform::Appearance appearance, int frame);
void drawRepository(QPainter& painter, platform::Appearance appearance, int frame);

/// The first of a name, for want of a picture.
void drawLetter(QPainter& painter, char letter);

}  // namespace corvane::gallery
