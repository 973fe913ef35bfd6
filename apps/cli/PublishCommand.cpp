#include "corvane/platform/Files.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Publisher.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

/// Only the directory itself is made: a parent that is missing is more likely a slip of the pen.
void makeContainer() {
    const std::string path = containerPath();
    if (platform::isDirectory(path)) return;
    failOn(platform::createDirectory(path));
    print(fmt::format("Made the container {}\n", path));
}

}  // namespace

void runPublish(const std::string& file) {
    platform::Error error;
    if (!platform::readTextFile(file, &error)) throw Failure(error);
    makeContainer();
    const auto locks = lockDirectories({containerPath()});
    // Read again under the lock: a drain may just have added to it.
    const auto content = platform::readTextFile(file, &error);
    if (!content) throw Failure(error);
    const Publication published = publish(TodoFile(*content), file);

    print(fmt::format(
        "Published {} ({} completed), {}, {}, {} from {}\n", counted(published.tasks, "task"),
        published.completedTasks, counted(published.projects, "project"),
        counted(published.portfolios, "portfolio"),
        published.categories == 1 ? "1 category"
                                  : fmt::format("{} categories", published.categories),
        file));
    for (const std::string& path : published.files)
        print(fmt::format("  {}\n", path));
    print(fmt::format("Badges: {}\n", badgesText(published.badges)));
}

}  // namespace corvane::cli
