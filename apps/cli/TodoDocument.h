// A todo.txt list as the document that it stands for.
#pragma once

#include "apps/cli/TodoFile.h"
#include "apps/document/BackupDocument.h"

#include <vector>

namespace corvane::cli {

/// The tasks in the order of the file, and the projects, categories and portfolios in the order in
/// which the tasks first name them, besides the general project. The project "a/b" belongs to the
/// portfolio "a", and a project has the category of its first task with one.
///
/// The URI of a task is made of its line's bytes and of how many equal lines stand before it, so
/// that it stays the same when other lines come and go.
backup::BackupDocument documentOf(const TodoFile& file);

/// What the lines say and the document does not: a task has one status, and one of five priorities.
std::vector<TodoFile::Problem> lossesOf(const TodoFile& file);

}  // namespace corvane::cli
