#include "apps/cli/DocumentArguments.h"

#include "apps/cli/ArgumentChecks.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/document/BackupFile.h"

#include <variant>

namespace corvane::cli {

namespace {

constexpr const char* kCommands = "Commands";

std::string checkDocument(const std::string& text) {
    return backup::isBackupPath(text)
               ? ""
               : "'" + text + "' is not a document: its name does not end in .cvbx";
}

std::string checkURL(const std::string& text) {
    const auto request = schemeRequestOf(text);
    const auto* complaint = std::get_if<std::string>(&request);
    return complaint ? *complaint : "";
}

CLI::Option* addPositional(CLI::App* command, const char* name, std::string& value,
                           const char* help) {
    return command->add_option(name, value, help)->required()->check(checkNotEmpty)->type_name("");
}

void addFileOption(CLI::App* command, DocumentArguments& arguments) {
    command->add_option("--file", arguments.file, "The document")
        ->required()
        ->check(checkDocument)
        ->type_name("FILE");
}

void addForceFlag(CLI::App* command, DocumentArguments& arguments) {
    command->add_flag("--force", arguments.replaces, "Replace a file that is there");
}

void addFileCommands(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add) {
    auto* convert = add(app, kMainApplication, "convert", "Turn a list into a document, or back",
                        [&] { runConvert(arguments.file, arguments.out, arguments.replaces); });
    addPositional(convert, "IN", arguments.file, "A todo.txt list or a document (.cvbx)");
    addPositional(convert, "OUT", arguments.out, "What it becomes, by the same rule");
    addForceFlag(convert, arguments);

    auto* exported = add(app, kMainApplication, "export-csv", "Write the tasks as a table",
                         [&] { runExportCSV(arguments.file, given(arguments.out)); });
    addPositional(exported, "FILE", arguments.file, "The list or document");
    exported->add_option("-o", arguments.out, "Where to; a temporary file unless given")
        ->check(checkNotEmpty)
        ->type_name("OUT");

    auto* restore = add(app, kMainApplication, "restore", "Take a document that was handed over",
                        [&] { runRestore(arguments.file, arguments.replaces); });
    addPositional(restore, "FILE", arguments.file, "The document that it becomes")
        ->check(checkDocument);
    addForceFlag(restore, arguments);

    auto* import = add(app, kCompanion, "import", "Hand a document over to the main application",
                       [&] { runImport(arguments.file); });
    addPositional(import, "FILE", arguments.file, "The document")->check(checkDocument);
}

void addChangeCommands(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add) {
    auto* complete = add(app, kMainApplication, "complete", "Complete a task of a document",
                         [&] { runComplete(arguments.file, arguments.uri); });
    addPositional(complete, "URI", arguments.uri, "The task's");
    addFileOption(complete, arguments);

    auto* set = add(app, kMainApplication, "set", "Change a field of a document's record", [&] {
        runSet(arguments.file, arguments.uri, arguments.field, arguments.value);
    });
    addPositional(set, "URI", arguments.uri, "The record's");
    addPositional(set, "FIELD", arguments.field, "Such as title, notes, due, status, project");
    set->add_option("VALUE", arguments.value, "What it becomes; empty to clear it")
        ->required()
        ->check(checkUTF8)
        ->type_name("");
    addFileOption(set, arguments);
}

void addDetailCommand(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add) {
    auto* detail =
        add(app, kMainApplication, "detail", "Show the form of a task, or set a field", [&] {
            arguments.detail.file = arguments.file;
            runDetail(arguments.detail, arguments.format());
        });
    addPositional(detail, "URI", arguments.detail.uri, "The task's; \"new\" for one to be added");
    auto* field = detail->add_option("FIELD", arguments.detail.field, "What to set, as shown");
    field->check(checkNotEmpty)->type_name("");
    auto* value =
        detail->add_option("VALUE", arguments.detail.value, "What it becomes; empty to clear it");
    value->check(checkUTF8)->type_name("");
    field->needs(value);
    addFileOption(detail, arguments);
    detail->add_flag("--json", arguments.json, "Show the form as JSON instead of text")
        ->excludes(field);
}

void addOpenCommand(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add) {
    auto* open =
        add(app, kMainApplication, "open", "Do what a URL of the application asks for", [&] {
            runOpen(std::get<SchemeRequest>(schemeRequestOf(arguments.url)), arguments.format());
        });
    addPositional(open, "URL", arguments.url, "Such as corvane://showToday")->check(checkURL);
    open->add_flag("--json", arguments.json, "Show a view as JSON instead of text");
}

void addWatchCommands(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add) {
    auto* watch = app.add_subcommand("watch", "Play the watch")->group(kCompanion);
    watch->require_subcommand(1)->fallthrough();
    auto* request =
        add(*watch, kCommands, "request", "Get the shared info by message, and show a view", [&] {
            runWatchRequest(views().at(arguments.view), given(arguments.into), arguments.format());
        });
    request->add_option("VIEW", arguments.view, "inbox, today (unless given), next or waiting-for")
        ->check(checkView)
        ->type_name("");
    request->add_option("--into", arguments.into, "Keep it in the watch's own container")
        ->check(checkNotEmpty)
        ->type_name("DIR");
    request->add_flag("--json", arguments.json, "Print JSON instead of text");

    auto* complete = add(*watch, kCommands, "complete", "Have a task completed by message",
                         [&] { runWatchComplete(arguments.file, arguments.uri); });
    addPositional(complete, "URI", arguments.uri, "The task's");
    addFileOption(complete, arguments);
}

}  // namespace

void addDocumentCommands(CLI::App& app, DocumentArguments& arguments, const CommandAdder& add) {
    addFileCommands(app, arguments, add);
    addChangeCommands(app, arguments, add);
    addDetailCommand(app, arguments, add);
    addOpenCommand(app, arguments, add);
    addWatchCommands(app, arguments, add);
}

}  // namespace corvane::cli
