// The settings of tables as controls. One thread: the one of the windows.
#pragma once

#include <memory>
#include <vector>

namespace corvane::views {
class View;
}

namespace corvane::gallery {

class TaskTable;

using TaskTables = std::vector<std::shared_ptr<TaskTable>>;

/// A panel whose controls begin with the settings of the first table, and change all of them.
std::shared_ptr<views::View> makeTableSettingsPanel(const TaskTables& tables);

}  // namespace corvane::gallery
