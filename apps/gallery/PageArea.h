// The place of the page that is shown. One thread, the window's.
#pragma once

#include "corvane/views/CompoundView.h"

#include <memory>

namespace corvane::gallery {

class PageArea final : public views::CompoundView {
  public:
    const std::shared_ptr<views::View>& page() const { return page_; }  ///< null for none
    void setPage(const std::shared_ptr<views::View>& page) {
        if (page == page_) return;
        if (page_) page_->removeFromSuperview();
        page_ = page;
        if (page) addSubview(page);
        setKeyViewParts({page});
        setNeedsApplyLayout();
    }

    bool clipsToBounds() const override { return true; }
    void applyLayout() override {
        if (page_) page_->setFrame(bounds());
    }

  private:
    std::shared_ptr<views::View> page_;
};

}  // namespace corvane::gallery
