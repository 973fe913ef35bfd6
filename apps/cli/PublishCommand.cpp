#include "corvane/logging/Log.h"
#include "corvane/platform/Files.h"

#include "apps/cli/Activity.h"
#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Publisher.h"
#include "apps/cli/TaskFormat.h"
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

std::string contentOf(const std::string& file) {
    platform::Error error;
    auto content = platform::readTextFile(file, &error);
    if (!content) throw Failure(error);
    return std::move(*content);
}

void publishTasks(const TaskSource& source, const std::string& file) {
    reportProblems(source, file, "the line stays, but is not published");
    const Publication published = publish(source.document);

    const std::string summary =
        fmt::format("{} ({} completed), {}, {}, {} from {}", counted(published.tasks, "task"),
                    published.completedTasks, counted(published.projects, "project"),
                    counted(published.portfolios, "portfolio"),
                    published.categories == 1 ? "1 category"
                                              : fmt::format("{} categories", published.categories),
                    file);
    print(fmt::format("Published {}\n", summary));
    logging::log(logging::Level::Information, "publish: {}", summary);
    for (const std::string& path : published.files)
        print(fmt::format("  {}\n", path));
    print(fmt::format("Badges: {}\n", badgesText(published.badges)));
}

}  // namespace

void runPublish(const std::string& file) {
    // Nothing is made for a file that cannot be published.
    const TaskFormat& format = TaskFormat::of(file);
    const std::string before = contentOf(file);
    TaskSource source = format.read(before, file);
    makeContainer();
    const auto locks = lockDirectories({containerPath()});
    runInActivity("Publishing the tasks", [&] {
        // Read again under the lock: a drain may just have added to it.
        const std::string content = contentOf(file);
        if (content != before) source = format.read(content, file);
        publishTasks(source, file);
    });
}

}  // namespace corvane::cli
