#include "corvane/controls/CVMacBitmaskChooser.h"

#include "corvane/dates/EXBitmaskFactory.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;
using views::Command;
using views::theme;

constexpr double kGap = 4;
constexpr double kMargin = 8;
constexpr double kLeastWidth = 30;
constexpr double kHeight = 24;
constexpr double kCornerRadius = 5;

}  // namespace

class CVMacBitmaskChooser::Cell final : public views::View {
  public:
    Cell(CVMacBitmaskChooser& chooser, std::size_t bit) : chooser_(chooser), bit_(bit) {}

    void draw(views::Canvas& canvas, const Rect&) override {
        const bool isOn = *accessibilityChecked();
        const bool isEnabled = chooser_.isEnabled();
        const auto& ground = isOn && isEnabled ? theme().accent
                             : isOn            ? theme().inactiveSelection
                                               : theme().controlBackground;
        canvas.fillRoundedRect(bounds(), kCornerRadius, ground);
        if (!isOn || !isEnabled)
            canvas.strokeRoundedRect(bounds(), kCornerRadius, theme().border, 1);
        const auto& color = !isEnabled ? theme().secondaryText
                            : isOn     ? theme().textOnAccent
                                       : theme().text;
        canvas.drawText(chooser_.labels_[bit_], bounds(),
                        {{}, color, views::TextAlignment::Center});
        if (!isFocused()) return;
        // Within the cell, and seen on either ground.
        const double inset = isOn ? 2 : 0;
        canvas.strokeRoundedRect(bounds().insetBy(inset, inset), kCornerRadius - inset,
                                 isOn ? theme().textOnAccent : theme().accent, 2);
    }
    std::string toolTip() const override {
        const std::string name = accessibilityName();
        return name == chooser_.labels_[bit_] ? std::string() : name;
    }

    bool mouseDown(const views::MouseEvent&) override { return true; }
    bool mouseUp(const views::MouseEvent& event) override {
        const auto keepAlive = shared_from_this();
        if (superview() && bounds().contains(convertFromWindow(event.locationInWindow())))
            accessibilityPress();
        return true;
    }

    views::Role accessibilityRole() const override { return views::Role::CheckBox; }
    std::string accessibilityName() const override { return chooser_.nameOfCell(bit_); }
    std::optional<bool> accessibilityChecked() const override {
        return chooser_.isOn(static_cast<std::int64_t>(bit_));
    }
    bool accessibilityEnabled() const override { return chooser_.isEnabled(); }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override {
        if (!superview() || !chooser_.isEnabled()) return;
        chooser_.moveFocusTo(static_cast<std::int64_t>(bit_));
        chooser_.toggleBit(static_cast<std::int64_t>(bit_));
    }

  private:
    bool isFocused() const {
        return chooser_.focusedBit_ == static_cast<std::int64_t>(bit_) && showsFocus(chooser_);
    }

    CVMacBitmaskChooser& chooser_;  ///< there for as long as it is the superview
    std::size_t bit_;
};

void CVMacBitmaskChooser::setLabels(std::vector<std::string> labels, int columns) {
    labels.resize(std::min(labels.size(), kMostBits));
    labels_ = std::move(labels);
    columns_ = std::max(1, columns);
    focusedBit_ = 0;
    for (const auto& cell : std::exchange(cells_, {}))
        cell->removeFromSuperview();
    for (std::size_t bit = 0; bit < labels_.size(); ++bit) {
        cells_.push_back(std::make_shared<Cell>(*this, bit));
        addSubview(cells_.back());
    }
    placeCells();
    setNeedsDisplay();
}

void CVMacBitmaskChooser::setCellNames(std::vector<std::string> names) {
    names_ = std::move(names);
}

std::string CVMacBitmaskChooser::nameOfCell(std::size_t bit) const {
    return bit < names_.size() && !names_[bit].empty() ? names_[bit] : labels_[bit];
}

// The mask.

void CVMacBitmaskChooser::setBitmask(std::int64_t bitmask) {
    const std::int64_t changed = std::exchange(bitmask_, bitmask) ^ bitmask;
    if (changed == 0) return;
    setNeedsDisplay();
    for (std::size_t bit = 0; bit < cells_.size(); ++bit)
        if (((changed >> bit) & 1) != 0)
            cells_[bit]->accessibilityDidChange(views::AccessibilityChange::Checked);
    accessibilityDidChange(views::AccessibilityChange::Value);
}

void CVMacBitmaskChooser::toggleBit(std::int64_t bit) {
    const bool hasCell = bit >= 0 && bit < static_cast<std::int64_t>(cells_.size());
    if (!hasCell || !isEnabled()) return;
    setBitmask(EXBitmaskFactory::toggleBit(bitmask_, bit));
    sendAction();
}

void CVMacBitmaskChooser::setEnabled(bool enabled) {
    views::Control::setEnabled(enabled);
    for (const auto& cell : cells_)
        cell->accessibilityDidChange(views::AccessibilityChange::Enabled);
}

std::string CVMacBitmaskChooser::accessibilityValue() const {
    std::string value;
    for (std::size_t bit = 0; bit < cells_.size(); ++bit) {
        if (!isOn(static_cast<std::int64_t>(bit))) continue;
        value += (value.empty() ? "" : ", ") + nameOfCell(bit);
    }
    return value;
}

// Keys.

void CVMacBitmaskChooser::moveFocusTo(std::int64_t bit) {
    if (bit < 0 || bit >= static_cast<std::int64_t>(cells_.size())) return;
    focusedBit_ = bit;
    setNeedsDisplay();
}

bool CVMacBitmaskChooser::doCommand(Command command) {
    const std::int64_t forward = views::isMirrored() ? -1 : 1;
    switch (command) {
        case Command::MoveLeft:
            moveFocusTo(focusedBit_ - forward);
            return true;
        case Command::MoveRight:
            moveFocusTo(focusedBit_ + forward);
            return true;
        case Command::MoveUp:
            moveFocusTo(focusedBit_ - columns_);
            return true;
        case Command::MoveDown:
            moveFocusTo(focusedBit_ + columns_);
            return true;
        default:
            return focusPassedOn(*this, command).value_or(false);
    }
}

bool CVMacBitmaskChooser::insertText(std::string_view text) {
    if (text != " ") return false;
    toggleBit(focusedBit_);
    return true;
}

// Looks.

views::Size CVMacBitmaskChooser::preferredSizeThatFits(Size available) {
    double width = kLeastWidth;
    for (const std::string& label : labels_)
        width = std::max(
            width, std::ceil(views::textMeasurer().sizeOfText(label, {}).width) + 2 * kMargin);
    const auto count = static_cast<int>(labels_.size());
    const int columns = std::min(columns_, count);
    const int rows = (count + columns_ - 1) / columns_;
    return {std::min(available.width, std::max(0.0, columns * (width + kGap) - kGap)),
            std::max(0.0, rows * (kHeight + kGap) - kGap)};
}

void CVMacBitmaskChooser::placeCells() {
    isMirrored_ = views::isMirrored();
    const double width = std::max(0.0, (frame().width + kGap) / columns_ - kGap);
    for (int i = 0; i < static_cast<int>(cells_.size()); ++i) {
        const Rect frame{(i % columns_) * (width + kGap), (i / columns_) * (kHeight + kGap), width,
                         kHeight};
        cells_[static_cast<std::size_t>(i)]->setFrame(views::mirrored(frame, bounds().width));
    }
}

void CVMacBitmaskChooser::layoutIfNeeded() {
    // Another locale may mirror it.
    if (views::isMirrored() != isMirrored_) placeCells();
}

void CVMacBitmaskChooser::frameDidChange(const Rect& before) {
    if (before.size() != frame().size()) placeCells();
}

}  // namespace corvane
