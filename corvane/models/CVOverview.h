// What an overview controller asks of the view that shows its screen.
#pragma once

namespace corvane {

/// Implemented by the view, which refers back to its controller weakly. One thread, the window's.
class CVOverview {
  public:
    virtual ~CVOverview() = default;

    // In points.
    virtual double navigationSectionHeaderHeight() const = 0;
    virtual double overviewSectionHeaderHeight() const = 0;

    virtual void hideOverviewSearchBar() = 0;
};

}  // namespace corvane
