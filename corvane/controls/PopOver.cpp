#include "corvane/controls/PopOver.h"

#include "corvane/platform/WritingDirection.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;
using views::View;

constexpr double kGap = 3;
constexpr double kMargin = 1;  // for the border
constexpr double kCornerRadius = 6;

/// What lies over the window: a border around the content, kept beside the view wherever that goes.
class Overlay final : public View {
  public:
    Overlay(const PopOver& popOver, const std::shared_ptr<View>& view)
        : view_(view), background_(popOver.backgroundColor()), content_(popOver.contentView()) {
        addSubview(content_);
    }

    void place() {
        const auto view = view_.lock();
        const views::Window* window = view ? view->window() : nullptr;
        if (!window) return;
        const Rect beside = view->convertToWindow(view->bounds());
        const Size room = window->size();
        const Size size = content_->preferredSizeThatFits(room);
        content_->setFrame({kMargin, kMargin, size.width, size.height});
        const double width = size.width + 2 * kMargin;
        const double height = size.height + 2 * kMargin;
        const double below = beside.bottom() + kGap;
        const double above = beside.y - kGap - height;
        const bool goesAbove =
            below + height > room.height && beside.y > room.height - beside.bottom();
        const double start =
            platform::isRightToLeft(platform::currentLocale()) ? beside.right() - width : beside.x;
        setFrame({std::max(0.0, std::min(start, room.width - width)), goesAbove ? above : below,
                  width, height});
    }

    void layoutIfNeeded() override { place(); }
    /// The gaps between the days are no way to what lies beneath.
    bool mouseDown(const views::MouseEvent&) override { return true; }
    views::Role accessibilityRole() const override { return views::Role::Group; }
    void draw(views::Canvas& canvas, const Rect&) override {
        canvas.fillRoundedRect(bounds(), kCornerRadius, background_);
    }
    void drawAboveSubviews(views::Canvas& canvas, const Rect&) override {
        canvas.strokeRoundedRect(bounds(), kCornerRadius, views::theme().border, kMargin);
    }

  private:
    std::weak_ptr<View> view_;
    platform::Color background_;
    std::shared_ptr<View> content_;
};

class WindowPresenter final : public PopOverPresenter {
  public:
    void present(PopOver& popOver, const std::shared_ptr<View>& view) override {
        const auto overlay = std::make_shared<Overlay>(popOver, view);
        overlay->place();
        view->window()->root().addSubview(overlay);
    }

    void dismiss(PopOver& popOver) override {
        View* overlay = popOver.contentView()->superview();
        popOver.contentView()->removeFromSuperview();
        if (overlay) overlay->removeFromSuperview();
    }
};

}  // namespace

std::atomic<PopOverPresenter*>& presenterInForce() {
    static WindowPresenter inWindow;
    static std::atomic<PopOverPresenter*> presenter{&inWindow};
    return presenter;
}

PopOverPresenter& popOverPresenter() {
    return *presenterInForce();
}

PopOver::~PopOver() {
    delegate_.reset();
    close();
}

void PopOver::showBeside(const std::shared_ptr<View>& view) {
    if (isShown() || !view || !view->window()) return;
    presenter_ = &popOverPresenter();
    presenter_->present(*this, view);
}

void PopOver::close() {
    if (!isShown()) return;
    std::exchange(presenter_, nullptr)->dismiss(*this);
    if (const auto delegate = delegate_.lock()) delegate->popoverDidClose(*this);
}

}  // namespace corvane
