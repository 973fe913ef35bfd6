// The main application's side of publishing: its tasks go out to the companions.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"

#include "apps/document/BackupDocument.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::cli {

/// What was published.
struct Publication {
    std::size_t tasks = 0;
    std::size_t completedTasks = 0;
    std::size_t projects = 0;
    std::size_t portfolios = 0;
    std::size_t categories = 0;
    HGBadgeValues badges;
    std::vector<std::string> files;
};

/// Writes repository, shared info and timestamp into the existing container, and makes its insert
/// queue ready for companions. The caller holds the container. Throws a Failure where a file cannot
/// be written.
Publication publish(const backup::BackupDocument& document);

/// The same for a document that has changed, and prints how the badges did.
void publishAgain(const backup::BackupDocument& document);

}  // namespace corvane::cli
