// What a row asks of its table: the requests that keys and clicks in it become.
#pragma once

#include "corvane/models/CVIndexPath.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace corvane {

namespace views {
class Menu;
class TextField;
class View;
}  // namespace views

class CVMacTableViewCell;

enum class CVMacTableViewSelectionMode : std::int32_t {
    Alone = 0,
    Add = 1,
    Remove = 2,
    Range = 3,  ///< from the row that was selected last, to this one
};

/// The cell holds a weak reference. A request may take the cell out of its table.
class CVMacTableViewCellDelegate {
  public:
    using Cell = CVMacTableViewCell;
    using MenuPtr = std::shared_ptr<views::Menu>;

    virtual ~CVMacTableViewCellDelegate() = default;

    virtual bool tableViewAllowsMultipleSelections() = 0;
    virtual std::set<CVIndexPath> allIndexPathsForSelectedRows() = 0;
    virtual bool supportsLeftRightCursorMovement() const = 0;
    virtual void didSelectRowAtIndexPath(const CVIndexPath& path,
                                         CVMacTableViewSelectionMode mode) = 0;
    virtual void cellDidSelectAllRows(Cell& cell) = 0;
    virtual void didDoubleClickRowAtIndexPath(const CVIndexPath& path) = 0;
    virtual void willTapAccessoryButtonForRowWithIndexPath(const CVIndexPath& path) = 0;
    virtual void accessoryButtonTappedForRowWithIndexPath(const CVIndexPath& path) = 0;
    virtual void accessoryButtonDoubleTappedForRowWithIndexPath(const CVIndexPath& path) = 0;
    virtual void cellDidAutoResizeControl(Cell& cell, views::View& control) = 0;
    virtual void cellSchedulesCancelEditingPlaceholder(Cell& cell) = 0;
    virtual void cellDidChangeValueForView(Cell& cell, views::View& view) = 0;
    virtual bool cellCanInlineInsert(Cell& cell) = 0;
    virtual void cellRequestsNextKeyViewByInsert(Cell& cell) = 0;
    virtual void cellRequestsPreviousKeyViewByInsert(Cell& cell) = 0;
    virtual void cellRequestsNextKeyView(Cell& cell) = 0;
    virtual void cellRequestsPreviousKeyView(Cell& cell) = 0;
    virtual void cellDidDeleteRow(Cell& cell) = 0;
    virtual void cellRequestsNextCell(Cell& cell, bool extendingSelection) = 0;
    virtual void cellRequestsPreviousCell(Cell& cell, bool extendingSelection) = 0;
    virtual void cellRequestsNextSection(Cell& cell, bool extendingSelection) = 0;
    virtual void cellRequestsPreviousSection(Cell& cell, bool extendingSelection) = 0;
    virtual void cellDidMoveSelectedRowsDown(Cell& cell) = 0;
    virtual void cellDidMoveSelectedRowsUp(Cell& cell) = 0;
    virtual void cellDidExitRow(Cell& cell) = 0;
    virtual void cellDidInitiateDragging(Cell& cell) = 0;
    virtual std::shared_ptr<Cell> cellDragableCellForRowAtIndexPath(Cell& cell,
                                                                    const CVIndexPath& path) = 0;
    virtual std::optional<std::string> cellDragableTextForRowAtIndexPath(
        Cell& cell, const CVIndexPath& path) = 0;
    virtual void cellDidEndDragging(Cell& cell) = 0;
    virtual MenuPtr contextMenuForCell(Cell& cell) = 0;
    virtual MenuPtr contextMenuForAccessoryViewOfCell(Cell& cell) = 0;
};

}  // namespace corvane
