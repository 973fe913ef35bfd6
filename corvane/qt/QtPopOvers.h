// Shows pop-overs in small windows of their own, which may reach beyond the window of the view that
// they are about. The main thread.
#pragma once

#include "corvane/controls/PopOver.h"

#include <QPointer>
#include <map>
#include <memory>

namespace corvane::qt {

/// For views in host widgets; those elsewhere get none. A pop-over follows its view, and closes
/// where the view's window goes away or is no longer the one in use.
class QtPopOvers final : public PopOverPresenter {
  public:
    QtPopOvers();
    ~QtPopOvers() override;

    void present(PopOver& popOver, const std::shared_ptr<views::View>& view) override;
    void dismiss(PopOver& popOver) override;

  private:
    class Panel;
    std::map<const PopOver*, QPointer<Panel>> panels_;  ///< of their hosts
};

}  // namespace corvane::qt
