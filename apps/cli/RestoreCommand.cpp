#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"

#include "apps/cli/Activity.h"
#include "apps/cli/Container.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/NewFile.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

#include <cerrno>
#include <span>

namespace corvane::cli {

namespace {

/// Byte by byte, and only then is there no longer anything to restore.
std::size_t restoreInto(const std::string& path) {
    const auto url = HGSharedContainer::defaultContainer().importedBackupFileURL();
    const std::string from = url ? url->path().value_or("") : "";
    if (platform::resolvedPath(from) == path) {
        throw Failure(fmt::format("'{}' is the document that was handed over itself", from));
    }
    platform::Error error;
    const auto content = platform::readTextFile(from, &error);
    if (!content && error.code == ENOENT) throw Failure("no document was handed over");
    if (!content) throw Failure(error);
    const auto document = backup::parseBackupDocument(*content, from, &error);
    if (!document) throw Failure(error);
    failOn(platform::replaceFile(path, std::as_bytes(std::span(*content)),
                                 platform::Durability::Synced));
    failOn(platform::removeFile(from));
    return document->tasks.size();
}

}  // namespace

void runRestore(const std::string& file, bool replaces) {
    const NewFile target(file, replaces, existingContainerPath());
    if (!backup::isBackupPath(target.path())) {
        throw Failure(fmt::format("'{}' is not a document: its name does not end in .cvbx", file));
    }
    runInActivity("Restoring a document", [&] {
        const std::size_t tasks = restoreInto(target.path());
        print(fmt::format("Restored {} into {}\n", counted(tasks, "task"), file));
    });
}

}  // namespace corvane::cli
