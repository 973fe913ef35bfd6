// Where a table has its rows from, and what it does to them.
#pragma once

#include "corvane/models/CVIndexPath.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

class CVMacTableView;
class CVMacTableViewCell;

/// What becomes of a row that is committed.
enum class CVMacTableViewEditingStyle : std::int32_t {
    Delete = 1,
    Insert = 2,  ///< a placeholder was filled in
    Edit = 3,    ///< its value was edited in place
};

/// The table holds a weak reference. Operations may change the table that they are called from.
class CVMacTableViewDataSource {
  public:
    using Table = CVMacTableView;
    using Path = CVIndexPath;
    using CellPtr = std::shared_ptr<CVMacTableViewCell>;
    using RowQuestion = std::function<bool(Table&, const Path&)>;

    virtual ~CVMacTableViewDataSource() = default;

    /// The row's cell: the reusable one, filled again, or a new one.
    virtual CellPtr tableViewCellForRowAtIndexPath(Table& table, const Path& path,
                                                   const CellPtr& reusableCell) = 0;
    virtual std::int64_t numberOfSectionsInTableView(Table& table) = 0;
    /// None for a section without header.
    virtual std::optional<std::string> tableViewTitleForHeaderInSection(Table& table,
                                                                        std::int64_t section) = 0;
    virtual std::int64_t tableViewNumberOfRowsInSection(Table& table, std::int64_t section) = 0;

    // The rest may be left empty.

    RowQuestion tableViewCanEditRowAtIndexPath;
    std::function<void(Table&, CVMacTableViewEditingStyle, const Path&)>
        tableViewCommitEditingStyle;
    RowQuestion tableViewCanMoveRowAtIndexPath;
    std::function<void(Table&, const Path& from, const Path& to)> tableViewMoveRowAtIndexPath;
    std::function<void(Table&)> beginMovingRowsInTableView;
    std::function<void(Table&)> commitMovingRowsInTableView;
    RowQuestion tableViewCanStartInlineEditingRowAtIndexPath;
    std::function<std::optional<Path>(Table&, std::int64_t section)>
        tableViewPlaceholderIndexPathForAppendingToSection;
    std::function<CellPtr(Table&, const Path&)> tableViewPlaceholderCellForRowAtIndexPath;
    RowQuestion tableViewCanInlineInsertRowAtIndexPath;
    RowQuestion tableViewCanInlineEditRowAtIndexPath;

    /// As the delegate's operation of the name, which follows the pointer; this one decides whether
    /// and where dragged rows may go when they are dropped, which is a matter of the data.
    std::function<std::optional<Path>(Table&, const Path& from, const Path& proposed)>
        tableViewTargetIndexPathForMove;
};

}  // namespace corvane
