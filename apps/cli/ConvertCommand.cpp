#include "corvane/logging/Log.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileReplacement.h"

#include "apps/cli/Activity.h"
#include "apps/cli/Container.h"
#include "apps/cli/Conversion.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/NewFile.h"
#include "apps/cli/TaskFormat.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

#include <span>

namespace corvane::cli {

namespace {

void warn(const std::string& text) {
    platform::currentConsole().writeLine("corvane: " + text);
}

void writeList(const backup::BackupDocument& document, const std::string& path,
               const std::string& out) {
    const ConvertedList list = listOf(document);
    failOn(platform::replaceFile(path, std::as_bytes(std::span(list.content)),
                                 platform::Durability::Synced));
    for (const std::string& loss : list.losses)
        warn(loss);
    if (list.losses.empty()) return;
    warn(fmt::format("{} cannot hold all of {}", out, counted(list.losses.size(), "record")));
}

void convert(const std::string& in, const std::string& path, const std::string& out) {
    TaskSource source = readTaskSource(in, in);
    reportProblems(source, in, "the line is left out");
    for (const auto& [number, what] : source.losses)
        warn(fmt::format("{}:{}: the task loses {}", in, number, what));
    const std::size_t lost = source.problems.size() + source.losses.size();
    if (backup::isBackupPath(path)) {
        fillCollations(source.document);
        failOn(backup::saveBackupDocument(source.document, path));
    } else {
        writeList(source.document, path, out);
    }
    if (lost > 0) warn(fmt::format("{} cannot hold all of {}", out, counted(lost, "line")));
    const std::string tasks = counted(source.document.tasks.size(), "task");
    print(fmt::format("Converted {} from {} to {}\n", tasks, in, out));
    logging::log(logging::Level::Information, "convert: {} from {} to {}", tasks, in, out);
}

}  // namespace

void runConvert(const std::string& in, const std::string& out, bool replaces) {
    const NewFile file(out, replaces);
    runInActivity("Converting tasks", [&] { convert(in, file.path(), out); });
}

}  // namespace corvane::cli
