#include "corvane/table/CVMacTableViewCell.h"

#include "corvane/table/CVMacBackgroundView.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/ImageView.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextView.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr platform::Color kSelectedBackground = platform::Color::ofBytes(95, 162, 224);
constexpr double kAccessoryGap = 2;
constexpr double kGrowthMargin = 4;

}  // namespace

CVMacTableViewCell::~CVMacTableViewCell() {
    withdrawClick();
}

void CVMacTableViewCell::prepareForReuse() {
    mouseDownLocation_ = {};
    clickLocation_ = {};
    clickModifierFlags_ = 0;
    setSelected(false);
    placeholderCell_ = false;
    activeDragSource_ = false;
    filtered_ = false;
    withdrawClick();  // it was meant for the other row
}

// Looks.

void CVMacTableViewCell::setSelected(bool selected) {
    const bool changes = selected != selected_;
    selected_ = selected;
    if (changes) accessibilityDidChange(views::AccessibilityChange::Selected);
    if (auto* background = dynamic_cast<CVMacBackgroundView*>(backgroundView_.get()))
        background->setBackgroundColor(selected ? selectedBackgroundColor() : backgroundColor());
    setNeedsDisplay();
}

std::optional<platform::Color> CVMacTableViewCell::backgroundColor() const {
    return colors_ ? colors_->background : std::nullopt;
}

void CVMacTableViewCell::setBackgroundColor(const std::optional<platform::Color>& color) {
    if (!colors_) colors_ = std::make_unique<Colors>();
    colors_->background = color;
    setNeedsDisplay();
}

platform::Color CVMacTableViewCell::selectedBackgroundColor() const {
    return colors_ ? colors_->selectedBackground.value_or(kSelectedBackground)
                   : kSelectedBackground;
}

void CVMacTableViewCell::setSelectedBackgroundColor(const platform::Color& color) {
    if (!colors_) colors_ = std::make_unique<Colors>();
    colors_->selectedBackground = color;
    setNeedsDisplay();
}

void CVMacTableViewCell::draw(views::Canvas& canvas, const views::Rect&) {
    if (backgroundView_) return;
    const bool active = window() && window()->isActive();
    if (selected_) {
        const views::Theme& theme = views::theme();
        const auto own = colors_ ? colors_->selectedBackground : std::nullopt;
        const platform::Color focused = own ? own->withAlpha(0.45) : theme.selection;
        canvas.fillRect(bounds(), active ? focused : theme.inactiveSelection);
    } else if (const auto color = backgroundColor()) {
        canvas.fillRect(bounds(), *color);
    }
}

void CVMacTableViewCell::drawAboveSubviews(views::Canvas& canvas, const views::Rect&) {
    // On paper nothing has the focus.
    if (!printing_ && views::showsFocus(*this))
        canvas.strokeRoundedRect(bounds().insetBy(1, 1), 3, views::theme().accent, 1.5);
}

std::string CVMacTableViewCell::accessibilityName() const {
    std::string name = View::accessibilityName();
    if (!name.empty() || !contentView_) return name;
    for (const auto& view : contentView_->subviews()) {
        const bool isField = view->accessibilityRole() == views::Role::TextField;
        const std::string text = isField ? view->accessibilityValue() : view->accessibilityName();
        if (text.empty() || view->isHidden()) continue;
        if (!name.empty()) name += ", ";
        name += text;
    }
    return name;
}

// Parts.

void CVMacTableViewCell::setBackgroundView(const ViewPtr& view) {
    if (backgroundView_) backgroundView_->removeFromSuperview();
    backgroundView_ = view;
    if (!view) return;
    addSubview(view);
    // The others come on top of it again.
    if (contentView_) addSubview(contentView_);
    if (accessoryView_) addSubview(accessoryView_);
    setSelected(selected_);
    setNeedsApplyLayout();
}

void CVMacTableViewCell::setAccessoryView(const ViewPtr& view) {
    if (accessoryView_) accessoryView_->removeFromSuperview();
    accessoryView_ = view;
    if (view) addSubview(view);
    setNeedsApplyLayout();
}

const std::shared_ptr<CVMacCellContentView>& CVMacTableViewCell::contentView() {
    if (!contentView_) {
        contentView_ = std::make_shared<CVMacCellContentView>();
        addSubview(contentView_);
        if (accessoryView_) addSubview(accessoryView_);
        setNeedsApplyLayout();
    }
    return contentView_;
}

// Measuring.

double CVMacTableViewCell::contentWidthForCellWidth(double cellWidth, double& contentOffset) {
    contentOffset = 0;
    if (accessoryView_ && !accessoryView_->isHidden())
        contentOffset = rectForAccessoryViewWithCellWidth(cellWidth).width + kAccessoryGap;
    return cellWidth - contentOffset;
}

double CVMacTableViewCell::contentHeightForWidth(double width, double rowHeight, bool printing) {
    if (filtered_ || (placeholderCell_ && printing)) return 0;
    const double height = rowHeightForContentWidth(width);
    return height == -1 ? rowHeight : height;
}

views::Rect CVMacTableViewCell::rectForContentView() {
    double offset = 0;
    const double width = contentWidthForCellWidth(frame().width, offset);
    return {offset, 0, width, frame().height};
}

views::Size CVMacTableViewCell::sizeForCellWidth(double cellWidth, double rowHeight,
                                                 bool printing) {
    printing_ = printing;
    double offset = 0;
    const double width = contentWidthForCellWidth(cellWidth, offset);
    return {cellWidth, contentHeightForWidth(width, rowHeight, printing)};
}

void CVMacTableViewCell::applyLayout() {
    if (backgroundView_) backgroundView_->setFrame(bounds());
    const double width = frame().width;
    if (accessoryView_)
        accessoryView_->setFrame(views::mirrored(rectForAccessoryViewWithCellWidth(width), width));
    if (!contentView_) return;
    contentView_->setFrame(views::mirrored(rectForContentView(), width));
    layoutContentView(*contentView_);
}

// The usual controls.

std::shared_ptr<views::TextView> CVMacTableViewCell::createLabelView() {
    auto label = std::make_shared<views::TextView>();
    label->setBordered(false);
    label->setEditable(false);
    contentView()->addSubview(label);
    return label;
}

std::shared_ptr<views::ImageView> CVMacTableViewCell::createIconView() {
    auto icon = std::make_shared<views::ImageView>();
    contentView()->addSubview(icon);
    return icon;
}

void CVMacTableViewCell::setTextForLabelView(const std::optional<std::string>& text,
                                             views::TextView& labelView) {
    labelView.setStringValue(text.value_or(""));
}

void CVMacTableViewCell::setImageForIconView(const platform::ImagePtr& image,
                                             views::ImageView& iconView) {
    iconView.setImage(image);
}

views::Size CVMacTableViewCell::preferredSizeForLabelView(views::TextView& labelView) {
    return labelView.views::TextField::preferredSizeThatFits({HUGE_VAL, HUGE_VAL});
}

double CVMacTableViewCell::preferredHeightForWidthOfLabelView(double width,
                                                              const views::TextView& labelView) {
    return labelView.preferredHeightForWidth(width);
}

views::Size CVMacTableViewCell::preferredSizeThatFitsForLabelView(views::Size available,
                                                                  views::TextView& labelView) {
    return labelView.preferredSizeThatFits(available);
}

views::Size CVMacTableViewCell::preferredSizeForIconView(views::ImageView& iconView) {
    return iconView.preferredSizeThatFits({});
}

// Fields.

void CVMacTableViewCell::addActivatableField(const FieldPtr& field) {
    if (!field || isActivatable(*field)) return;
    activatableFields_.push_back(field);
    field->setEditable(false);
}

void CVMacTableViewCell::removeActivatableField(const FieldPtr& field) {
    std::erase_if(activatableFields_, [&](const auto& one) { return one.lock() == field; });
}

bool CVMacTableViewCell::isActivatable(const views::View& view) const {
    return std::any_of(activatableFields_.begin(), activatableFields_.end(),
                       [&](const auto& one) { return one.lock().get() == &view; });
}

void CVMacTableViewCell::activateField(const FieldPtr& field) {
    if (!field || !isActivatable(*field) || field->isEditable()) return;
    const auto keepAlive = shared_from_this();
    delegateSelectionEventWithModifierFlags(0);
    field->setEditable(true);
}

void CVMacTableViewCell::deactivateField(const FieldPtr& field) {
    if (field && isActivatable(*field) && field->isEditable()) field->setEditable(false);
}

void CVMacTableViewCell::controlTextDidEndEditing(views::TextField& control) {
    const auto keepAlive = shared_from_this();
    deactivateField(std::static_pointer_cast<views::TextField>(control.shared_from_this()));
    const auto table = delegate();
    if (placeholderCell_ && table) table->cellSchedulesCancelEditingPlaceholder(*this);
}

void CVMacTableViewCell::controlTextDidChange(views::TextField& control) {
    const auto* label = dynamic_cast<views::TextView*>(&control);
    if (!label) return;
    const views::Rect frame = control.frame();
    const double needed = std::trunc(label->preferredHeightForWidth(frame.width) + kGrowthMargin);
    if (needed == std::round(frame.height)) return;
    control.setFrame({frame.x, frame.y, frame.width, needed});
    if (const auto table = delegate()) table->cellDidAutoResizeControl(*this, control);
}

bool CVMacTableViewCell::controlDoCommandBySelector(views::TextField& control, views::FieldEditor&,
                                                    views::Command command) {
    const auto keepAlive = shared_from_this();
    switch (command) {
        case views::Command::InsertNewline:
            return insertRowAfterEditing();
        case views::Command::InsertTab:
            handFirstResponderToNextKeyViewForView(control);
            return true;
        case views::Command::InsertBacktab:
            handFirstResponderToPreviousKeyViewForView(control);
            return true;
        case views::Command::CancelOperation:
            takeFocus();
            return true;
        default:
            return false;
    }
}

bool CVMacTableViewCell::insertRowAfterEditing() {
    takeFocus();
    const auto table = delegate();
    if (table && (!placeholderCell_ || table->cellCanInlineInsert(*this)))
        table->cellRequestsNextKeyViewByInsert(*this);
    return true;
}

// Focus.

void CVMacTableViewCell::takeFocus() {
    if (views::Window* window = this->window()) window->makeFirstResponder(shared_from_this());
}

void CVMacTableViewCell::focus(const ViewPtr& view) {
    if (!view) return;
    if (auto field = std::dynamic_pointer_cast<views::TextField>(view)) activateField(field);
    if (views::Window* window = view->window()) window->makeFirstResponder(view);
}

void CVMacTableViewCell::walkKeyViews(ViewPtr start, bool forward) {
    const auto keepAlive = shared_from_this();
    const ViewPtr end = forward ? lastKeyView() : firstKeyView();
    const ViewPtr first = start;
    for (auto view = std::move(start); view;) {
        if (!view->isHidden() && (view->canBecomeKeyView() || isActivatable(*view)))
            return focus(view);
        if (view == end) break;
        view = forward ? view->nextKeyView() : view->previousKeyView();
        if (view == first) break;
    }
    takeFocus();
    const auto table = delegate();
    if (!table) return;
    if (forward) {
        table->cellRequestsNextKeyView(*this);
    } else {
        table->cellRequestsPreviousKeyView(*this);
    }
}

void CVMacTableViewCell::handFirstResponderToFirstKeyView() {
    walkKeyViews(firstKeyView(), true);
}

void CVMacTableViewCell::handFirstResponderToLastKeyView() {
    walkKeyViews(lastKeyView(), false);
}

void CVMacTableViewCell::handFirstResponderToNextKeyViewForView(const views::View& view) {
    walkKeyViews(&view == lastKeyView().get() ? nullptr : view.nextKeyView(), true);
}

void CVMacTableViewCell::handFirstResponderToPreviousKeyViewForView(const views::View& view) {
    walkKeyViews(&view == firstKeyView().get() ? nullptr : view.previousKeyView(), false);
}

}  // namespace corvane
