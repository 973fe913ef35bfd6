// The titles of a tabular list, above its rows: clicked to sort by a column, dragged at their edges
// to make it wider.
#pragma once

#include "corvane/controls/TabularColumns.h"
#include "corvane/views/CompoundView.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// Tab stops at one of the titles; Left and Right lead to the others, Space and Return sort, and
/// with Option Left and Right move the title's edge. Takes no room without columns.
class TabularHeader : public views::CompoundView {
  public:
    explicit TabularHeader(std::shared_ptr<TabularColumns> columns);
    ~TabularHeader() override;

    // What the user does, after the columns have followed.

    std::function<void(std::size_t column)> didSort;
    std::function<void(std::size_t column)> didResize;
    std::function<void()> didEndResizing;  ///< after a key or a whole drag

    /// There are others, or they look otherwise.
    void columnsDidChange();

    /// Of those that can be sorted by: turns the direction of the one that is sorted by already.
    void sortBy(std::size_t column);

    void applyLayout() override;
    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool clipsToBounds() const override { return true; }
    bool mouseDown(const views::MouseEvent& event) override;
    bool mouseDragged(const views::MouseEvent& event) override;
    bool mouseUp(const views::MouseEvent& event) override;
    views::Role accessibilityRole() const override { return views::Role::Group; }

  private:
    class Title;
    struct Press {
        std::size_t column = TabularColumns::kNone;
        bool atEdge = false;
        double beside = 0;  ///< how far the edge is behind the pointer
        bool moved = false;
    };

    const Column* columnAt(std::size_t index) const;  ///< null where there is none
    /// The column at the place, or the edge behind it.
    Press pressAt(views::Point point) const;
    double fromLeading(views::Point point) const;
    bool moveEdge(std::size_t column, double distance);
    void endResizing();
    bool moveFocus(std::size_t from, bool towardsEnd);
    void makeTitles();

    std::shared_ptr<TabularColumns> columns_;
    std::vector<std::shared_ptr<Title>> titles_;
    std::size_t tabStop_ = 0;
    Press press_;
};

}  // namespace corvane
