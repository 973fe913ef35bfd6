#include "apps/cli/BackupsCommand.h"

#include "corvane/formats/EXFileItemsOverviewModel.h"
#include "corvane/formats/HGCorvaneBackupManager.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/FileStatus.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/TimeZone.h"
#include "corvane/platform/UserDirectories.h"

#include "apps/cli/Activity.h"
#include "apps/cli/ArgumentChecks.h"
#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <span>
#include <vector>

namespace corvane::cli {

namespace {

using platform::Instant;
using platform::TimeZone;

std::string directoryOfBackups(const BackupsArguments& arguments) {
    if (!arguments.directory.empty()) {
        const auto url = platform::fileURLFromWorkingDirectory(arguments.directory);
        const auto path = url ? url->path() : std::nullopt;
        return path ? *path : throw Failure("there is no working directory");
    }
    const auto data = platform::userDirectory("XDG_DATA_HOME", ".local/share");
    if (!data) throw Failure("there is no home directory; --directory names one for backups");
    failOn(platform::createDirectories(*data + "/corvane", 0700));
    return fmt::format("{}/corvane/{}", *data, HGCorvaneBackupManagerDirectoryName);
}

/// The listing, which makes its directory where that is missing.
std::shared_ptr<EXFileItemsOverviewModel> listedBackups(const std::string& directory) {
    const auto backups =
        std::make_shared<EXFileItemsOverviewModel>(platform::URL::fileURLWithPath(directory));
    // Copies that were made in one moment, or where no time of creation is known.
    backups->setSortDescriptors(EXSortDescriptors{{std::string(EXFileItemCreatedKey), false},
                                                  {std::string(EXFileItemModifiedKey), false},
                                                  {std::string(EXFileItemFileNameKey), false}});
    backups->reloadData();
    if (backups->state() == EXOverviewModelStateError)
        throw Failure(backups->errorMessage().value_or("the backups cannot be listed"));
    return backups;
}

std::string timeText(Instant instant, const TimeZone& zone, const char* format) {
    const auto time = zone.civilFromInstant(instant);
    return fmt::format(fmt::runtime(format), time.year, time.month, time.day, time.hour,
                       time.minute, time.second);
}

/// A name that no file there has. It tells the time in UTC, which goes on when the clocks go back.
std::string freeName(const std::string& directory) {
    const std::string time = timeText(platform::currentClock().now(), TimeZone::utc(),
                                      "{:04}-{:02}-{:02}T{:02}-{:02}-{:02}Z");
    std::string name = backupFileName(time);
    for (int number = 2; platform::fileStatus(directory + "/" + name); ++number)
        name = backupFileName(fmt::format("{}-{}", time, number));
    return name;
}

std::string lineOf(const EXFileItem& item, const platform::FileStatus& status) {
    return fmt::format("  {}  {:>12} bytes  {}\n",
                       timeText(status.created.value_or(status.modified), TimeZone::current(),
                                "{:04}-{:02}-{:02} {:02}:{:02}:{:02}"),
                       status.size, onOneLine(item.fileName().value_or("")));
}

}  // namespace

void runListBackups(const BackupsArguments& arguments) {
    const std::string directory = directoryOfBackups(arguments);
    const auto backups = listedBackups(directory);
    std::vector<ListedFile> files;
    std::string text;
    for (const auto& item : backups->fileItems()) {
        const auto status = platform::fileStatus(item->url()->path().value_or(""));
        if (!status) continue;  // gone since it was listed
        files.push_back(
            {item->fileName().value_or(""), status->created, status->modified, status->size});
        text += lineOf(*item, *status);
    }
    if (arguments.json) return print(filesJson(directory, files));
    print(text.empty() ? "  no backups\n" : text);
}

void runMakeBackup(const BackupsArguments& arguments) {
    const std::string directory = directoryOfBackups(arguments);
    listedBackups(directory);
    platform::Error error;
    const auto content = platform::readTextFile(arguments.file, &error);
    if (!content) throw Failure(error);
    // What cannot be read cannot be restored, and is no backup.
    if (!backup::parseBackupDocument(*content, arguments.file, &error)) throw Failure(error);
    runInActivity("Making a backup", [&] {
        const auto lock = lockDirectories({directory});
        const std::string name = freeName(directory);
        failOn(platform::replaceFile(directory + "/" + name, std::as_bytes(std::span(*content)),
                                     platform::Durability::Synced));
        print(fmt::format("Made {} of {}\n", name, arguments.file));
    });
}

void runDeleteBackup(const BackupsArguments& arguments) {
    const std::string directory = directoryOfBackups(arguments);
    const auto lock = lockDirectories({directory});
    const auto backups = listedBackups(directory);
    const auto& items = backups->fileItems();
    const auto found = std::find_if(items.begin(), items.end(), [&](const auto& item) {
        return item->fileName() == arguments.name;
    });
    if (found == items.end())
        throw Failure(fmt::format("there is no backup '{}' in {}", arguments.name, directory));
    const EXObject item = *found;
    // Nor is a whole directory deleted in passing.
    const auto status = platform::fileStatus(directory + "/" + arguments.name);
    if (status && !status->isRegularFile)
        throw Failure(fmt::format("'{}' is not a file", arguments.name));
    backups->deleteObjectAtIndexPath(*backups->indexPathOfObject(item));
    if (backups->indexPathOfObject(item))
        throw Failure(fmt::format("'{}' is still there", arguments.name));
    print(fmt::format("Deleted {}\n", onOneLine(arguments.name)));
}

void addBackupsCommands(CLI::App& app, BackupsArguments& arguments, const CommandAdder& add) {
    auto* backups = add(app, kMainApplication, "backups", "List, make and delete backups",
                        [&] { arguments.run(arguments); });
    backups->require_subcommand(0, 1);
    backups
        ->add_option("--directory", arguments.directory,
                     "Where they are; the user's own unless given")
        ->check(checkNotEmpty)
        ->type_name("DIR");
    auto addOne = [&](const char* name, const char* help, void (*run)(const BackupsArguments&)) {
        auto* command = backups->add_subcommand(name, help)->group("Commands")->fallthrough();
        command->callback([&arguments, run] { arguments.run = run; });
        return command;
    };
    auto* list = addOne("list", "The newest first; also without a command", runListBackups);
    for (CLI::App* command : {backups, list})
        command->add_flag("--json", arguments.json, "Print JSON instead of text");
    addOne("make", "Copy a document", runMakeBackup)
        ->add_option("FILE", arguments.file, "The document")
        ->required()
        ->check(checkNotEmpty)
        ->type_name("");
    addOne("delete", "Delete a file of the list", runDeleteBackup)
        ->add_option("NAME", arguments.name, "As it is listed")
        ->required()
        ->check(checkNotEmpty)
        ->type_name("");
}

}  // namespace corvane::cli
