// A list, or another view that takes what room there is, between bars above and below it.
#pragma once

#include "corvane/views/CompoundView.h"

#include <memory>
#include <vector>

namespace corvane {

/// Bars are as high as they prefer; hidden ones take no room. After one of them was hidden or shown
/// the stack needs to be laid out. Tab goes from the top to the bottom.
class BarStack : public views::CompoundView {
  public:
    using ViewPtr = std::shared_ptr<views::View>;
    using Views = std::vector<ViewPtr>;

    /// Null bars are passed over. The key view is where Tab goes in the content; null for the
    /// content itself.
    void setViews(Views barsAbove, ViewPtr content, const ViewPtr& keyView, Views barsBelow);

    /// For the first bar above, unless it is hidden, so that it lines up with that of the stack
    /// beside.
    void setLeastHeightOfFirstBar(double height);

    void applyLayout() override;
    views::Size preferredSizeThatFits(views::Size available) override;

  private:
    double heightOf(const ViewPtr& bar, views::Size available) const;
    double heightOf(const Views& bars, views::Size available) const;

    Views above_;
    ViewPtr content_;
    Views below_;
    double leastHeightOfFirstBar_ = 0;
};

}  // namespace corvane
