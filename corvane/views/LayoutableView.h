// A view that places its subviews, later and once, whatever happened in between.
#pragma once

#include "corvane/views/View.h"

namespace corvane::views {

/// What needs layout gets it in the next turn of the main run loop, superviews first; or earlier,
/// when it is drawn or hit. A change of size needs one.
class LayoutableView : public View {
  public:
    using View::View;

    void setNeedsApplyLayout();
    bool needsApplyLayout() const { return layoutNeeded_; }
    void layoutIfNeeded() override;
    virtual void applyLayout() {}
    void didMoveToSuperview() override;
    void textSizesDidChange() override { setNeedsApplyLayout(); }

  protected:
    void frameDidChange(const Rect& before) override;
    /// Whether layout can wait until the view is seen: nobody asks for its subviews' places before.
    /// Spares the many rows of a table that are never seen.
    virtual bool laysOutOnlyWhenSeen() const { return false; }

  private:
    void enqueue();
};

}  // namespace corvane::views
