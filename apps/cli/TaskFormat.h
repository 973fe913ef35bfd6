// What a file of tasks can be: a todo.txt list or a backup document. The file's name tells.
#pragma once

#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/platform/Error.h"

#include "apps/cli/QueuedTask.h"
#include "apps/cli/TodoFile.h"
#include "apps/document/BackupDocument.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

/// Queued tasks on their way into a file. Entries are what a drain's journal keeps of them: they
/// mean the same whenever they are added, to whatever the file has become.
struct Intake {
    std::vector<std::string> entries;
    std::vector<std::string> warnings;  ///< what of the tasks gets lost
};

/// What a file of tasks says.
struct TaskSource {
    backup::BackupDocument document;
    std::vector<TodoFile::Problem> problems;  ///< lines of a list that are no tasks
    std::vector<TodoFile::Problem> losses;    ///< what lines say besides, and tasks do not
};

/// Has no state.
class TaskFormat {
  public:
    virtual ~TaskFormat() = default;

    /// A document for a name that ends in ".cvbx", a list for any other. Of a link, the name of
    /// what it leads to counts.
    static const TaskFormat& of(std::string_view path);

    /// Of a file without tasks.
    virtual std::string emptyContent() const = 0;

    /// The tasks of the content of the file of that name. Throws a Failure for what is no file of
    /// this format.
    virtual TaskSource read(std::string_view content, const std::string& name) const = 0;

    /// Names in `generalProjectNames` mean that a task is in no project.
    virtual Intake intakeOf(const HGInsertQueue::Batch& batch,
                            const GeneralProjectNames& generalProjectNames) const = 0;

    /// The content with the entries added; the same for the same content and entries. The empty
    /// content is that of a missing file.
    virtual std::optional<std::string> contentWithEntries(std::string content,
                                                          std::span<const std::string> entries,
                                                          const std::string& name,
                                                          platform::Error& error) const = 0;

    /// A line for people.
    virtual std::string shownEntry(const std::string& entry) const = 0;
};

/// The tasks of the file at the path, which the user knows as `name`. Throws a Failure where there
/// are none to be had.
TaskSource readTaskSource(const std::string& path, const std::string& name);

/// Tells on the console which lines are no tasks, and what becomes of them.
void reportProblems(const TaskSource& source, const std::string& name, std::string_view fate);

/// The tasks for publishing, with the problems reported.
backup::BackupDocument readTasks(const std::string& path, const std::string& name);

}  // namespace corvane::cli
