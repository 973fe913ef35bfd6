#include "corvane/controls/TabularColumns.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

/// Neither negative nor endless, whoever computed it.
double usable(double length) {
    constexpr double kMost = 100'000;
    return std::isnan(length) ? 0 : std::clamp(length, 0.0, kMost);
}

}  // namespace

void TabularColumns::setColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    for (Column& column : columns_) {
        column.minimumWidth = usable(column.minimumWidth);
        column.width = std::max(usable(column.width), column.minimumWidth);
    }
    tellChange();
}

std::size_t TabularColumns::indexOf(const std::string& identifier) const {
    const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const Column& column) {
        return column.identifier == identifier;
    });
    return found == columns_.end() ? kNone : static_cast<std::size_t>(found - columns_.begin());
}

std::size_t TabularColumns::stretchingColumn() const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [](const Column& column) { return column.stretches; });
    const auto index = static_cast<std::size_t>(found - columns_.begin());
    return found == columns_.end() ? columns_.size() - 1 : index;
}

std::vector<double> TabularColumns::widthsIn(double width) const {
    std::vector<double> widths;
    double rest = usable(width);
    for (const Column& column : columns_) {
        widths.push_back(column.width);
        rest -= column.width;
    }
    if (widths.empty()) return widths;
    const std::size_t stretching = stretchingColumn();
    const auto change = [&](std::size_t column) {
        const double changed = std::max(columns_[column].minimumWidth, widths[column] + rest);
        rest -= changed - widths[column];
        widths[column] = changed;
    };
    change(stretching);
    for (std::size_t column = columns_.size(); rest < 0 && column-- > 0;)
        change(column);
    return widths;
}

std::vector<views::Rect> TabularColumns::framesIn(double width, double height) const {
    std::vector<views::Rect> frames;
    double x = 0;
    for (const double columnWidth : widthsIn(width)) {
        frames.push_back({x, 0, columnWidth, height});
        x += columnWidth;
    }
    return frames;
}

void TabularColumns::setWidth(std::size_t column, double width) {
    if (column >= columns_.size()) return;
    Column& changed = columns_[column];
    const double before =
        std::exchange(changed.width, std::max(usable(width), changed.minimumWidth));
    if (changed.width != before) tellChange();
}

std::size_t TabularColumns::moveEdge(std::size_t column, double distance, double totalWidth) {
    if (column + 1 >= columns_.size()) return kNone;
    const std::vector<double> widths = widthsIn(totalWidth);
    // The edge is that of the column before the stretching one or of the column behind it: the
    // other side gives way by itself.
    const std::size_t stretching = stretchingColumn();
    const bool isBefore = column < stretching;
    const std::size_t resized = isBefore ? column : column + 1;
    const double room = widths[stretching] - columns_[stretching].minimumWidth;
    const double growth = std::min(isBefore ? distance : -distance, room);
    const double width = std::max(widths[resized] + growth, columns_[resized].minimumWidth);
    if (width == widths[resized]) return kNone;
    setWidth(resized, width);
    return resized;
}

void TabularColumns::setSorting(std::string identifier, bool ascending) {
    if (identifier == sortIdentifier_ && ascending == sortsAscending_) return;
    sortIdentifier_ = std::move(identifier);
    sortsAscending_ = ascending;
    tellChange();
}

void TabularColumns::tellChange() {
    // It may set others.
    const auto told = didChange;
    if (told) told();
}

}  // namespace corvane
