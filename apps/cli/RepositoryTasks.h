// The tasks of a published repository, in an order for people.
#pragma once

#include "corvane/bridge/HGSharedRepository.h"

#include "apps/cli/RepositoryBuilder.h"

namespace corvane::cli {

TaskProxies tasksOfProject(const HGSharedRepository& repository, const HGProjectProxy& project);

/// Project by project, because a repository keeps no order of its own for tasks; those that no
/// project names come last.
TaskProxies allTasks(const HGSharedRepository& repository);

}  // namespace corvane::cli
