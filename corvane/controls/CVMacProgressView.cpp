#include "corvane/controls/CVMacProgressView.h"

#include "corvane/platform/NumberText.h"
#include "corvane/views/Button.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr double kBarHeight = 8;
constexpr double kUsualBarWidth = 200;
constexpr double kGap = 8;
/// How much of a bar without fraction is filled, and how far that moves at a time.
constexpr double kBusyPart = 0.25;
constexpr double kBusyStep = 0.05;

/// Full hundredths, so that 100 means done; 0.29 is 29 of them, though a little less in binary.
int percentOf(double fraction) {
    return static_cast<int>(std::floor(fraction * 100 + 1e-9));
}

}  // namespace

CVMacProgressView::CVMacProgressView(const views::Rect& frame)
    : CompoundView(frame), cancelButton_(std::make_shared<views::Button>()) {
    cancelButton_->setTitle(EXLocalizable::localize("Cancel"));
    cancelButton_->setHidden(true);
    cancelButton_->setAction([this](views::Control&) { performCancel(); });
    addSubview(cancelButton_);
    setKeyViewParts({cancelButton_});
}

CVMacProgressView::~CVMacProgressView() {
    cancelButton_->setAction({});
}

void CVMacProgressView::setTitle(std::string title) {
    if (title == title_) return;
    title_ = std::move(title);
    setNeedsDisplay();
    accessibilityDidChange(views::AccessibilityChange::Name);
}

void CVMacProgressView::setFraction(std::optional<double> fraction) {
    if (fraction && std::isnan(*fraction)) fraction.reset();
    if (fraction) fraction = std::clamp(*fraction, 0.0, 1.0);
    if (fraction == fraction_) return;
    const auto percent = [](const auto& known) { return known ? percentOf(*known) : -1; };
    const bool isNews = percent(fraction) != percent(fraction_);
    fraction_ = fraction;
    advances_ = 0;
    setNeedsDisplay();
    // Not more often than there is something new to say.
    if (isNews) accessibilityDidChange(views::AccessibilityChange::Value);
}

void CVMacProgressView::advance() {
    if (fraction_) return;
    ++advances_;
    setNeedsDisplay();
}

void CVMacProgressView::setCancellable(bool cancellable) {
    if (std::exchange(cancellable_, cancellable) == cancellable) return;
    // The focus must not be lost with the button.
    if (!cancellable && cancelButton_->isFirstResponder())
        window()->selectNextKeyViewOf(*cancelButton_);
    cancelButton_->setHidden(!cancellable);
    preferredSizeDidChange();
}

void CVMacProgressView::performCancel() {
    if (!cancellable_) return;
    const auto keepAlive = weak_from_this().lock();
    const auto notice = didCancel;  // which may set another one
    if (notice) notice();
}

bool CVMacProgressView::keyDown(const views::KeyEvent& event) {
    if (!cancellable_ || event.firstCharacter() != views::kKeyEscape) return false;
    performCancel();
    return true;
}

// Looks.

views::Size CVMacProgressView::preferredSizeThatFits(views::Size available) {
    const auto title = views::sizeOf({.icon = nullptr, .text = title_, .font = {}});
    views::Size bar{kUsualBarWidth, kBarHeight};
    if (cancellable_) {
        const auto button = cancelButton_->preferredSizeThatFits(available);
        bar = {bar.width + kGap + button.width, std::max(bar.height, button.height)};
    }
    return {std::min(available.width, std::max(title.width, bar.width)),
            title.height + kGap / 2 + bar.height};
}

views::Rect CVMacProgressView::titleRect() const {
    return {0, 0, frame().width, views::textMeasurer().lineHeight({})};
}

views::Rect CVMacProgressView::barRect() const {
    const double top = titleRect().bottom() + kGap / 2;
    const double button = cancellable_ ? cancelButton_->frame().width + kGap : 0;
    const double y = top + (std::max(kBarHeight, frame().height - top) - kBarHeight) / 2;
    return views::mirrored({0, y, std::max(0.0, frame().width - button), kBarHeight},
                           frame().width);
}

void CVMacProgressView::layoutIfNeeded() {
    CompoundView::layoutIfNeeded();
    applyLayout();  // the user's language may be another one since the last time
}

void CVMacProgressView::applyLayout() {
    const double top = titleRect().bottom() + kGap / 2;
    const auto size = cancelButton_->preferredSizeThatFits(frame().size());
    const double y = top + std::max(0.0, (frame().height - top - size.height) / 2);
    cancelButton_->setFrame(
        views::mirrored({frame().width - size.width, y, size.width, size.height}, frame().width));
}

void CVMacProgressView::draw(views::Canvas& canvas, const views::Rect&) {
    const views::Theme& colors = views::theme();
    canvas.drawText(title_, titleRect(), {{}, colors.text});
    const views::Rect bar = barRect();
    const double radius = kBarHeight / 2;
    canvas.fillRoundedRect(bar, radius, colors.pressedBackground);
    canvas.strokeRoundedRect(bar, radius, colors.border, 1);
    const double start =
        fraction_ ? 0 : std::fmod(advances_ * kBusyStep, 1 - kBusyPart) * bar.width;
    const double length = fraction_.value_or(kBusyPart) * bar.width;
    if (length <= 0) return;
    // A short piece of a rounded bar is as round as the bar's ends.
    const double shown = std::min(bar.width, std::max(length, kBarHeight));
    const views::Rect filled = views::mirrored({start, 0, shown, kBarHeight}, bar.width);
    canvas.fillRoundedRect(filled.movedBy(bar.x, bar.y), radius, colors.accent);
}

std::string CVMacProgressView::toolTip() const {
    std::string own = views::View::toolTip();
    if (!own.empty()) return own;
    const bool isCut =
        views::isTextCut({.icon = nullptr, .text = title_, .font = {}}, frame().width);
    return isCut ? title_ : own;
}

std::string CVMacProgressView::accessibilityName() const {
    std::string name = views::View::accessibilityName();
    return name.empty() ? title_ : name;
}

std::string CVMacProgressView::accessibilityValue() const {
    return fraction_ ? platform::percentText(percentOf(*fraction_)) : std::string();
}

std::optional<double> CVMacProgressView::accessibilityNumber() const {
    return fraction_ ? std::optional<double>(percentOf(*fraction_)) : std::nullopt;
}

}  // namespace corvane
