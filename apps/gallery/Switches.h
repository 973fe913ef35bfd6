// The settings of tables as controls. One thread: the one of the windows.
#pragma once

#include <memory>
#include <vector>

class QWidget;

namespace corvane::gallery {

class TaskTable;

using TaskTables = std::vector<std::shared_ptr<TaskTable>>;

/// A panel whose controls begin with the settings of the first table, and change all of them.
QWidget* makeSwitches(const TaskTables& tables, QWidget* parent);

}  // namespace corvane::gallery
