// The list of the gallery's pages, from the tools that are registered. One thread, the window's.
#pragma once

#include "corvane/table/CVMacTableView.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {
class CVTool;
}

namespace corvane::gallery {

/// Data source and delegate of the list. Held by std::shared_ptr.
class SourceList final : public CVMacTableViewDataSource, public CVMacTableViewDelegate {
  public:
    using Table = CVMacTableView;
    using Path = CVIndexPath;
    using CellPtr = std::shared_ptr<CVMacTableViewCell>;

    static std::shared_ptr<SourceList> make();

    const std::shared_ptr<Table>& table() const { return table_; }
    /// Selects the tool's row, which tells didSelect. False where there is no such tool.
    bool select(std::string_view identifier);

    std::function<void(CVTool& tool)> didSelect;

    CellPtr tableViewCellForRowAtIndexPath(Table& table, const Path& path,
                                           const CellPtr& reusableCell) override;
    std::int64_t numberOfSectionsInTableView(Table& table) override;
    std::optional<std::string> tableViewTitleForHeaderInSection(Table& table,
                                                                std::int64_t section) override;
    std::int64_t tableViewNumberOfRowsInSection(Table& table, std::int64_t section) override;

  private:
    SourceList();

    std::shared_ptr<Table> table_;
};

}  // namespace corvane::gallery
