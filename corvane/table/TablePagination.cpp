#include "corvane/table/TablePagination.h"

namespace corvane {

namespace {

constexpr double kLineBelowRow = 1;

/// Passes over the rows of the section that nobody will see. Whether one is left that is.
bool findRow(const RowCache& rows, PageCursor& cursor) {
    while (cursor.row < rows.rowCount(cursor.section) &&
           rows.heightAt({cursor.section, cursor.row}) <= 0)
        ++cursor.row;
    return cursor.row < rows.rowCount(cursor.section);
}

}  // namespace

double takePage(const RowCache& rows, const std::function<double(RowCache::Index)>& headerHeight,
                double height, PageCursor& cursor) {
    double used = 0;
    for (; cursor.section < rows.sectionCount(); cursor = {cursor.section + 1, 0}) {
        const bool begins = cursor.row == 0;
        bool hasRow = findRow(rows, cursor);
        // A section of which all is hidden or gone still says that it is there.
        if (!hasRow && !begins) continue;
        double header = headerHeight(cursor.section);
        do {
            const double row =
                hasRow ? rows.heightAt({cursor.section, cursor.row}) + kLineBelowRow : 0;
            // The first of a page is taken in any case, or there would be no end.
            if (used > 0 && used + header + row > height) {
                if (header > 0 && begins) cursor.row = 0;
                return used;
            }
            used += header + row;
            header = 0;
            if (!hasRow) break;
            ++cursor.row;
            hasRow = findRow(rows, cursor);
        } while (hasRow);
    }
    return used;
}

}  // namespace corvane
