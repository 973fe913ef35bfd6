// A table on its way to paper: measured for the width of a page, and drawn page by page.
#pragma once

#include "corvane/platform/Size.h"
#include "corvane/views/View.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace corvane {

class CVMacSectionHeaderView;
class CVMacTableView;

/// For as long as it lives the table is out of its place on the screen: there is nothing in between
/// but drawing, no turn of the run loop. What was typed is committed before; the selection does not
/// show. Afterwards rows, selection and what is scrolled to are as they were. Measures are points.
class TablePrint {
  public:
    TablePrint(std::shared_ptr<CVMacTableView> table, platform::Size page);
    ~TablePrint();
    TablePrint(const TablePrint&) = delete;
    TablePrint& operator=(const TablePrint&) = delete;

    /// A table without rows has one, too: its empty text.
    std::size_t pageCount() const { return pages_.size(); }
    /// 1, but less where a row is higher than a page: then everything on it is smaller.
    double scaleOfPage(std::size_t index) const;
    /// From the upper left corner of the canvas.
    void drawPage(std::size_t index, views::Canvas& canvas) const;

  private:
    /// A stretch of the table that was laid out for paper.
    struct Page {
        std::shared_ptr<CVMacSectionHeaderView> repeatedHeader;  ///< of a section that goes on
        double from = 0;
        double to = 0;
    };

    double heightOf(const Page& page) const;
    void showSelection(bool shows);
    void layOut();
    void divide();

    std::shared_ptr<CVMacTableView> table_;
    platform::Size pageSize_;
    std::vector<Page> pages_;
    platform::Point scrolledTo_;
    bool wasPrinting_;
};

}  // namespace corvane
