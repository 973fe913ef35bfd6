// The calendars that date fields show beside them, and how these report what was picked.
#pragma once

#include "corvane/controls/MonthChooserView.h"
#include "corvane/platform/Instant.h"

#include <memory>
#include <utility>

namespace corvane {

class CVMacDateChooserView;
class CVMacDateOnlyChooserView;

/// Held by the chooser as a weak reference, as is the other.
class CVMacDateChooserDelegate {
  public:
    virtual ~CVMacDateChooserDelegate() = default;
    virtual void dateChooserDidChooseDate(CVMacDateChooserView& chooser,
                                          platform::Instant date) = 0;
};

class CVMacDateOnlyChooserDelegate {
  public:
    virtual ~CVMacDateOnlyChooserDelegate() = default;
    virtual void dateOnlyChooserDidChooseDateOnly(CVMacDateOnlyChooserView& chooser,
                                                  EXDateOnly dateOnly) = 0;
};

/// Of moments: a day picked is its standardized moment.
class CVMacDateChooserView final : public MonthChooserView {
  public:
    using MonthChooserView::MonthChooserView;

    void setDelegate(std::weak_ptr<CVMacDateChooserDelegate> delegate) {
        delegate_ = std::move(delegate);
    }

  protected:
    void didChoose(EXDateOnly day) override;

  private:
    std::weak_ptr<CVMacDateChooserDelegate> delegate_;
};

/// Of days.
class CVMacDateOnlyChooserView final : public MonthChooserView {
  public:
    using MonthChooserView::MonthChooserView;

    void setDelegate(std::weak_ptr<CVMacDateOnlyChooserDelegate> delegate) {
        delegate_ = std::move(delegate);
    }

  protected:
    void didChoose(EXDateOnly day) override;

  private:
    std::weak_ptr<CVMacDateOnlyChooserDelegate> delegate_;
};

}  // namespace corvane
