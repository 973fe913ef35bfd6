// A table of sections with rows of different heights, each row a view of its own.
#pragma once

#include "corvane/platform/NotificationCenter.h"
#include "corvane/table/CVMacLayoutableView.h"
#include "corvane/table/CVMacTableViewCellDelegate.h"
#include "corvane/table/CVMacTableViewDataSource.h"
#include "corvane/table/CVMacTableViewDelegate.h"
#include "corvane/table/PlaceholderLife.h"
#include "corvane/table/RowCache.h"
#include "corvane/table/RowSelection.h"
#include "corvane/table/RowWalk.h"
#include "corvane/table/TablePagination.h"
#include "corvane/table/TableSettings.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace corvane {

class DropIndicator;

/// Rows come from the data source. They are placed one above the other, in the next turn of the
/// main run loop after whatever changed them. Inside a scroll view the table is as wide as what is
/// visible. Data source and delegate may change the table from wherever they are called.
///
/// A path that is not in the table gives none, null or 0, and changes nothing. The animation of a
/// change is a code that is passed on for nothing.
class CVMacTableView : public CVMacLayoutableView,
                       public CVMacTableViewCellDelegate,
                       public TableSettings {
  public:
    using CellPtr = RowCache::CellPtr;
    using HeaderPtr = RowCache::HeaderPtr;
    using Index = std::int64_t;
    using OptionalPath = std::optional<CVIndexPath>;
    using Paths = std::vector<CVIndexPath>;
    using PathSet = std::set<CVIndexPath>;
    using Mode = CVMacTableViewSelectionMode;
    using ScrollView = views::ScrollView;

    explicit CVMacTableView(const views::Rect& frame = {});
    ~CVMacTableView() override;

    std::shared_ptr<CVMacTableViewDataSource> dataSource() const { return dataSource_.lock(); }
    void setDataSource(std::weak_ptr<CVMacTableViewDataSource> source) { dataSource_ = source; }
    std::shared_ptr<CVMacTableViewDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(std::weak_ptr<CVMacTableViewDelegate> delegate) { delegate_ = delegate; }

    // Loading.

    bool dataLoaded() const { return dataLoaded_; }
    void reloadData();
    void loadData();  ///< reloads only if nothing was loaded before
    void loadSection(Index section);
    void reloadRowsAtIndexPaths(const Paths& paths, int animation, bool adjustingFrameSize = false);
    void reloadSections(const std::set<Index>& sections, int animation);
    void reloadRowHeightOfCell(CVMacTableViewCell& cell);
    void updateAllRowHeightsWithCellWidth(double width);
    void insertSections(const std::set<Index>& sections, int animation);
    void deleteSections(const std::set<Index>& sections, int animation);
    void moveSection(Index section, Index toSection);
    /// The paths are those that the rows have afterwards.
    void insertRowsAtIndexPaths(const Paths& paths, int animation);
    /// The paths are those that the rows have before.
    void deleteRowsAtIndexPaths(const Paths& paths, int animation);
    void moveRowAtIndexPath(const CVIndexPath& from, const CVIndexPath& to);

    // Rows.

    const RowCache& rows() const { return rows_; }
    Index numberOfSections() const { return numberOfSections_; }  ///< as the data source said
    Index numberOfRowsInSection(Index section) const { return rows_.rowCount(section); }
    CellPtr cellForRowAtIndexPath(const CVIndexPath& path) const;
    CellPtr cachedCellForRowWithIndexPath(const CVIndexPath& path) const;
    double cachedCellHeightForRowWithIndexPath(const CVIndexPath& path) const;
    HeaderPtr headerViewForSection(Index section) const { return rows_.headerOf(section); }
    std::vector<CellPtr> visibleCells();
    CellPtr firstCell() const { return outermostCell(rows_, RowStep::Next, false); }
    CellPtr lastCell() const { return outermostCell(rows_, RowStep::Previous, false); }
    CellPtr firstCellRespectingFiltered(bool respect) const;
    CellPtr lastCellRespectingFiltered(bool respect) const;
    CellPtr nextCellForIndexPath(const OptionalPath& path, bool acrossSections,
                                 bool respectFiltered = false) const;
    CellPtr previousCellForIndexPath(const OptionalPath& path, bool acrossSections,
                                     bool respectFiltered = false) const;
    OptionalPath indexPathForRowInSection(Index section, views::Point point);
    OptionalPath indexPathForRowAtPoint(views::Point point);
    /// Only the rows of the set stay visible; none for all.
    void filterRowsWithIndexPaths(const std::optional<PathSet>& paths);
    std::optional<PathSet> indexPathsOfFilteredRows() const;
    void scrollRowToVisibleAtIndexPath(const CVIndexPath& path);

    // Layout.

    void applyLayout() override;
    void relayoutAllRows();
    double relayoutRowsForSection(Index section, double cellWidth, double position);
    views::Size preferredSizeThatFits(views::Size available) override;
    views::Size preferredSizeForSection(Index section, double cellWidth);
    double cellWidthForTotalWidth(double width) const { return width - left() - right(); }
    /// Where rows begin: the left and the right margin change places where layouts are mirrored.
    double leftEdge() const;
    /// What is there to see; without a scroll view, the superview's size.
    views::Size maximumContentSizeForScrollView(const ScrollView* scrollView) const;
    void adjustFrameSizeToTotalWidth(double width, double preferredHeight,
                                     const ScrollView* scrollView);
    /// For subclasses that leave room between sections.
    virtual double adjustLocationOfSection(Index, double suggested, double /*cellWidth*/) {
        return suggested;
    }
    virtual double adjustLocationAfterLastSection(double location, double /*cellWidth*/) {
        return location;
    }

    // Selection.

    OptionalPath indexPathForSelectedRow() const;
    OptionalPath rangeSelectionStartIndexPath() const { return pathOf(selection_.anchor()); }
    OptionalPath rangeSelectionEndIndexPath() const { return pathOf(selection_.rangeEnd()); }
    PathSet allIndexPathsForSelectedRows() override;
    void clearSelection() { clearSelectionNeedingDisplay(true); }
    void performClearSelection();  ///< and tells the delegate
    void clearSelectionNeedingDisplay(bool needingDisplay);
    void selectCell(const CellPtr& cell, bool clearPreviousSelection);
    void selectCellWithIndexPath(const CVIndexPath& path);
    void selectAllCells();
    void deselectCell(const CellPtr& cell);
    void selectRangeToCell(const CellPtr& cell);
    /// Gives the row the focus, and selects it as a click would if the delegate is to be told. One
    /// who is not to be told is about to set the selection itself.
    void performSelectRowAtIndexPath(const CVIndexPath& path, bool informDelegate = true);
    void didSelectRowAtIndexPath(const CVIndexPath& path, Mode mode, bool informDelegate);
    OptionalPath willSelectRowAtIndexPath(const CVIndexPath& path);
    /// What a menu or a drag at the row is about: the selection, or else the row, which is selected
    /// then; ascending. None where there is neither.
    std::optional<Paths> sortedContextIndexPathsByAutoSelectingIndexPath(const OptionalPath& path);

    // Inserting and deleting.

    Index sectionForInsertion() const;
    Index sectionForInsertionAtPoint(views::Point) const { return sectionForInsertion(); }
    void startInlineEditingRowAtIndexPath(const OptionalPath& path);
    void startInlineEditingRowAtPoint(const OptionalPath& path, views::Point insertionPoint);
    void startInlineEditingRowInSection(const OptionalPath& path, Index insertionSection);
    CellPtr insertPlaceholderCellAtIndexPath(const CVIndexPath& path);
    CellPtr placeholderCell() const { return placeholder_.cell(); }
    void performDeleteSelectedRows();
    void performDeleteRowsAtIndexPaths(const Paths& paths);

    // Drops.

    CellPtr activeDragSourceCell() const { return activeDragSourceCell_.lock(); }
    std::shared_ptr<DropIndicator> dragIndicatorImageView() const { return dragIndicator_; }
    /// Also gives the left end of the line that shows where it is.
    OptionalPath indexPathForMoveViaDragAtPoint(views::Point point, views::Point& indicatorOffset);
    Index sectionForDragAtPoint(views::Point point);
    CVIndexPath tailAppendIndexPathForMoveViaDragInSection(Index section,
                                                           views::Point& indicatorOffset);
    views::Point defaultIndicatorOffsetForDragInSection(Index) const { return {left(), top()}; }
    bool canMoveDraggedRows(const Paths& paths, const CVIndexPath& target);
    void moveDraggedRows(const Paths& paths, const CVIndexPath& target);

    // Pages (see TablePagination.h). TablePrint puts them on paper.

    void beginPagination();
    /// How much of the height the next page takes.
    double adjustRemainingPageHeight(double height);
    Index nextPageStartSection() const { return nextPage_.section; }
    Index nextPageStartRow() const { return nextPage_.row; }

    views::Point clickLocation() const { return clickLocation_; }
    std::uint64_t clickModifierFlags() const { return clickModifierFlags_; }
    virtual void mouseClickedAtLocation(views::Point, std::uint64_t /*modifierFlags*/) {}
    virtual void mouseDoubleClickedAtLocation(views::Point, std::uint64_t /*modifierFlags*/) {}

    // As a view.

    bool mouseDown(const views::MouseEvent& event) override;
    bool mouseUp(const views::MouseEvent& event) override;
    bool keyDown(const views::KeyEvent& event) override { return interpretKeyEvent(event); }
    bool doCommand(views::Command command) override;
    bool acceptsFirstResponder() const override { return true; }
    bool allowsVibrancy() const override { return editableAllowsVibrancy(); }
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void drawAboveSubviews(views::Canvas& canvas, const views::Rect& dirty) override;
    std::vector<std::shared_ptr<views::View>> subviewsIn(const views::Rect& rect) const override;
    void didMoveToSuperview() override;
    views::Role accessibilityRole() const override { return views::Role::Table; }
    views::DragOperation draggingEntered(views::DraggingInfo& info) override;
    views::DragOperation draggingUpdated(views::DraggingInfo& info) override;
    void draggingExited(views::DraggingInfo& info) override;
    bool wantsPeriodicDraggingUpdates() const override { return false; }
    bool prepareForDragOperation(views::DraggingInfo& info) override;
    bool performDragOperation(views::DraggingInfo& info) override;
    void concludeDragOperation(views::DraggingInfo& info) override;

    // As the delegate of its cells.

    bool tableViewAllowsMultipleSelections() override { return allowsMultipleSelections(); }
    bool supportsLeftRightCursorMovement() const override { return keepsLeftRightMovement(); }
    void didSelectRowAtIndexPath(const CVIndexPath& path, Mode mode) override;
    void cellDidSelectAllRows(Cell&) override { selectAllCells(); }
    void didDoubleClickRowAtIndexPath(const CVIndexPath& path) override;
    void willTapAccessoryButtonForRowWithIndexPath(const CVIndexPath& path) override;
    void accessoryButtonTappedForRowWithIndexPath(const CVIndexPath& path) override;
    void accessoryButtonDoubleTappedForRowWithIndexPath(const CVIndexPath& path) override;
    void cellDidAutoResizeControl(Cell& cell, views::View& control) override;
    void cellSchedulesCancelEditingPlaceholder(Cell& cell) override;
    void cellDidChangeValueForView(Cell& cell, views::View& view) override;
    bool cellCanInlineInsert(Cell& cell) override;
    void cellRequestsNextKeyViewByInsert(Cell& cell) override;
    void cellRequestsPreviousKeyViewByInsert(Cell& cell) override;
    void cellRequestsNextKeyView(Cell& cell) override;
    void cellRequestsPreviousKeyView(Cell& cell) override;
    void cellDidDeleteRow(Cell&) override { performDeleteSelectedRows(); }
    void cellRequestsNextCell(Cell& cell, bool extendingSelection) override;
    void cellRequestsPreviousCell(Cell& cell, bool extendingSelection) override;
    void cellRequestsNextSection(Cell& cell, bool extendingSelection) override;
    void cellRequestsPreviousSection(Cell& cell, bool extendingSelection) override;
    void cellDidMoveSelectedRowsDown(Cell& cell) override;
    void cellDidMoveSelectedRowsUp(Cell& cell) override;
    void cellDidExitRow(Cell& cell) override;
    void cellDidInitiateDragging(Cell& cell) override;
    CellPtr cellDragableCellForRowAtIndexPath(Cell& cell, const CVIndexPath& path) override;
    std::optional<std::string> cellDragableTextForRowAtIndexPath(Cell& cell,
                                                                 const CVIndexPath& path) override;
    void cellDidEndDragging(Cell& cell) override;
    MenuPtr contextMenuForCell(Cell& cell) override;
    MenuPtr contextMenuForAccessoryViewOfCell(Cell& cell) override;

  protected:
    void frameDidChange(const views::Rect& before) override;
    void textSizesDidChange() override;
    void settingDidChange(Change change) override;
    /// The scroll view around the table has another size, or other insets.
    virtual void scrollViewFrameSizeDidChange();

  private:
    using Notice = CVMacTableViewDelegate::RowNotice CVMacTableViewDelegate::*;
    using MenuQuestion =
        std::function<MenuPtr(CVMacTableView&, const CVIndexPath&)> CVMacTableViewDelegate::*;

    static OptionalPath pathOf(const CellPtr& cell);
    CellPtr shareOf(Cell& cell) const;
    double currentCellWidth() const;
    double visibleHeight() const;
    double heightForHeader(Index section);
    HeaderPtr makeHeader(Index section, const std::string& title);
    bool reloadRow(const IndexPath& path, const std::weak_ptr<CVMacTableViewCellDelegate>& self,
                   double cellWidth, float& difference);
    float measure(Cell& cell, double cellWidth);
    /// Those that were not asked for because somebody changed the rows while they were loaded.
    void loadMissingRows();
    void takeOut(const std::vector<CellPtr>& cells);
    void removeAllViews();
    double layoutHeightOfSection(Index section);
    void commitEditing();
    /// Where the row with the focus goes, the table has it.
    void keepFocusInTable(const std::function<void()>& change);

    void requestCell(Cell& cell, CellPtr target, bool extendingSelection);
    bool showRow(CellPtr cell, bool extendingSelection);
    void requestSection(Cell& cell, RowStep step, bool extendingSelection);
    void editRow(const CellPtr& cell, bool tracing);
    void requestKeyViewByInsert(Cell& cell, RowStep step);
    void giveUpPlaceholder(const CellPtr& cell);
    void moveSelectedRows(RowStep step);
    bool mayMoveSelectedRow(const IndexPath& from, RowStep step);
    void tell(Notice notice, const CVIndexPath& path);
    MenuPtr contextMenu(Cell& cell, MenuQuestion question);

    void drawEmptyText(views::Canvas& canvas) const;
    bool mayMoveDraggedRow(const IndexPath& from, const IndexPath& target);
    void removeDragIndicator();
    void showDragIndicator(const char* image, const views::Rect& rect);
    enum class DropPhase { Will, Did };
    bool dropRows(views::DraggingInfo& info, CVMacTableView& source, const CVIndexPath& target,
                  DropPhase phase);
    bool dropItem(views::DraggingInfo& info, HGMacListView& source, const CVIndexPath& target,
                  DropPhase phase);
    bool dropOutsideData(views::DraggingInfo& info, const CVIndexPath& target, DropPhase phase);
    bool drop(views::DraggingInfo& info, DropPhase phase);

    std::weak_ptr<CVMacTableViewDataSource> dataSource_;
    std::weak_ptr<CVMacTableViewDelegate> delegate_;
    RowCache rows_;
    RowSelection selection_;
    PlaceholderLife placeholder_;
    std::optional<std::vector<CellPtr>> reusableCells_;  ///< only while it reloads
    std::optional<PathSet> filteredIndexPaths_;
    Index numberOfSections_ = 0;
    PageCursor nextPage_;
    std::uint64_t reloads_ = 0;  ///< to notice those that happen while it calls somebody
    views::Point clickLocation_;
    std::uint64_t clickModifierFlags_ = 0;
    std::weak_ptr<Cell> activeDragSourceCell_;
    std::shared_ptr<DropIndicator> dragIndicator_;
    platform::NotificationCenter::Observation frameObservation_;
    platform::NotificationCenter::Observation insetsObservation_;
    bool dataLoaded_ = false;
    bool adjustingFrame_ = false;
};

}  // namespace corvane
