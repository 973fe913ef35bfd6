// The boxed value under the name that records, choices and preferences use for it.
#pragma once

#include "corvane/platform/Value.h"

namespace corvane {

/// "Any value object". It lives in the platform layer because archives read and write it.
using EXValue = platform::Value;

}  // namespace corvane
