#include "corvane/controls/CVMacPanel.h"

#include "corvane/views/Button.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

using platform::Point;
using platform::Rect;
using platform::Size;
using views::Command;
using views::theme;
using views::View;

constexpr double kBarHeight = 26;
constexpr double kButtonSize = 20;
constexpr double kPadding = 8;
constexpr double kCornerRadius = 7;
constexpr views::Font kTitleFont{13, true};

/// As far as there is something to place it in.
double within(double position, double least, double greatest) {
    return std::max(least, std::min(position, greatest));
}

}  // namespace

/// Shows the title, closes the panel and moves it.
class CVMacPanel::Bar final : public View {
  public:
    explicit Bar(CVMacPanel& panel) : panel_(panel), close_(std::make_shared<views::Button>()) {
        close_->setTitle("✕");
        close_->setAccessibilityName(EXLocalizable::localize("Close"));
        close_->setAction([this](auto&) {
            if (superview()) panel_.close();
        });
        addSubview(close_);
    }

    Rect titleFrame() const {
        const double x = close_->frame().width + 2 * kPadding;
        return views::mirrored({x, 0, std::max(0.0, bounds().width - 2 * x), kBarHeight},
                               bounds().width);
    }
    void draw(views::Canvas& canvas, const Rect&) override {
        canvas.fillRoundedRect({0, 0, bounds().width, kBarHeight + kCornerRadius}, kCornerRadius,
                               theme().controlBackground);
        canvas.drawText(panel_.title_, titleFrame(),
                        {kTitleFont, theme().text, views::TextAlignment::Center});
        canvas.drawLine({0, kBarHeight}, {bounds().width, kBarHeight}, theme().separator, 1);
    }
    bool clipsToBounds() const override { return true; }
    std::string toolTip() const override { return panel_.title_; }

    bool mouseDown(const views::MouseEvent& event) override {
        panel_.bringToFront();
        grabbedAt_ = event.locationInWindow() - panel_.frame().origin();
        return true;
    }
    bool mouseDragged(const views::MouseEvent& event) override {
        panel_.moveTo(event.locationInWindow() - grabbedAt_);
        return true;
    }
    bool mouseUp(const views::MouseEvent&) override { return true; }

    void layoutIfNeeded() override {
        const Rect frame{kPadding / 2, (kBarHeight - kButtonSize) / 2, kButtonSize, kButtonSize};
        close_->setFrame(views::mirrored(frame, bounds().width));
    }

  private:
    CVMacPanel& panel_;  ///< there for as long as it is the superview
    std::shared_ptr<views::Button> close_;
    Point grabbedAt_;
};

CVMacPanel::CVMacPanel(std::string title, std::shared_ptr<View> contentView)
    : title_(std::move(title)),
      contentView_(std::move(contentView)),
      bar_(std::make_shared<Bar>(*this)) {
    addSubview(contentView_);
    addSubview(bar_);
}

void CVMacPanel::setTitle(std::string title) {
    title_ = std::move(title);
    bar_->setNeedsDisplay();
    accessibilityDidChange(views::AccessibilityChange::Name);
}

// Coming and going.

void CVMacPanel::showInWindow(views::Window& window) {
    const auto keepAlive = shared_from_this();
    if (superview() == &window.root()) {
        bringToFront();
    } else {
        removeFromSuperview();
        focusBefore_ = window.firstResponder();
        const double around = 2 * kPadding;
        const Size room{std::max(0.0, window.size().width - around),
                        std::max(0.0, window.size().height - kBarHeight - around)};
        const Size content = contentView_ ? contentView_->preferredSizeThatFits(room) : Size{};
        setFrameSize({std::min(content.width, room.width) + around,
                      std::min(content.height, room.height) + kBarHeight + around});
        window.root().addSubview(keepAlive);
        const Point middle{(window.size().width - frame().width) / 2,
                           (window.size().height - frame().height) / 2};
        moveTo(std::exchange(hasPlace_, true) ? frame().origin() : middle);
    }
    window.selectFirstKeyViewIn(*this);
}

void CVMacPanel::close() {
    const auto keepAlive = shared_from_this();
    views::Window* window = this->window();
    const auto focused = window ? window->firstResponder() : nullptr;
    const bool hadFocus = focused && focused->isDescendantOf(*this);
    removeFromSuperview();
    const auto before = focusBefore_.lock();
    if (hadFocus && before && before->window() == window) window->makeFirstResponder(before);
}

void CVMacPanel::didMoveToWindow() {
    const bool isInWindow = window() != nullptr;
    const bool wasShown = std::exchange(isShown_, isInWindow);
    // A window that goes away takes along whoever might want to know.
    const bool wasRemoved = !superview();
    if (!wasShown || !wasRemoved) return;
    const auto keepAlive = shared_from_this();
    const auto notice = didClose;
    if (notice) notice();
}

void CVMacPanel::moveTo(Point origin) {
    const views::Window* window = this->window();
    if (!window) return;
    const Size room{window->size().width - frame().width, window->size().height - frame().height};
    double x = within(origin.x, 0, room.width);
    // Where the window is too narrow, the side that stays is the one with the button.
    if (views::isMirrored()) x = std::min(x, room.width);
    setFrame({std::round(x), std::round(within(origin.y, 0, room.height)), frame().width,
              frame().height});
}

// Events.

bool CVMacPanel::mouseDown(const views::MouseEvent&) {
    bringToFront();
    return true;
}

bool CVMacPanel::keyDown(const views::KeyEvent& event) {
    views::Window* window = this->window();
    const auto command = views::commandForKey(event);
    if (!window || !command) return false;
    if (*command == Command::CancelOperation) close();
    if (*command == Command::InsertTab || *command == Command::InsertBacktab) {
        // From the end of the content to the bar, and from there back.
        const auto focused = window->firstResponder();
        const bool isInBar = focused && focused->isDescendantOf(*bar_);
        const View& next = isInBar && contentView_ ? *contentView_ : *bar_;
        return *command == Command::InsertTab ? window->selectFirstKeyViewIn(next)
                                              : window->selectLastKeyViewIn(next);
    }
    return *command == Command::CancelOperation;
}

// Looks.

void CVMacPanel::layoutIfNeeded() {
    moveTo(frame().origin());  // the window may have become smaller
    LayoutableView::layoutIfNeeded();
}

void CVMacPanel::applyLayout() {
    bar_->setFrame({0, 0, bounds().width, kBarHeight + 1});
    if (!contentView_) return;
    contentView_->setFrame({kPadding, kBarHeight + kPadding,
                            std::max(0.0, bounds().width - 2 * kPadding),
                            std::max(0.0, bounds().height - kBarHeight - 2 * kPadding)});
}

void CVMacPanel::draw(views::Canvas& canvas, const Rect&) {
    canvas.fillRoundedRect(bounds(), kCornerRadius, theme().background);
}

void CVMacPanel::drawAboveSubviews(views::Canvas& canvas, const Rect&) {
    canvas.strokeRoundedRect(bounds(), kCornerRadius, theme().border, 1);
}

}  // namespace corvane
