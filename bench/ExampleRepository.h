// The repository that the benchmarks work on, of any number of tasks.
#pragma once

#include "corvane/bridge/HGSharedRepository.h"

#include <memory>
#include <string>

namespace corvane::bench {

/// Twenty tasks to a project, ten projects to a portfolio, thirty categories; notes on a third of
/// the tasks, a due day on half, an attachment on a tenth. The same number gives the same contents.
std::shared_ptr<HGSharedRepository> exampleRepository(int tasks);

/// The path of a file that holds that repository's archive; written on the first call.
std::string exampleRepositoryFile(int tasks);

}  // namespace corvane::bench
