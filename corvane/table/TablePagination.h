// Where the pages of a printed table end.
#pragma once

#include "corvane/table/RowCache.h"

#include <functional>

namespace corvane {

/// The row that the next page begins with.
struct PageCursor {
    RowCache::Index section = 0;
    RowCache::Index row = 0;

    friend bool operator==(const PageCursor&, const PageCursor&) = default;
};

/// Moves the cursor over the rows that fit on a page of the height, and answers how much of it they
/// take, with the line below each and the headers above them; 0 at the end. A row is never cut, and
/// a header never parted from its first row. A section that goes on has its header again. What is
/// higher than a page even so takes one alone, and more than there is: it is scaled down. Rows of
/// no height are passed over.
double takePage(const RowCache& rows, const std::function<double(RowCache::Index)>& headerHeight,
                double height, PageCursor& cursor);

}  // namespace corvane
