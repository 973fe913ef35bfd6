// How well one colour reads on another.
#pragma once

#include "corvane/platform/Color.h"

namespace corvane {

/// From 1 for two equal colours to 21 for black on white; texts need 4.5. Alpha is passed over.
double contrastBetween(const platform::RGBA& one, const platform::RGBA& other);

/// Black or white, whichever reads better, for each appearance. At least 4.5 on any ground.
platform::Color readableTextOn(const platform::Color& ground);

}  // namespace corvane
