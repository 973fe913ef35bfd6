// The classes that archives of the shared container may name.
#pragma once

#include "corvane/platform/ArchiveClasses.h"

namespace corvane {

/// Every record, list and model of the bridge. Copy and extend it to read archives that hold more.
/// Made once, on any thread.
const platform::ArchiveClasses& sharedArchiveClasses();

}  // namespace corvane
