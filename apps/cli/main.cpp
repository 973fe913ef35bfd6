// corvane: plays the main application and its companions from the command line.

#include "corvane/platform/GroupContainer.h"
#include "corvane/platform/KnownLocales.h"
#include "corvane/platform/UserDefaultsLocation.h"

#include "apps/ExitCodes.h"
#include "apps/cli/ArgumentChecks.h"
#include "apps/cli/BackupsCommand.h"
#include "apps/cli/Commands.h"
#include "apps/cli/DocumentArguments.h"
#include "apps/cli/Failure.h"
#include "apps/cli/PriorityNames.h"
#include "apps/cli/ProgramLog.h"
#include "apps/cli/TextOutput.h"
#include "apps/cli/TodoLine.h"
#include "apps/cli/TypedDay.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <functional>

namespace corvane::cli {

namespace {

/// What the command line says, and the command it asks for.
struct Arguments {
    std::string container;
    std::string file;
    std::string view = "today";
    std::string project;
    std::string category;
    std::string notes;
    std::string due;
    std::string priority;
    std::string text;
    std::string locale;
    std::string today;
    bool field = false;
    bool json = false;
    ProgramLog::Options log;
    NewTask newTask;
    TasksQuestion tasks;
    std::string settings;
    PrefsQuestion prefs;
    DocumentArguments document;
    BackupsArguments backups;
    std::string commandName;
    std::function<void()> command;

    Format format() const { return json ? Format::JSON : Format::Text; }
};

std::string checkTitle(const std::string& text) {
    return heldTitle(text).empty() ? "a task needs a title" : checkUTF8(text);
}

std::string checkDay(const std::string& text) {
    return existingDay(text) ? "" : "'" + text + "' is not a day such as 2024-03-05";
}

std::string checkTypedDay(const std::string& text) {
    return typedDay(text) ? "" : "'" + text + "' is not a day such as 2024-03-05 or a weekday";
}

std::string checkLocale(const std::string& text) {
    return platform::knownLocale(text) ? "" : "there is no locale '" + text + "'";
}

std::string checkPriority(const std::string& text) {
    return priorityNamed(text) ? "" : "there is no priority '" + text + "'";
}

CLI::App* addCommand(CLI::App& app, Arguments& arguments, const char* role, const char* name,
                     const char* description, std::function<void()> command) {
    CLI::App* added = app.add_subcommand(name, description)->group(role);
    added->callback([&arguments, name, command = std::move(command)] {
        arguments.commandName = name;
        arguments.command = command;
    });
    return added;
}

void addJsonFlag(CLI::App* command, Arguments& arguments) {
    command->add_flag("--json", arguments.json, "Print JSON instead of text");
}

void addMainApplicationCommands(CLI::App& app, Arguments& arguments) {
    addCommand(app, arguments, kMainApplication, "publish",
               "Publish a todo.txt list to the companions", [&] { runPublish(arguments.file); })
        ->add_option("FILE", arguments.file, "The list")
        ->required()
        ->type_name("");
    addCommand(app, arguments, kMainApplication, "drain",
               "Move queued tasks into a list and publish it again",
               [&] { runDrain(arguments.file); })
        ->add_option("FILE", arguments.file, "The list; made when missing")
        ->required()
        ->type_name("");
}

void addViewCommands(CLI::App& app, Arguments& arguments) {
    auto* show = addCommand(app, arguments, kCompanion, "show", "Show one of the four views",
                            [&] { runShow(views().at(arguments.view), arguments.format()); });
    show->add_option("VIEW", arguments.view, "inbox, today (unless given), next or waiting-for")
        ->check(checkView)
        ->type_name("");
    addJsonFlag(show, arguments);

    addJsonFlag(
        addCommand(app, arguments, kCompanion, "projects", "Show the projects to choose from",
                   [&] { runProjects(arguments.format()); }),
        arguments);
    addJsonFlag(
        addCommand(app, arguments, kCompanion, "categories", "Show the categories to choose from",
                   [&] { runCategories(arguments.format()); }),
        arguments);

    auto* tasks = addCommand(app, arguments, kCompanion, "tasks",
                             "Show all tasks, those of one project, or those of a document",
                             [&] { runTasks(arguments.tasks, arguments.format()); });
    auto* project =
        tasks->add_option("--project", arguments.tasks.project, "Only the tasks of this project");
    project->check(checkNotEmpty)->type_name("NAME");
    auto* document = tasks->add_option("--document", arguments.tasks.document,
                                       "Instead of what was published; in sections, by project");
    document->check(checkNotEmpty)->type_name("FILE")->excludes(project);
    tasks->add_flag("--by-status", arguments.tasks.byStatus, "In sections by status instead")
        ->needs(document);
    addJsonFlag(tasks, arguments);
}

void queueNewTask(Arguments& arguments) {
    NewTask& newTask = arguments.newTask;
    newTask.notes = given(arguments.notes);
    newTask.due = typedDay(arguments.due);
    newTask.project = given(arguments.project);
    newTask.category = given(arguments.category);
    if (auto priority = given(arguments.priority)) {
        newTask.priority = priorityNamed(*priority);
    }
    runAdd(newTask);
}

void addAddCommand(CLI::App& app, Arguments& arguments) {
    auto* add =
        addCommand(app, arguments, kCompanion, "add", "Queue a new task for the main application",
                   [&] { queueNewTask(arguments); });
    auto option = [&](const char* name, std::string& value, const char* help, const char* type) {
        return add->add_option(name, value, help)->check(checkNotEmpty)->type_name(type);
    };
    add->add_option("TITLE", arguments.newTask.title, "What is to be done")
        ->required()
        ->check(checkTitle)
        ->type_name("");
    option("--notes", arguments.notes, "More about it; may have several lines", "TEXT");
    option("--due", arguments.due, "The day by which it is to be done; see 'when'", "DAY")
        ->check(checkTypedDay);
    option("--project", arguments.project, "Its project, known or new", "NAME");
    option("--category", arguments.category, "Its category, known or new", "NAME");
    option("--priority", arguments.priority,
           "critical, high, medium (unless given), low or trivial; or A to E", "PRIORITY")
        ->check(checkPriority);
    add->add_flag("--star", arguments.newTask.starred, "Star it");
}

void addWhenCommand(CLI::App& app, Arguments& arguments) {
    auto* when =
        addCommand(app, arguments, kAnyone, "when", "Show which day or time a text means", [&] {
            runWhen({arguments.text, platform::knownLocale(arguments.locale),
                     existingDay(arguments.today), arguments.field},
                    arguments.format());
        });
    when->add_option("TEXT", arguments.text, "A word, a date or a time")
        ->required()
        ->check(checkNotEmpty)
        ->type_name("");
    when->add_option("--locale", arguments.locale, "Instead of the user's, such as de_DE")
        ->check(checkLocale)
        ->type_name("LOCALE");
    when->add_option("--today", arguments.today, "As if it were this day")
        ->check(checkDay)
        ->type_name("YYYY-MM-DD");
    when->add_flag("--field", arguments.field, "As a date field reads and shows it");
    addJsonFlag(when, arguments);
}

void addPrefsCommand(CLI::App& app, Arguments& arguments) {
    auto* prefs = addCommand(app, arguments, kAnyone, "prefs", "Show the settings, or change one",
                             [&] { runPrefs(arguments.prefs, arguments.format()); });
    prefs->add_option("KEY", arguments.prefs.key, "Only this one")->type_name("");
    auto* value = prefs->add_option("VALUE", arguments.prefs.value, "What it becomes");
    value->type_name("");
    prefs->add_flag("--reset", arguments.prefs.reset, "Set KEY to its default")
        ->needs("KEY")
        ->excludes(value);
    addJsonFlag(prefs, arguments);
}

void addOtherCommands(CLI::App& app, Arguments& arguments) {
    addWhenCommand(app, arguments);
    addPrefsCommand(app, arguments);
    addJsonFlag(
        addCommand(app, arguments, kAnyone, "status", "Show the container's state and the badges",
                   [&] { runStatus(arguments.format()); }),
        arguments);
    addCommand(app, arguments, kAnyone, "inspect", "Show any keyed archive as JSON",
               [&] { runInspect(arguments.file); })
        ->add_option("FILE", arguments.file, "The archive")
        ->required()
        ->type_name("");
}

void describe(CLI::App& app, Arguments& arguments) {
    app.description(
        "Plays the main application and its companions, which share a container: a directory\n"
        "with what the main application has published and the tasks queued for it.");
    app.footer(
        "--container DIR may stand before or after the command. Without it, CORVANE_CONTAINER "
        "names\n"
        "the directory, and without that it is the user's own.\n"
        "Exit status: 0 done, 1 failed, 2 wrong usage.");
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", "corvane " CORVANE_VERSION);
    app.add_option("--container", arguments.container, "The directory of the container")
        ->check(checkNotEmpty)
        ->type_name("DIR");
    app.add_option("--settings", arguments.settings, "The directory of the settings")
        ->check(checkNotEmpty)
        ->type_name("DIR");
    app.add_flag("--log", arguments.log.file, "Tell what was done in the user's log files");
    app.add_flag("--verbose", arguments.log.verbose, "Tell more, on standard error");
    addMainApplicationCommands(app, arguments);
    addViewCommands(app, arguments);
    addAddCommand(app, arguments);
    const CommandAdder add = [&arguments](CLI::App& parent, auto... rest) {
        return addCommand(parent, arguments, rest...);
    };
    addDocumentCommands(app, arguments.document, add);
    addBackupsCommands(app, arguments.backups, add);
    addOtherCommands(app, arguments);
}

/// What is wrong with the command line.
std::string complaint(const CLI::App& app, const CLI::ParseError& error) {
    bool needsCommand = app.get_subcommands().empty() && error.get_name() == "RequiredError";
    if (!needsCommand) return error.what();
    const auto unknown = app.remaining();
    return unknown.empty() ? "a command is needed" : "there is no command '" + unknown[0] + "'";
}

int fail(const ProgramLog& log, const std::string& message) {
    // What was printed before it belongs before it.
    flushOutput();
    log.failed(message);
    return kFailed;
}

int run(const Arguments& arguments) {
    if (auto container = given(arguments.container)) platform::setGroupContainerOverride(container);
    if (auto directory = given(arguments.settings))
        platform::setUserDefaultsDirectoryOverride(directory);
    platform::setApplicationIdentifier("corvane");
    const ProgramLog log(arguments.log, arguments.commandName);
    try {
        arguments.command();
    } catch (const WrongUsage& error) {
        fail(log, error.what());
        return kWrongUsage;
    } catch (const std::exception& error) {
        return fail(log, error.what());
    }
    if (!flushOutput()) return fail(log, "cannot write the output");
    log.succeeded();
    return kDone;
}

int main(int argc, char** argv) {
    CLI::App app("", "corvane");
    Arguments arguments;
    describe(app, arguments);
    nameDays();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        fmt::print(stderr, "corvane: {}\n`corvane --help` tells how to use it.\n",
                   onOneLine(complaint(app, error)));
        return kWrongUsage;
    }
    return run(arguments);
}

}  // namespace

}  // namespace corvane::cli

int main(int argc, char** argv) {
    return corvane::cli::main(argc, argv);
}
