// The arguments of the commands for documents.
#pragma once

#include "apps/cli/DocumentCommands.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

namespace corvane::cli {

struct DocumentArguments {
    std::string file;
    std::string out;
    std::string uri;
    std::string field;
    std::string value;
    std::string url;
    std::string view = "today";
    std::string into;
    DetailQuestion detail;
    bool replaces = false;
    bool json = false;

    Format format() const { return json ? Format::JSON : Format::Text; }
};

/// Adds a command below `parent` that does `work` when it is asked for.
using CommandAdder = std::function<CLI::App*(CLI::App& parent, const char* role, const char* name,
                                             const char* description, std::function<void()> work)>;

/// Checks and keeps the arguments of each command, which must outlive the program's run.
void addDocumentCommands(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add);

}  // namespace corvane::cli
