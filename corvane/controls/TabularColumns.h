// The columns of a tabular list: what they are called, and how wide they are.
#pragma once

#include "corvane/views/Canvas.h"
#include "corvane/views/View.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace corvane {

/// Widths are in points.
struct Column {
    std::string identifier = {};
    std::string title = {};
    double width = 120;
    double minimumWidth = 40;
    views::TextAlignment alignment = views::TextAlignment::Leading;
    bool sortable = false;
    bool stretches = false;  ///< takes what the others leave; the last one where none does

    friend bool operator==(const Column&, const Column&) = default;
};

/// Shared by the header of a list and its rows. One thread, the window's.
class TabularColumns {
  public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    const std::vector<Column>& columns() const { return columns_; }
    /// Of columns with the same identifier the first one counts. Widths are at least the minimum.
    void setColumns(std::vector<Column> columns);
    std::size_t indexOf(const std::string& identifier) const;  ///< kNone where there is none

    /// Where columns go in a language written from the left; for others they need to be mirrored.
    /// Where the list is too narrow for all, the stretching column gives way first, then the others
    /// from the last one on, down to their minimum; what does not fit even then is cut off.
    std::vector<views::Rect> framesIn(double width, double height) const;
    /// At least the minimum.
    void setWidth(std::size_t column, double width);
    /// Moves the edge behind the column of a list of that width towards the trailing side, as far
    /// as minima and the room allow. Gives the column that has another width now; kNone for none.
    std::size_t moveEdge(std::size_t column, double distance, double totalWidth);

    const std::string& sortIdentifier() const { return sortIdentifier_; }  ///< empty for none
    bool sortsAscending() const { return sortsAscending_; }
    void setSorting(std::string identifier, bool ascending);

    /// After any change; for the one view that has the columns.
    std::function<void()> didChange;

  private:
    std::size_t stretchingColumn() const;
    std::vector<double> widthsIn(double width) const;
    void tellChange();

    std::vector<Column> columns_;
    std::string sortIdentifier_;
    bool sortsAscending_ = true;
};

}  // namespace corvane
