// Makes the records that are published from the tasks of a list.
#pragma once

#include "corvane/bridge/HGSharedRepository.h"

#include "apps/cli/TodoFile.h"

#include <memory>
#include <string_view>
#include <vector>

namespace corvane::cli {

using TaskProxies = std::vector<std::shared_ptr<HGTaskProxy>>;

/// One record a task, in the order of the file. The URI is made of the line's bytes and of how many
/// equal lines stand before it, so that it stays the same when other lines come and go.
TaskProxies taskProxiesOf(const TodoFile& file);

/// Projects, categories and portfolios in the order in which the tasks first name them. The project
/// "a/b" belongs to the portfolio "a", and a project has the category of its first task with one.
/// Tasks without project name none, but the general project has their URIs.
std::shared_ptr<HGSharedRepository> repositoryOf(const TaskProxies& tasks);

}  // namespace corvane::cli
