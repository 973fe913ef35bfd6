#include "corvane/controls/TabularHeader.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
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

constexpr double kHeight = 24;
constexpr double kMargin = 10;
constexpr double kArrowWidth = 7;
constexpr double kArrowHeight = 4;
constexpr double kGrabDistance = 4;
constexpr double kKeyStep = 10;
constexpr std::size_t kNone = TabularColumns::kNone;

const views::Font kFont{12, true, false};

}  // namespace

/// One title; what the pointer does there is the header's.
class TabularHeader::Title final : public views::View {
  public:
    Title(TabularHeader& header, std::size_t column) : header_(&header), column_(column) {}

    void leaveHeader() { header_ = nullptr; }

    views::Cursor cursorAt(views::Point point) const override {
        const bool atEdge = header_ && header_->pressAt(point + frame().origin()).atEdge;
        return atEdge ? views::Cursor::ResizeLeftRight : views::Cursor::Arrow;
    }
    std::string toolTip() const override {
        const double wanted = views::textMeasurer().sizeOfText(text(), kFont).width;
        return wanted > places().width ? text() : std::string();
    }
    bool acceptsFirstResponder() const override { return true; }
    bool canBecomeKeyView() const override {
        return header_ && header_->tabStop_ == column_ && View::canBecomeKeyView();
    }
    bool becomeFirstResponder() override {
        if (header_) header_->tabStop_ = column_;
        return true;
    }
    bool keyDown(const views::KeyEvent& event) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;

    views::Role accessibilityRole() const override { return views::Role::Header; }
    std::string accessibilityName() const override { return text(); }
    std::string accessibilityValue() const override {
        if (!isSorted()) return {};
        return EXLocalizable::localize(header_->columns_->sortsAscending() ? "SortedAscending"
                                                                           : "SortedDescending");
    }
    bool accessibilityCanPress() const override { return column() && column()->sortable; }
    void accessibilityPress() override {
        if (header_) header_->sortBy(column_);
    }

  private:
    const Column* column() const { return header_ ? header_->columnAt(column_) : nullptr; }
    std::string text() const { return column() ? column()->title : std::string(); }
    bool isSorted() const {
        return column() && !column()->identifier.empty() &&
               header_->columns_->sortIdentifier() == column()->identifier;
    }
    /// Of the text, as in a language written from the left.
    views::Rect places() const {
        const double arrow = isSorted() ? kArrowWidth + kMargin : 0;
        return {kMargin, 0, std::max(0.0, frame().width - 2 * kMargin - arrow), frame().height};
    }

    TabularHeader* header_;
    const std::size_t column_;
};

bool TabularHeader::Title::keyDown(const views::KeyEvent& event) {
    const auto keepAlive = shared_from_this();
    if (!header_) return false;
    if (const auto passed = focusPassedOn(*this, event)) return *passed;
    const auto command = views::commandForKey(event);
    if (event.characters() == " " || command == views::Command::InsertNewline) {
        header_->sortBy(column_);
        return true;
    }
    const char32_t key = event.firstCharacter();
    if (key != views::kKeyLeftArrow && key != views::kKeyRightArrow) return false;
    const bool towardsEnd = (key == views::kKeyRightArrow) != views::isMirrored();
    if (event.modifierFlags() == 0) return header_->moveFocus(column_, towardsEnd);
    if (event.modifierFlags() != views::kModifierOption) return false;
    if (header_->moveEdge(column_, towardsEnd ? kKeyStep : -kKeyStep) && header_)
        header_->endResizing();
    return true;
}

void TabularHeader::Title::draw(views::Canvas& canvas, const views::Rect&) {
    if (!column()) return;
    const views::Theme& theme = views::theme();
    const double width = frame().width;
    views::TextStyle style;
    style.font = kFont;
    style.color = theme.secondaryText;
    style.alignment = column()->alignment;
    const views::Rect text = places();
    canvas.drawText(this->text(), views::mirrored(text, width), style);
    const double edge = views::isMirrored() ? 0.5 : width - 0.5;
    canvas.drawLine({edge, 5}, {edge, frame().height - 5}, theme.border, 1);
    drawFocusRing(canvas, *this, bounds().insetBy(1, 1), 3);
    if (!isSorted()) return;
    const views::Rect arrow = views::mirrored(
        {text.right() + kMargin, (frame().height - kArrowHeight) / 2, kArrowWidth, kArrowHeight},
        width);
    const bool up = header_->columns_->sortsAscending();
    const double base = up ? arrow.bottom() : arrow.y;
    const views::Point tip{arrow.x + arrow.width / 2, up ? arrow.y : arrow.bottom()};
    canvas.drawLine({arrow.x, base}, tip, theme.secondaryText, 1.5);
    canvas.drawLine(tip, {arrow.right(), base}, theme.secondaryText, 1.5);
}

TabularHeader::TabularHeader(std::shared_ptr<TabularColumns> columns)
    : columns_(std::move(columns)) {
    makeTitles();
}

TabularHeader::~TabularHeader() {
    for (const auto& title : titles_)
        title->leaveHeader();
}

const Column* TabularHeader::columnAt(std::size_t index) const {
    const auto& columns = columns_->columns();
    return index < columns.size() ? &columns[index] : nullptr;
}

void TabularHeader::makeTitles() {
    for (const auto& title : std::exchange(titles_, {})) {
        title->leaveHeader();
        title->removeFromSuperview();
    }
    std::vector<std::shared_ptr<View>> parts;
    for (std::size_t i = 0; i < columns_->columns().size(); ++i) {
        titles_.push_back(std::make_shared<Title>(*this, i));
        addSubview(titles_.back());
        parts.push_back(titles_.back());
    }
    tabStop_ = std::min(tabStop_, titles_.empty() ? 0 : titles_.size() - 1);
    setKeyViewParts(parts);
}

void TabularHeader::columnsDidChange() {
    if (titles_.size() != columns_->columns().size()) makeTitles();
    for (const auto& title : titles_) {
        title->setNeedsDisplay();
        title->accessibilityDidChange(views::AccessibilityChange::Name);
        title->accessibilityDidChange(views::AccessibilityChange::Value);
    }
    setNeedsApplyLayout();
    setNeedsDisplay();
}

// Sorting and sizing.

void TabularHeader::sortBy(std::size_t column) {
    const Column* sorted = columnAt(column);
    if (!sorted || !sorted->sortable) return;
    const auto keepAlive = weak_from_this().lock();
    const std::string identifier = sorted->identifier;
    const bool again = columns_->sortIdentifier() == identifier;
    columns_->setSorting(identifier, !again || !columns_->sortsAscending());
    const auto told = didSort;
    if (told) told(column);
}

bool TabularHeader::moveEdge(std::size_t column, double distance) {
    const auto keepAlive = weak_from_this().lock();
    const std::size_t resized = columns_->moveEdge(column, distance, frame().width);
    if (resized == kNone) return false;
    const auto told = didResize;
    if (told) told(resized);
    return true;
}

void TabularHeader::endResizing() {
    const auto told = didEndResizing;
    if (told) told();
}

bool TabularHeader::moveFocus(std::size_t from, bool towardsEnd) {
    const std::size_t to = towardsEnd ? from + 1 : from - 1;
    if (window() && to < titles_.size()) window()->makeFirstResponder(titles_[to]);
    return true;
}

double TabularHeader::fromLeading(views::Point point) const {
    return views::isMirrored() ? frame().width - point.x : point.x;
}

TabularHeader::Press TabularHeader::pressAt(views::Point point) const {
    const double x = fromLeading(point);
    const auto frames = columns_->framesIn(frame().width, frame().height);
    Press press;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double edge = frames[i].right();
        const bool isLast = i + 1 == frames.size();
        if (!isLast && std::abs(x - edge) <= kGrabDistance) return {i, true, edge - x, false};
        if (x >= frames[i].x && x < edge) press.column = i;
    }
    return press;
}

bool TabularHeader::mouseDown(const views::MouseEvent& event) {
    press_ = pressAt(convertFromWindow(event.locationInWindow()));
    return true;
}

bool TabularHeader::mouseDragged(const views::MouseEvent& event) {
    if (!press_.atEdge) return true;
    const auto keepAlive = weak_from_this().lock();
    const double x = fromLeading(convertFromWindow(event.locationInWindow()));
    const auto frames = columns_->framesIn(frame().width, frame().height);
    if (press_.column >= frames.size()) return true;
    // To where the pointer is, even after it was where the edge could not go.
    if (moveEdge(press_.column, x + press_.beside - frames[press_.column].right()))
        press_.moved = true;
    return true;
}

bool TabularHeader::mouseUp(const views::MouseEvent& event) {
    const Press pressed = std::exchange(press_, {});
    const views::Point point = convertFromWindow(event.locationInWindow());
    const bool onTitle = bounds().contains(point) && pressAt(point).column == pressed.column;
    if (pressed.moved) {
        endResizing();
    } else if (onTitle && !pressed.atEdge) {
        sortBy(pressed.column);
    }
    return true;
}

// As a view.

void TabularHeader::applyLayout() {
    const auto frames = columns_->framesIn(frame().width, frame().height);
    for (std::size_t i = 0; i < titles_.size() && i < frames.size(); ++i)
        titles_[i]->setFrame(views::mirrored(frames[i], frame().width));
}

views::Size TabularHeader::preferredSizeThatFits(views::Size available) {
    return {available.width, columns_->columns().empty() ? 0 : kHeight};
}

void TabularHeader::draw(views::Canvas& canvas, const views::Rect&) {
    const views::Theme& theme = views::theme();
    canvas.fillRect(bounds(), theme.controlBackground);
    const double line = frame().height - 0.5;
    canvas.drawLine({0, line}, {frame().width, line}, theme.separator, 1);
}

}  // namespace corvane
