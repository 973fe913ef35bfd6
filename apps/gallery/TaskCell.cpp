#include "apps/gallery/TaskCell.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/ImageView.h"
#include "corvane/views/Label.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/TextView.h"
#include "corvane/views/Theme.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "apps/gallery/Texts.h"

#include <algorithm>

namespace corvane::gallery {

using views::Rect;

namespace {

constexpr double kMargin = 6;
constexpr double kBadgeSide = 16;
constexpr double kTitleLeft = 24;
constexpr double kDueWidth = 64;
constexpr double kCheckBoxWidth = 30;
constexpr double kCheckBoxSide = 15;
constexpr views::Font kSmallFont{11};

/// Drawn only: the row takes the clicks.
class CheckBox final : public views::View {
  public:
    void setOn(bool on) {
        on_ = on;
        setNeedsDisplay();
    }
    void draw(views::Canvas& canvas, const Rect&) override {
        const auto& theme = views::theme();
        const Rect box{(frame().width - kCheckBoxSide) / 2 + 2,
                       (frame().height - kCheckBoxSide) / 2, kCheckBoxSide, kCheckBoxSide};
        if (!on_) return canvas.strokeRoundedRect(box, 4, theme.secondaryText, 1.2);
        canvas.fillRoundedRect(box, 4, theme.accent);
        canvas.drawLine({box.x + 3.5, box.y + 7.5}, {box.x + 6.5, box.y + 10.5}, theme.textOnAccent,
                        1.8);
        canvas.drawLine({box.x + 6.2, box.y + 10.8}, {box.x + 11.5, box.y + 4.5},
                        theme.textOnAccent, 1.8);
    }

  private:
    bool on_ = false;
};

platform::ImagePtr badgeOf(const ExampleTask& task) {
    const auto map = HGCorvaneStyleCollection::indicatorSmallImageMapForColor(task.color);
    return map ? map->imageAtIndex(task.indicator) : nullptr;
}

double titleWidth(double contentWidth) {
    return std::max(40.0, contentWidth - kTitleLeft - kDueWidth - kMargin);
}

}  // namespace

std::shared_ptr<views::TextView> TaskCell::makeField(const char* name) {
    auto field = createLabelView();
    field->setAccessibilityName(name);
    field->setDelegate(std::static_pointer_cast<TaskCell>(shared_from_this()));
    field->setAction([this](views::Control& control) {
        if (const auto table = delegate()) table->cellDidChangeValueForView(*this, control);
    });
    addActivatableField(field);
    return field;
}

void TaskCell::makeControls() {
    setAccessoryView(std::make_shared<CheckBox>());
    badge_ = createIconView();
    title_ = makeField("Title");
    title_->setPlaceholderString(localized("New task"));
    note_ = makeField("Note");
    note_->setFont(kSmallFont);
    due_ = std::make_shared<views::Label>();
    due_->setFont(kSmallFont);
    due_->setAlignment(views::TextAlignment::Trailing);
    contentView()->addSubview(due_);
    title_->setNextKeyView(note_);
    setFirstKeyView(title_);
    setLastKeyView(note_);
}

void TaskCell::show(const ExampleTask& task) {
    if (!title_) makeControls();
    setTextForLabelView(task.title, *title_);
    setImageForIconView(badgeOf(task), *badge_);
    setTextForLabelView(task.note, *note_);
    note_->setHidden(task.note.empty());
    due_->setText(task.due);
    const auto& theme = views::theme();
    title_->setTextColor(task.done ? theme.secondaryText : theme.text);
    note_->setTextColor(theme.secondaryText);
    due_->setTextColor(theme.secondaryText);
    static_cast<CheckBox&>(*accessoryView()).setOn(task.done);
    setNeedsApplyLayout();
}

const std::string& TaskCell::title() const {
    return title_->stringValue();
}

const std::string& TaskCell::note() const {
    return note_->stringValue();
}

double TaskCell::titleHeight(double contentWidth) const {
    return preferredHeightForWidthOfLabelView(titleWidth(contentWidth), *title_);
}

double TaskCell::noteHeight(double contentWidth) const {
    if (note_->isHidden()) return 0;
    return preferredHeightForWidthOfLabelView(titleWidth(contentWidth), *note_);
}

double TaskCell::rowHeightForContentWidth(double width) {
    return 2 * kMargin + titleHeight(width) + noteHeight(width);
}

Rect TaskCell::rectForAccessoryViewWithCellWidth(double) {
    return {0, 0, kCheckBoxWidth, frame().height};
}

void TaskCell::layoutContentView(views::View& contentView) {
    const double width = contentView.frame().width;
    const double title = titleHeight(width);
    const double line = views::textMeasurer().lineHeight(kSmallFont);
    const auto place = [width](views::View& view, const Rect& rect) {
        view.setFrame(views::mirrored(rect, width));
    };
    place(*badge_, {0, kMargin + 2, kBadgeSide, kBadgeSide});
    place(*title_, {kTitleLeft - 4, kMargin, titleWidth(width), title});
    place(*note_, {kTitleLeft - 4, kMargin + title, titleWidth(width), noteHeight(width)});
    place(*due_, {width - kDueWidth - kMargin, kMargin + 3, kDueWidth, line});
}

}  // namespace corvane::gallery
