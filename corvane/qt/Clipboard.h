// The desktop's clipboard. Functions without state; the main thread, with an application.
#pragma once

#include "corvane/platform/Pasteboard.h"

namespace corvane::qt {

/// Puts the pasteboard in the place of what is there.
void writeToClipboard(const platform::Pasteboard& pasteboard);
/// Empty where nothing is there.
platform::Pasteboard clipboardContents();

}  // namespace corvane::qt
