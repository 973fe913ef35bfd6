// Makes the records that are published from a document.
#pragma once

#include "corvane/bridge/HGSharedRepository.h"

#include "apps/document/BackupDocument.h"

#include <memory>
#include <vector>

namespace corvane::cli {

using TaskProxies = std::vector<std::shared_ptr<HGTaskProxy>>;

/// One record a task, in the order of the document, with the names of what it refers to. A task
/// without project, or in the general one, names none.
TaskProxies taskProxiesOf(const backup::BackupDocument& document);

/// With these tasks, which are the document's. Projects, categories and portfolios stand in the
/// order of the document, a project without portfolio at the top level. The general project has the
/// tasks that name none; it is made where the document has none.
std::shared_ptr<HGSharedRepository> repositoryOf(const backup::BackupDocument& document,
                                                 const TaskProxies& tasks);

}  // namespace corvane::cli
