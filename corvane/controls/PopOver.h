// A panel beside a view, for choosing what the view is about. It never has the focus: whoever types
// goes on typing. One thread, the window's.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/ScopedOverride.h"
#include "corvane/views/View.h"

#include <atomic>
#include <memory>
#include <utility>

namespace corvane {

class PopOver;

/// Held by the pop-over as a weak reference.
class PopOverDelegate {
  public:
    virtual ~PopOverDelegate() = default;
    /// Also where the program closed it.
    virtual void popoverDidClose(PopOver&) {}
};

/// Brings pop-overs to the screen. One that shows them in windows of their own must see to it that
/// these take neither focus nor keys, and calls PopOver::close where the desktop closes one.
class PopOverPresenter {
  public:
    virtual ~PopOverPresenter() = default;
    /// Beside the view, which is in a window.
    virtual void present(PopOver& popOver, const std::shared_ptr<views::View>& view) = 0;
    virtual void dismiss(PopOver& popOver) = 0;
};

/// The one in force: it lays pop-overs over the view's own window, below the view or, where there
/// is more room, above it.
PopOverPresenter& popOverPresenter();

std::atomic<PopOverPresenter*>& presenterInForce();

/// The presenter must also outlive the pop-overs that it was given to show.
using ScopedPopOverPresenter = platform::ScopedOverride<PopOverPresenter, presenterInForce>;

class PopOver {
  public:
    explicit PopOver(std::shared_ptr<views::View> contentView)
        : contentView_(std::move(contentView)) {}
    ~PopOver();
    PopOver(const PopOver&) = delete;
    PopOver& operator=(const PopOver&) = delete;

    /// Shown in the size that it prefers.
    const std::shared_ptr<views::View>& contentView() const { return contentView_; }
    const platform::Color& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const platform::Color& color) { backgroundColor_ = color; }
    void setDelegate(std::weak_ptr<PopOverDelegate> delegate) { delegate_ = std::move(delegate); }

    bool isShown() const { return presenter_ != nullptr; }
    /// Nothing where it is shown already or the view is in no window.
    void showBeside(const std::shared_ptr<views::View>& view);
    /// Nothing where it is not shown.
    void close();

  private:
    std::shared_ptr<views::View> contentView_;
    platform::Color backgroundColor_;
    std::weak_ptr<PopOverDelegate> delegate_;
    PopOverPresenter* presenter_ = nullptr;  ///< who shows it; null while nobody does
};

}  // namespace corvane
