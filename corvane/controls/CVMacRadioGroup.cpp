#include "corvane/controls/CVMacRadioGroup.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

constexpr double kButtonSize = 14;
constexpr double kGap = 7;
constexpr double kMarginX = 4;
constexpr double kMarginY = 3;
constexpr double kBeforeText = kMarginX + kButtonSize + kGap;

}  // namespace

class CVMacRadioGroup::Row final : public views::View {
  public:
    Row(CVMacRadioGroup& group, std::int64_t index, const Choice& choice, platform::ImagePtr icon)
        : group_(group),
          index_(index),
          title_(choice.title()),
          detail_(choice.detail()),
          icon_(std::move(icon)) {}

    views::IconAndText content() const {
        return {.icon = icon_, .text = title_, .centred = false, .detail = detail_};
    }
    views::Size preferredSizeThatFits(views::Size) override {
        const auto size = views::sizeOf(content());
        return {size.width + kBeforeText + kMarginX, size.height + 2 * kMarginY};
    }

    void draw(views::Canvas& canvas, const views::Rect&) override {
        const views::Theme& colors = views::theme();
        const bool enabled = accessibilityEnabled();
        const views::Rect button = views::mirrored(
            {kMarginX, (frame().height - kButtonSize) / 2, kButtonSize, kButtonSize},
            frame().width);
        const bool selected = group_.selectedRow() == index_;
        const auto& mark = enabled ? colors.accent : colors.secondaryText;
        canvas.fillRoundedRect(button, kButtonSize / 2,
                               selected   ? mark
                               : pressed_ ? colors.pressedBackground
                                          : colors.background);
        if (selected) {
            const views::Rect dot = button.insetBy(kButtonSize / 2 - 3, kButtonSize / 2 - 3);
            canvas.fillRoundedRect(dot, 3, colors.textOnAccent);
        } else {
            canvas.strokeRoundedRect(button, kButtonSize / 2, colors.secondaryText, 1);
        }
        views::drawIconAndText(
            canvas, content(),
            views::mirrored({kBeforeText, 0, textRoom(), frame().height}, frame().width),
            enabled ? colors.text : colors.secondaryText, enabled ? nullptr : &colors.background);
        if (group_.focusedRow() == index_) drawFocusRing(canvas, group_, bounds().insetBy(1, 1), 4);
    }

    bool mouseDown(const views::MouseEvent&) override {
        setPressed(group_.isEnabled());
        return true;
    }
    bool mouseDragged(const views::MouseEvent& event) override {
        setPressed(accessibilityEnabled() && isOver(event));
        return true;
    }
    bool mouseUp(const views::MouseEvent& event) override {
        setPressed(false);
        if (isOver(event)) accessibilityPress();
        return true;
    }

    void mouseWasLost() override { setPressed(false); }

    std::string toolTip() const override {
        if (!views::isTextCut(content(), textRoom())) return {};
        return detail_.empty() ? title_ : title_ + ", " + detail_;
    }
    views::Role accessibilityRole() const override { return views::Role::RadioButton; }
    std::string accessibilityName() const override { return title_; }
    std::string accessibilityValue() const override { return detail_; }
    std::optional<bool> accessibilityChecked() const override {
        return superview() && group_.selectedRow() == index_;
    }
    bool accessibilityEnabled() const override { return superview() && group_.isEnabled(); }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override {
        if (superview()) group_.choosePosition(index_);
    }

  private:
    double textRoom() const { return std::max(0.0, frame().width - kBeforeText - kMarginX); }
    bool isOver(const views::MouseEvent& event) const {
        return bounds().contains(convertFromWindow(event.locationInWindow()));
    }
    void setPressed(bool pressed) {
        if (std::exchange(pressed_, pressed) != pressed) setNeedsDisplay();
    }

    CVMacRadioGroup& group_;  ///< there for as long as it is the superview
    std::int64_t index_;
    std::string title_;
    std::string detail_;
    platform::ImagePtr icon_;
    bool pressed_ = false;
};

void CVMacRadioGroup::selectRow(std::int64_t row) {
    setSelectedIndexPath(row >= 0 && row < rowCount()
                             ? ChoicePath(choices()[static_cast<std::size_t>(row)].path)
                             : std::nullopt);
}

void CVMacRadioGroup::choicesDidChange() {
    for (const auto& row : std::exchange(rows_, {}))
        row->removeFromSuperview();
    for (const Choice& choice : choices()) {
        rows_.push_back(std::make_shared<Row>(*this, static_cast<std::int64_t>(rows_.size()),
                                              choice, iconOf(choice)));
        addSubview(rows_.back());
    }
    markedRow_ = -1;
    setNeedsDisplay();
}

void CVMacRadioGroup::selectionDidChange() {
    const auto before = std::exchange(markedRow_, selectedRow());
    for (const auto changed : {before, markedRow_})
        if (changed >= 0 && changed < rowCount())
            rows_[static_cast<std::size_t>(changed)]->accessibilityDidChange(
                views::AccessibilityChange::Checked);
}

std::int64_t CVMacRadioGroup::focusedRow() const {
    return std::max<std::int64_t>(0, selectedRow());
}

bool CVMacRadioGroup::keyDown(const views::KeyEvent& event) {
    if (const auto passedOn = focusPassedOn(*this, event)) return *passedOn;
    if (event.modifierFlags() != 0) return false;
    const bool none = selectedRow() < 0;
    switch (event.firstCharacter()) {
        case views::kKeyUpArrow:
            choosePosition(none ? 0 : selectedRow() - 1);
            return true;
        case views::kKeyDownArrow:
            choosePosition(selectedRow() + 1);
            return true;
        case views::kKeyHome:
            choosePosition(0);
            return true;
        case views::kKeyEnd:
            choosePosition(rowCount() - 1);
            return true;
        case U' ':
            if (none) choosePosition(0);
            return true;
        default:
            return false;
    }
}

views::Size CVMacRadioGroup::preferredSizeThatFits(views::Size available) {
    views::Size size;
    for (const auto& row : rows_) {
        const auto ofRow = row->preferredSizeThatFits(available);
        size = {std::max(size.width, ofRow.width), size.height + ofRow.height};
    }
    return {std::min(available.width, size.width), size.height};
}

void CVMacRadioGroup::layoutIfNeeded() {
    double y = 0;
    for (const auto& row : rows_) {
        const double height = row->preferredSizeThatFits(frame().size()).height;
        row->setFrame({0, y, frame().width, height});
        y += height;
    }
}

}  // namespace corvane
