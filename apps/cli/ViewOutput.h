// A view as companions show it.
#pragma once

#include "corvane/bridge/HGTaskProxyManager.h"

#include "apps/cli/Commands.h"

namespace corvane::cli {

/// Prints the view as the manager has loaded it.
void printView(const HGTaskProxyManager& manager, View view, Format format);

}  // namespace corvane::cli
