// A view made of several that can have the focus: to whoever builds a key-view chain, one view.
#pragma once

#include "corvane/views/LayoutableView.h"

#include <memory>
#include <vector>

namespace corvane::views {

/// The chain leads to the view itself, which Tab passes over, then through its parts in their
/// order, and from the last one to the view that was set as the next one. A part may be a compound
/// view too.
class CompoundView : public LayoutableView {
  public:
    using LayoutableView::LayoutableView;

    /// The one behind the last part.
    void setNextKeyView(const std::shared_ptr<View>& view) override;
    void didMoveToSuperview() override;

  protected:
    /// Null ones are passed over. May be called again at any time.
    void setKeyViewParts(const std::vector<std::shared_ptr<View>>& parts);
    /// Puts a view in the place of the one held; null for none, and nothing for one that holds this
    /// view. The one before is left alone where somebody else has it by now. Whether there is
    /// something to show anew.
    bool replaceSubview(std::shared_ptr<View>& held, const std::shared_ptr<View>& view);
    /// Needs layout, here and in the superview, which may have to give it another size.
    void preferredSizeDidChange();

  private:
    void link();

    std::vector<std::weak_ptr<View>> parts_;
    std::weak_ptr<View> behind_;
    bool isLinking_ = false;
};

}  // namespace corvane::views
