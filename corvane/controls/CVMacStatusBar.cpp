#include "corvane/controls/CVMacStatusBar.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Label.h"
#include "corvane/views/Menu.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/PressableControl.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <utility>

namespace corvane {

using views::Rect;
using views::Size;

namespace {

constexpr double kMargin = 8;
constexpr double kGap = 6;
constexpr double kVerticalMargin = 4;
constexpr double kIcon = 16;
constexpr double kAroundIcon = 3;
constexpr double kShareOfText = 0.5;

/// A text of somebody's own has a tool tip only where it is cut off.
class StatusLabel final : public views::Label {
  public:
    std::string toolTip() const override {
        const double wanted = views::textMeasurer().sizeOfText(text(), font()).width;
        return wanted > frame().width ? text() : "";
    }
};

}  // namespace

class CVMacStatusBar::Icon final : public views::PressableControl {
  public:
    explicit Icon(CVMacStatusBar& bar) : bar_(&bar) {}

    void leaveBar() { bar_ = nullptr; }
    const platform::ImagePtr& image() const { return image_; }
    void setImage(platform::ImagePtr image) {
        image_ = std::move(image);
        setNeedsDisplay();
    }

    void draw(views::Canvas& canvas, const Rect&) override {
        if (isPressed()) canvas.fillRoundedRect(bounds(), 4, views::theme().pressedBackground);
        const Rect inside = bounds().insetBy(kAroundIcon, kAroundIcon);
        views::drawIconAndText(canvas, {image_, {}}, inside, views::theme().text);
        drawFocusRing(canvas, *this, bounds(), 4);
    }

    bool keyDown(const views::KeyEvent& event) override {
        if (PressableControl::keyDown(event)) return true;
        if (views::commandForKey(event) != views::Command::InsertNewline) return false;
        performClick();
        return true;
    }
    std::shared_ptr<views::Menu> menuForEvent(const views::MouseEvent&) override {
        const auto asked = bar_ ? bar_->contextMenuForStatusIcon : nullptr;
        return asked ? asked() : nullptr;
    }

    std::string toolTip() const override { return accessibilityName(); }
    views::Role accessibilityRole() const override { return views::Role::Button; }

  private:
    void wasClicked() override {
        const auto keepAlive = shared_from_this();
        const auto told = bar_ ? bar_->statusIconSelected : nullptr;
        if (told) told();
    }

    CVMacStatusBar* bar_;  ///< null when that has gone
    platform::ImagePtr image_;
};

CVMacStatusBar::CVMacStatusBar()
    : icon_(std::make_shared<Icon>(*this)), label_(std::make_shared<StatusLabel>()) {
    icon_->setHidden(true);
    views::Font font;
    font.size = 12;
    label_->setFont(font);
    addSubview(icon_);
    addSubview(label_);
    setKeyViewParts({icon_});
}

CVMacStatusBar::~CVMacStatusBar() {
    icon_->leaveBar();
}

const std::string& CVMacStatusBar::text() const {
    return label_->text();
}

void CVMacStatusBar::setText(std::string text) {
    if (text == label_->text()) return;
    label_->setText(std::move(text));
    preferredSizeDidChange();
    accessibilityDidChange(views::AccessibilityChange::Value);
}

void CVMacStatusBar::setStatusIcon(platform::ImagePtr icon, std::string name) {
    icon_->setImage(std::move(icon));
    icon_->setHidden(!icon_->image());
    icon_->setAccessibilityName(std::move(name));
    preferredSizeDidChange();
}

void CVMacStatusBar::setAccessoryView(std::shared_ptr<View> view) {
    if (!replaceSubview(accessoryView_, view)) return;
    setKeyViewParts({icon_, accessoryView_});
    preferredSizeDidChange();
}

Size CVMacStatusBar::preferredSizeThatFits(Size available) {
    constexpr double kEverything = 1e6;
    Size size = label_->preferredSizeThatFits({kEverything, available.height});
    size.width += 2 * kMargin;
    const auto add = [&size](Size part) {
        size = {size.width + kGap + part.width, std::max(size.height, part.height)};
    };
    if (!icon_->isHidden()) add({kIcon + 2 * kAroundIcon, kIcon});
    if (accessoryView_ && accessoryView_->superview() == this)
        add(accessoryView_->preferredSizeThatFits(available));
    return {std::min(size.width, available.width), size.height + 2 * kVerticalMargin};
}

void CVMacStatusBar::applyLayout() {
    const Size size = frame().size();
    double start = kMargin;
    double end = size.width - kMargin;
    if (!icon_->isHidden()) {
        const double side = kIcon + 2 * kAroundIcon;
        icon_->setFrame(views::mirrored({start, (size.height - side) / 2, side, side}, size.width));
        start += side + kGap;
    }
    if (accessoryView_ && accessoryView_->superview() == this) {
        const double all = std::max(0.0, end - start);
        const double text = label_->preferredSizeThatFits({all, size.height}).width;
        const double room = std::max(0.0, all - std::min(text, all * kShareOfText) - kGap);
        Size part = accessoryView_->preferredSizeThatFits({room, size.height});
        part = {std::min(part.width, room), std::min(part.height, size.height)};
        accessoryView_->setFrame(views::mirrored(
            {end - part.width, (size.height - part.height) / 2, part.width, part.height},
            size.width));
        end -= part.width + kGap;
    }
    label_->setFrame(
        views::mirrored({start, 0, std::max(0.0, end - start), size.height}, size.width));
}

void CVMacStatusBar::draw(views::Canvas& canvas, const Rect&) {
    canvas.fillRect(bounds(), views::theme().controlBackground);
    canvas.fillRect({0, 0, frame().width, 1}, views::theme().separator);
}

}  // namespace corvane
