#include "apps/cli/TodoDocument.h"

#include "apps/cli/RecordsByName.h"
#include "apps/cli/TextHash.h"

#include <fmt/format.h>

#include <set>
#include <unordered_map>

namespace corvane::cli {

namespace {

using backup::URL;

/// Hands out the URIs of the tasks of one list.
class TaskURIs {
  public:
    URL uriOf(const std::string& line) {
        std::uint64_t hash = 0;
        do {
            hash = stableHash(fmt::format("{}\n{}", line, ordinals_[line]++));
        } while (!used_.insert(hash).second);
        return URL(fmt::format("x-corvane-todo://task/{:016x}", hash));
    }

  private:
    std::unordered_map<std::string, int> ordinals_;
    std::set<std::uint64_t> used_;
};

backup::Context primaryContext(const URL& category) {
    backup::Context context;
    context.primary = true;
    context.category = category;
    return context;
}

backup::Task taskOf(const TodoLine& line, RecordsByName& records) {
    backup::Task task;
    task.titleRaw = line.title;
    task.notes = line.notes;
    if (line.starred) task.starredRaw = true;
    task.priorityRaw = line.priority;
    task.statusRaw = line.status();
    task.dueRaw = line.due;
    if (line.category) {
        task.contexts.push_back(primaryContext(records.category(*line.category).first.uri));
    }
    if (!line.project) return task;
    backup::Project& project = records.project(*line.project).first;
    task.projectRaw = project.uri;
    if (project.contexts.empty()) project.contexts = task.contexts;
    return task;
}

}  // namespace

backup::BackupDocument documentOf(const TodoFile& file) {
    backup::BackupDocument document;
    document.projects.push_back(newGeneralProject());
    document.tasks.reserve(file.tasks().size());
    RecordsByName records(document);
    TaskURIs uris;
    for (const TodoFile::Task& line : file.tasks()) {
        backup::Task task = taskOf(line.line, records);
        task.uri = uris.uriOf(line.text);
        document.tasks.push_back(std::move(task));
    }
    return document;
}

std::vector<TodoFile::Problem> lossesOf(const TodoFile& file) {
    std::vector<TodoFile::Problem> losses;
    for (const auto& [number, text, line] : file.tasks()) {
        if (line.completed && line.onHold) losses.push_back({number, "@waiting, being completed"});
        const std::size_t mark = line.completed ? 2 : 0;
        const char letter = line.priority == 0 ? text[mark + 1] : 'E';
        if (letter != 'E') losses.push_back({number, fmt::format("({}), being trivial", letter)});
    }
    return losses;
}

}  // namespace corvane::cli
