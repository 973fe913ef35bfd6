#include "corvane/table/TablePrint.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

void commitEditing(CVMacTableView& table) {
    views::Window* window = table.window();
    const auto field = window ? window->fieldEditor().client() : nullptr;
    if (field && static_cast<const views::View&>(*field).isDescendantOf(table))
        window->makeFirstResponder(table.shared_from_this());
}

}  // namespace

TablePrint::TablePrint(std::shared_ptr<CVMacTableView> table, platform::Size page)
    : table_(std::move(table)), pageSize_(page), wasPrinting_(table_->printing()) {
    table_->loadData();
    commitEditing(*table_);
    if (const auto* scrollView = table_->enclosingScrollView())
        scrolledTo_ = scrollView->documentVisibleRect().origin();
    showSelection(false);
    table_->setPrinting(true);
    layOut();
    divide();
}

TablePrint::~TablePrint() {
    table_->setPrinting(wasPrinting_);
    auto* scrollView = table_->enclosingScrollView();
    const double width = table_->maximumContentSizeForScrollView(scrollView).width;
    table_->updateAllRowHeightsWithCellWidth(table_->cellWidthForTotalWidth(width));
    table_->layoutIfNeeded();
    if (scrollView) scrollView->scrollTo(scrolledTo_);
    showSelection(true);
}

void TablePrint::showSelection(bool shows) {
    // Only how it looks: the table knows all the while what is selected.
    for (const CVIndexPath& path : table_->allIndexPathsForSelectedRows())
        if (const auto cell = table_->cellForRowAtIndexPath(path)) cell->setSelected(shows);
}

void TablePrint::layOut() {
    const double cellWidth = table_->cellWidthForTotalWidth(pageSize_.width);
    table_->updateAllRowHeightsWithCellWidth(cellWidth);
    // What it needs anyway, so that drawing does not lay it out for the screen again.
    table_->layoutIfNeeded();
    double position = 0;
    for (std::int64_t section = 0; section < table_->rows().sectionCount(); ++section) {
        position = table_->adjustLocationOfSection(section, position, cellWidth);
        position = table_->relayoutRowsForSection(section, cellWidth, position);
    }
}

void TablePrint::divide() {
    table_->beginPagination();
    const RowCache& rows = table_->rows();
    for (;;) {
        const IndexPath first{table_->nextPageStartSection(), table_->nextPageStartRow()};
        if (table_->adjustRemainingPageHeight(pageSize_.height) <= 0) break;
        const IndexPath end{table_->nextPageStartSection(), table_->nextPageStartRow()};
        Page page;
        bool isFirst = true;
        const auto add = [&](const views::Rect& frame, double line) {
            if (std::exchange(isFirst, false)) page.from = frame.y;
            page.to = frame.bottom() + line;
        };
        if (first.item > 0) page.repeatedHeader = rows.headerOf(first.section);
        for (IndexPath path = first; path < end; path = {path.section + 1, 0}) {
            const auto header = path.item == 0 ? rows.headerOf(path.section) : nullptr;
            if (header) add(header->frame(), 0);
            for (; path < end && path.item < rows.rowCount(path.section); ++path.item)
                if (const auto cell = rows.cellAt(path); cell && rows.heightAt(path) > 0)
                    add(cell->frame(), 1);
        }
        pages_.push_back(std::move(page));
    }
    if (pages_.empty()) pages_.push_back({nullptr, 0, pageSize_.height});
}

double TablePrint::heightOf(const Page& page) const {
    const double header = page.repeatedHeader ? page.repeatedHeader->frame().height : 0;
    return header + page.to - page.from;
}

double TablePrint::scaleOfPage(std::size_t index) const {
    return std::min(1.0, pageSize_.height / heightOf(pages_.at(index)));
}

void TablePrint::drawPage(std::size_t index, views::Canvas& canvas) const {
    const Page& page = pages_.at(index);
    const views::CanvasState state(canvas);
    if (const auto& header = page.repeatedHeader) {
        const views::CanvasState atHeader(canvas);
        canvas.translate(header->frame().x, 0);
        header->drawTree(canvas, header->bounds());
    }
    const views::Rect stretch{0, page.from, pageSize_.width, page.to - page.from};
    canvas.translate(0, heightOf(page) - page.to);
    canvas.clip(stretch);
    table_->drawTree(canvas, stretch);
}

}  // namespace corvane
