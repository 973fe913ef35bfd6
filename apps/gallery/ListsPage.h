// Two tables and a list side by side, with their settings. One thread, the window's.
#pragma once

#include "apps/gallery/Stack.h"
#include "apps/gallery/TableSettingsPanel.h"
#include "apps/gallery/Tools.h"

#include <memory>

namespace corvane::gallery {

class TaskList;

class ListsPage final : public Stack {
  public:
    /// Of the example tasks, or of what is published.
    ListsPage(const std::optional<PublishedTasks>& published, const Notes& note);

    TaskTable& leftTable() { return *tables_.front(); }
    TaskTable& rightTable() { return *tables_.back(); }

  private:
    TaskTables tables_;
    std::shared_ptr<TaskList> list_;
};

}  // namespace corvane::gallery
