// Has a table show and edit tasks, and notes what the table tells. One thread: the one that draws.
#pragma once

#include "corvane/table/CVMacTableView.h"

#include "apps/gallery/ExampleTasks.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::gallery {

/// Data source and delegate in one. Held by std::shared_ptr.
class TaskTable : public CVMacTableViewDataSource,
                  public CVMacTableViewDelegate,
                  public std::enable_shared_from_this<TaskTable> {
  public:
    using Table = CVMacTableView;
    using Path = CVIndexPath;
    using CellPtr = std::shared_ptr<CVMacTableViewCell>;
    using Log = std::function<void(const std::string& line)>;

    /// With a table of that name, which is loaded.
    static std::shared_ptr<TaskTable> make(std::string name, std::vector<ExampleSection> sections,
                                           Log log);

    Table& table() { return *table_; }
    const std::shared_ptr<Table>& sharedTable() const { return table_; }
    const std::vector<ExampleSection>& sections() const { return sections_; }
    void setSections(std::vector<ExampleSection> sections);
    /// None where there is no such task.
    std::optional<std::string> titleAt(const Path& path);

    /// Whether rows may be edited, moved and deleted.
    void setEditable(bool editable) { editable_ = editable; }
    /// Only tasks with the text in their titles stay visible; all of them for an empty one.
    void filter(const std::string& text);

    CellPtr tableViewCellForRowAtIndexPath(Table& table, const Path& path,
                                           const CellPtr& reusableCell) override;
    std::int64_t numberOfSectionsInTableView(Table& table) override;
    std::optional<std::string> tableViewTitleForHeaderInSection(Table& table,
                                                                std::int64_t section) override;
    std::int64_t tableViewNumberOfRowsInSection(Table& table, std::int64_t section) override;

  private:
    TaskTable(std::string name, std::vector<ExampleSection> sections, Log log);
    void answerQuestions();
    void followEditing();
    void followSelection();
    void followDrops();
    void commit(CVMacTableViewEditingStyle style, const Path& path);
    void move(const Path& from, const Path& to);
    bool takeRows(const std::vector<Path>& paths, Table& source, const Path& target);
    void append(const std::string& title, const Path& near);
    std::shared_ptr<views::Menu> menuFor(const Path& path);
    std::vector<ExampleTask>& tasksOf(const Path& path);
    ExampleTask* taskAt(const Path& path);
    void note(const std::string& what, const std::optional<Path>& path = std::nullopt);

    std::string name_;
    std::vector<ExampleSection> sections_;
    Log log_;
    std::shared_ptr<Table> table_;
    bool editable_ = true;
};

}  // namespace corvane::gallery
