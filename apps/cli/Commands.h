// The program's commands. Each does its work and prints its result; where it cannot, it throws a
// Failure.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/Locale.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::cli {

enum class Format { Text, JSON };

// As the main application.
void runPublish(const std::string& file);
void runDrain(const std::string& file);

// As a companion.
enum class View { Inbox, Today, Next, WaitingFor };
void runShow(View view, Format format);
void runProjects(Format format);
void runCategories(Format format);

/// Of a document where one is named, in sections; else of what was published.
struct TasksQuestion {
    std::optional<std::string> project;
    std::optional<std::string> document;
    bool byStatus = false;  ///< else by project
};
void runTasks(const TasksQuestion& question, Format format);

struct NewTask {
    std::string title;
    std::optional<std::string> notes;
    std::optional<EXDateOnly> due;
    std::optional<std::string> project;
    std::optional<std::string> category;
    std::optional<std::int16_t> priority;
    bool starred = false;
};
void runAdd(const NewTask& newTask);

// As anyone.
void runStatus(Format format);

struct WhenQuestion {
    std::string text;
    std::optional<platform::Locale> locale;  ///< Of the formats and of the language.
    std::optional<EXDateOnly> today;
    bool field = false;  ///< As a date field reads it.
};
void runWhen(const WhenQuestion& question, Format format);

/// Without a key, all settings. Not both a value and the wish for the default.
struct PrefsQuestion {
    std::optional<std::string> key;
    std::optional<std::string> value;
    bool reset = false;
};
void runPrefs(const PrefsQuestion& question, Format format);

void runInspect(const std::string& file);

}  // namespace corvane::cli
