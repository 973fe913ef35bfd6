#include "corvane/controls/CVMacTabularOverview.h"

#include "corvane/controls/CVMacTabularCell.h"
#include "corvane/controls/ColumnMemory.h"
#include "corvane/controls/TabularHeader.h"
#include "corvane/table/CVMacTableView.h"

#include <utility>

namespace corvane {

namespace {

constexpr std::int64_t kRowHeight = 26;

}  // namespace

CVMacTabularOverview::CVMacTabularOverview()
    : columns_(std::make_shared<TabularColumns>()),
      header_(std::make_shared<TabularHeader>(columns_)) {
    columns_->didChange = [this] { columnsDidChange(); };
    header_->didSort = [this](std::size_t column) {
        const auto told = didSelectColumnForSorting;
        const std::string identifier = columns()[column].identifier;
        saveColumns();
        if (told) told(identifier, sortsAscending());
    };
    header_->didResize = [this](std::size_t column) {
        const auto told = didResizeColumn;
        const Column resized = columns()[column];
        if (told) told(resized.identifier, resized.width);
    };
    header_->didEndResizing = [this] { saveColumns(); };
    makeOverviewCell = [columns = columns_](const Path& path) {
        return std::make_shared<CVMacTabularCell>(path, columns);
    };
    overviewTable()->setRowHeight(kRowHeight);
    setOverviewHeader(header_);
}

CVMacTabularOverview::~CVMacTabularOverview() {
    // Somebody may keep header and rows longer than the view.
    columns_->didChange = nullptr;
    header_->didSort = nullptr;
    header_->didResize = nullptr;
    header_->didEndResizing = nullptr;
}

void CVMacTabularOverview::setColumns(std::vector<Column> columns) {
    const auto keepAlive = weak_from_this().lock();
    columns_->setColumns(std::move(columns));
    restoreColumns(columnsAutosaveName_, *columns_);
    forEachRow([](CVMacTabularCell& row) { row.columnsDidChange(); });
    if (overviewTable()->dataLoaded()) overviewTable()->reloadData();
    layOutBars();
}

void CVMacTabularOverview::setColumnsAutosaveName(std::string name) {
    columnsAutosaveName_ = std::move(name);
    restoreColumns(columnsAutosaveName_, *columns_);
}

void CVMacTabularOverview::saveColumns() const {
    rememberColumns(columnsAutosaveName_, *columns_);
}

double CVMacTabularOverview::widthOfColumn(const std::string& identifier) const {
    const std::size_t column = columns_->indexOf(identifier);
    return column == TabularColumns::kNone ? 0 : columns()[column].width;
}

void CVMacTabularOverview::setWidthOfColumn(const std::string& identifier, double width) {
    columns_->setWidth(columns_->indexOf(identifier), width);
}

void CVMacTabularOverview::setSorting(const std::string& identifier, bool ascending) {
    columns_->setSorting(identifier, ascending);
}

void CVMacTabularOverview::columnsDidChange() {
    header_->columnsDidChange();
    forEachRow([](CVMacTabularCell& row) { row.setNeedsApplyLayout(); });
}

void CVMacTabularOverview::forEachRow(void (*act)(CVMacTabularCell&)) {
    // A row that loses the focus may have others loaded.
    std::vector<std::shared_ptr<CVMacTableViewCell>> cells;
    for (const auto& section : overviewTable()->rows().sections())
        cells.insert(cells.end(), section.cells.begin(), section.cells.end());
    for (const auto& cell : cells)
        if (auto* row = dynamic_cast<CVMacTabularCell*>(cell.get())) act(*row);
}

}  // namespace corvane
