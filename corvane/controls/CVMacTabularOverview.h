// An overview whose main list has columns, with a header to size them and to sort by them.
#pragma once

#include "corvane/controls/CVMacOverview.h"
#include "corvane/controls/TabularColumns.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class CVMacTabularCell;
class TabularHeader;

/// Its rows are CVMacTabularCell objects, which the controller fills column by column.
///
///     overview->setColumns({{.identifier = "title", .title = "Title", .stretches = true},
///                           {.identifier = "due", .title = "Due", .width = 90, .sortable =
///                           true}});
class CVMacTabularOverview : public CVMacOverview {
  public:
    CVMacTabularOverview();
    ~CVMacTabularOverview() override;

    const std::vector<Column>& columns() const { return columns_->columns(); }
    void setColumns(std::vector<Column> columns);
    double widthOfColumn(const std::string& identifier) const;  ///< 0 where there is none
    void setWidthOfColumn(const std::string& identifier, double width);

    /// Remembers the widths and the sorting that the user chooses under the name among the user's
    /// settings, and takes over what is remembered there, now and for columns that are set later.
    /// What is damaged is passed over. Empty for none.
    void setColumnsAutosaveName(std::string name);

    /// What the header shows; sorting is up to whoever has the rows.
    void setSorting(const std::string& identifier, bool ascending);
    const std::string& sortIdentifier() const { return columns_->sortIdentifier(); }
    bool sortsAscending() const { return columns_->sortsAscending(); }

    /// The user chose a column to sort by, or the other direction. The header shows it already.
    std::function<void(const std::string& identifier, bool ascending)> didSelectColumnForSorting;
    /// The user has made a column wider or narrower.
    std::function<void(const std::string& identifier, double width)> didResizeColumn;

    const std::shared_ptr<TabularHeader>& columnHeader() const { return header_; }

  private:
    void columnsDidChange();
    void saveColumns() const;
    void forEachRow(void (*act)(CVMacTabularCell&));

    std::shared_ptr<TabularColumns> columns_;
    std::shared_ptr<TabularHeader> header_;
    std::string columnsAutosaveName_;
};

}  // namespace corvane
