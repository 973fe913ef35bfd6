// The shared container as the commands use it: where it is, what it holds, who may write now.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/bridge/HGSharedRepository.h"
#include "corvane/platform/DirectoryLock.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::cli {

// Where the operations cannot do what they are for, they throw a Failure that says why.

/// The path of the container, which need not exist.
std::string containerPath();

/// The same of a container that exists.
std::string existingContainerPath();

/// What was published last.
HGSharedInfo publishedInfo();
std::shared_ptr<HGSharedRepository> publishedRepository();

/// The published badges; none where nothing readable was published.
std::optional<HGBadgeValues> publishedBadges();

/// Lets pass only that a published file of which nothing came is missing.
void requireMissing(const std::string& path);

/// Makes the queue, without which companions cannot add tasks, where there is none. The queue's own
/// operations take one that cannot be read for an empty one, and that it cannot be changed would
/// show only when its tasks are in the list already.
void prepareQueue();

/// Holds the directories against every other command that changes them, for as long as the result
/// lives. Waits for its turn.
std::vector<platform::DirectoryLock> lockDirectories(std::vector<std::string> paths);

/// The directory of an absolute path.
std::string directoryOf(const std::string& path);

}  // namespace corvane::cli
