// What lies behind and between the rows, and where pages end.

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/DropIndicator.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"

#include <algorithm>

namespace corvane {

namespace {

using Delegate = CVMacTableViewDelegate;
using OptionalColor = std::optional<platform::Color>;

}  // namespace

void CVMacTableView::drawEmptyText(views::Canvas& canvas) const {
    const auto hasRows = [](const RowCache::Section& section) { return !section.cells.empty(); };
    const auto& sections = rows_.sections();
    if (emptyText().empty() || std::any_of(sections.begin(), sections.end(), hasRows)) return;
    views::TextStyle style;
    style.font.size = 15;
    style.color = views::theme().placeholderText;
    style.alignment = views::TextAlignment::Center;
    canvas.drawText(emptyText(), visibleRect(), style);
}

void CVMacTableView::draw(views::Canvas& canvas, const views::Rect& dirty) {
    const auto delegate = this->delegate();
    const OptionalColor background =
        ask(delegate, &Delegate::backgroundColorForTableView, backgroundColor(), *this);
    canvas.fillRect(dirty, background.value_or(views::theme().background));
    if (const auto tile =
            ask(delegate, &Delegate::backgroundTileForTableView, platform::ImagePtr(), *this))
        canvas.drawTiledImage(tile, dirty, {0, 0});

    const platform::Color line =
        ask(delegate, &Delegate::rowSeparatorColorForTableView, rowSeparatorColor(), *this)
            .value_or(views::theme().separator);
    const auto image =
        ask(delegate, &Delegate::rowSeparatorImageForTableView, platform::ImagePtr(), *this);
    const bool colorsSections = delegate && delegate->tableViewBackgroundColorForSection;
    const double indentation = rowSeparatorIndentation();
    for (const auto& view : subviewsIn({dirty.x, dirty.y - 1, dirty.width, dirty.height + 1})) {
        const auto* cell = dynamic_cast<const CVMacTableViewCell*>(view.get());
        if (!cell) continue;
        const views::Rect& frame = cell->frame();
        const auto section = colorsSections
                                 ? ask(delegate, &Delegate::tableViewBackgroundColorForSection,
                                       OptionalColor(), *this, cell->indexPath().section())
                                 : std::nullopt;
        if (section) canvas.fillRect({frame.x, frame.y, frame.width, frame.height + 1}, *section);
        const views::Rect gap =
            views::mirrored({indentation, 0, frame.width - indentation, 1}, frame.width)
                .movedBy(frame.x, frame.bottom());
        if (image) {
            canvas.drawImage(image, gap);
        } else {
            canvas.fillRect(gap, line);
        }
    }
    drawEmptyText(canvas);
    if (accessoryLineOffset() < 0) return;
    const double fromLeading = left() + accessoryLineOffset();
    const double x = views::isMirrored() ? frame().width - fromLeading : fromLeading;
    canvas.drawLine({x, dirty.y}, {x, dirty.bottom()},
                    accessoryLineColor().value_or(views::theme().separator), 1);
}

void CVMacTableView::drawAboveSubviews(views::Canvas& canvas, const views::Rect&) {
    views::drawFocusRing(canvas, *this, visibleRect(), 0);
}

// Pages.

void CVMacTableView::beginPagination() {
    layoutIfNeeded();
    nextPage_ = {};
}

double CVMacTableView::adjustRemainingPageHeight(double height) {
    return takePage(
        rows_, [this](Index section) { return heightForHeader(section); }, height, nextPage_);
}

}  // namespace corvane
