#include "corvane/controls/CVMacSheet.h"

#include "corvane/views/Button.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;
using views::Command;
using views::theme;
using views::View;

constexpr double kMargin = 20;  ///< of the window that stays visible
constexpr double kPadding = 8;
constexpr double kCornerRadius = 8;
constexpr platform::Color kShade({0, 0, 0, 0.32}, {0, 0, 0, 0.55});

}  // namespace

class CVMacSheet::Card final : public views::LayoutableView {
  public:
    /// The content may prefer another size than before.
    void applyLayout() override {
        if (auto* sheet = static_cast<CVMacSheet*>(superview())) sheet->setNeedsApplyLayout();
    }
    bool clipsToBounds() const override { return true; }
    void draw(views::Canvas& canvas, const Rect&) override {
        canvas.fillRoundedRect(bounds(), kCornerRadius, theme().background);
    }
    void drawAboveSubviews(views::Canvas& canvas, const Rect&) override {
        canvas.strokeRoundedRect(bounds(), kCornerRadius, theme().border, 1);
    }
    views::Role accessibilityRole() const override { return views::Role::Dialog; }
};

CVMacSheet::CVMacSheet(std::shared_ptr<View> contentView)
    : contentView_(std::move(contentView)), card_(std::make_shared<Card>()) {
    addSubview(card_);
    card_->addSubview(contentView_);
}

void CVMacSheet::setTitle(std::string title) {
    card_->setAccessibilityName(std::move(title));
}

void CVMacSheet::setDefaultButton(std::weak_ptr<views::Button> button) {
    defaultButton_ = std::move(button);
}

void CVMacSheet::setCancelButton(std::weak_ptr<views::Button> button) {
    cancelButton_ = std::move(button);
}

// Coming and going.

views::ModalViews* CVMacSheet::modalViews() const {
    const auto root = root_.lock();
    return root && root->window() ? &root->window()->modalViews() : nullptr;
}

bool CVMacSheet::isWaiting() const {
    const auto* modalViews = this->modalViews();
    return modalViews && modalViews->isWaiting(*this);
}

void CVMacSheet::beginInWindow(views::Window& window) {
    if (isShown_ || isWaiting()) return;
    root_ = window.root().shared_from_this();
    window.modalViews().begin(shared_from_this());
}

void CVMacSheet::end() {
    const auto keepAlive = shared_from_this();
    const bool waited = isWaiting();
    if (!isShown_ && !waited) return;
    if (auto* modalViews = this->modalViews()) modalViews->end(*this);
    if (waited) tellOfEnd();
}

void CVMacSheet::didMoveToWindow() {
    const bool isInWindow = window() != nullptr;
    const bool wasShown = std::exchange(isShown_, isInWindow);
    // A window that goes away takes along whoever might want to know.
    const bool wasRemoved = !superview();
    if (wasShown && wasRemoved) tellOfEnd();
}

void CVMacSheet::tellOfEnd() {
    const auto keepAlive = shared_from_this();
    const auto notice = didEnd;
    if (notice) notice();
}

// Keys.

bool CVMacSheet::keyDown(const views::KeyEvent& event) {
    const auto keepAlive = shared_from_this();
    views::Window* window = this->window();
    if (!window) return false;
    const bool nobodyWasAsked = !window->firstResponder();
    if (nobodyWasAsked && contentView_ && contentView_->keyDown(event)) return true;
    const auto command = views::commandForKey(event);
    if (command == Command::InsertTab) return window->selectFirstKeyViewIn(*this);
    if (command == Command::InsertBacktab) return window->selectLastKeyViewIn(*this);
    const bool confirms = command == Command::InsertNewline;
    const bool cancels = command == Command::CancelOperation;
    const auto button = confirms ? defaultButton_.lock() : cancelButton_.lock();
    if (button && (confirms || cancels)) {
        button->performClick();
    } else if (cancels) {
        end();
    }
    return cancels || (confirms && button);
}

// Looks.

void CVMacSheet::applyLayout() {
    if (!contentView_) return;
    const double around = 2 * (kMargin + kPadding);
    const Size room{std::max(0.0, bounds().width - around),
                    std::max(0.0, bounds().height - around)};
    const Size wanted = contentView_->preferredSizeThatFits(room);
    const Size size{std::min(wanted.width, room.width), std::min(wanted.height, room.height)};
    const double width = size.width + 2 * kPadding;
    const double height = size.height + 2 * kPadding;
    // A little above the middle, and on whole points, or letters would blur.
    card_->setFrame({std::floor((bounds().width - width) / 2),
                     std::floor((bounds().height - height) / 3), width, height});
    contentView_->setFrame({kPadding, kPadding, size.width, size.height});
}

void CVMacSheet::draw(views::Canvas& canvas, const Rect&) {
    canvas.fillRect(bounds(), kShade);
}

}  // namespace corvane
