// Backups of documents: dated copies in a directory of their own.
#pragma once

#include "apps/cli/DocumentArguments.h"

#include <optional>
#include <string>

namespace corvane::cli {

struct BackupsArguments;

// Each does its work and prints its result; where it cannot, it throws a Failure.

/// The newest first, with all that stands in the directory besides.
void runListBackups(const BackupsArguments& arguments);
/// A whole document only, on the disk before success is reported.
void runMakeBackup(const BackupsArguments& arguments);
/// A file of the directory, by its name there.
void runDeleteBackup(const BackupsArguments& arguments);

struct BackupsArguments {
    std::string directory;  ///< empty for that of the user
    std::string file;
    std::string name;
    bool json = false;
    void (*run)(const BackupsArguments&) = runListBackups;
};

/// Adds the commands. Keeps their arguments, which must outlive the program's run.
void addBackupsCommands(CLI::App& app, BackupsArguments& arguments, const CommandAdder& add);

}  // namespace corvane::cli
