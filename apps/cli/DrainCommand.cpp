#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/Drain.h"
#include "apps/cli/Failure.h"
#include "apps/cli/Publisher.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>

namespace corvane::cli {

namespace {

void printAdded(std::string_view heading, const std::vector<std::string>& lines,
                const std::string& file) {
    if (lines.empty()) return;
    print(fmt::format("{} {} to {}\n", heading, counted(lines.size(), "task"), file));
    for (const std::string& line : lines)
        print(fmt::format("  {}\n", onOneLine(line)));
}

void makeList(const std::string& path) {
    platform::Error error;
    if (platform::readTextFile(path, &error)) return;
    if (error.code != ENOENT) throw Failure(error);
    failOn(platform::replaceFile(path, {}, platform::Durability::Synced));
    print(fmt::format("Made the list {}\n", path));
}

/// "Badges: today 2 -> 3, inbox 0 -> 1"
std::string changesText(const HGBadgeValues& before, const HGBadgeValues& after) {
    const std::array<std::pair<const char*, std::string_view>, 5> kBadges{{
        {"inbox", HGSharedInfoBadgeValueInboxKey},
        {"today", HGSharedInfoBadgeValueTodayKey},
        {"today for tomorrow", HGSharedInfoBadgeValueTodayForTomorrowKey},
        {"next", HGSharedInfoBadgeValueNextKey},
        {"waiting for", HGSharedInfoBadgeValueWaitingForKey},
    }};
    std::string text;
    for (const auto& [name, key] : kBadges) {
        auto valueIn = [key = key](const HGBadgeValues& badges) {
            auto found = badges.find(key);
            return found == badges.end() ? 0 : found->second;
        };
        if (valueIn(before) == valueIn(after)) continue;
        text += fmt::format("{}{} {} -> {}", text.empty() ? "" : ", ", name, valueIn(before),
                            valueIn(after));
    }
    return text.empty() ? "no change" : text;
}

}  // namespace

void runDrain(const std::string& file) {
    const std::string container = existingContainerPath();
    platform::Error error;
    const auto path = platform::resolvedPath(file, &error);
    if (!path) throw Failure(error);
    const auto locks = lockDirectories({container, directoryOf(*path)});
    prepareQueue();
    makeList(*path);

    const auto badges = publishedBadges().value_or(HGBadgeValues());
    const Drained drained = drainQueue(*path);
    printAdded("Completed a drain that was interrupted: added", drained.completed, file);
    printAdded("Added", drained.added, file);
    if (drained.added.empty() && drained.completed.empty()) print("The queue was empty\n");

    const auto content = platform::readTextFile(*path, &error);
    if (!content) throw Failure(error);
    const Publication published = publish(TodoFile(*content), file);
    print(fmt::format("Published {}; badges: {}\n", counted(published.tasks, "task"),
                      changesText(badges, published.badges)));
}

}  // namespace corvane::cli
