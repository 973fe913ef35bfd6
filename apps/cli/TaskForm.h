// The layout of the form for tasks.
#pragma once

#include "corvane/models/EXDetailModelSectionDescriptor.h"

#include <memory>
#include <string_view>
#include <vector>

namespace corvane::cli {

/// How much of a task's actions is completed, from 0 to 1; derived, not stored.
inline constexpr std::string_view kActionsCompletedKey = "actionsCompleted";

std::vector<std::shared_ptr<EXDetailModelSectionDescriptor>> taskFormSections();
std::shared_ptr<EXDetailModelSectionDescriptor> taskFormFooter();

}  // namespace corvane::cli
