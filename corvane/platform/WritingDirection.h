// Which way the languages are written. Any thread.
#pragma once

#include "corvane/platform/Locale.h"

namespace corvane::platform {

/// Whether lines begin at the right, as in Arabic and Hebrew: layouts are mirrored there.
bool isRightToLeft(const Locale& locale);

}  // namespace corvane::platform
