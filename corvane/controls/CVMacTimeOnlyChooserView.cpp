#include "corvane/controls/CVMacTimeOnlyChooserView.h"

#include "corvane/dates/EXCalendar.h"
#include "corvane/platform/WritingDirection.h"
#include "corvane/views/Event.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr int kColumns = 4;
constexpr int kHalfHours = 48;
constexpr double kCellWidth = 76;
constexpr double kCellHeight = 22;
constexpr double kMargin = 6;
constexpr platform::Size kSize{(kColumns * kCellWidth) + 2 * kMargin,
                               (kHalfHours / kColumns * kCellHeight) + 2 * kMargin};

EXTimeOnly timeOf(int halfHours) {
    return EXTimeOnly(halfHours / 2, halfHours % 2 * 30, 0);
}

/// The one that the time lies in.
int halfHoursOf(EXTimeOnly time) {
    return static_cast<int>(time.hour()) * 2 + (time.minute() >= 30 ? 1 : 0);
}

}  // namespace

CVMacTimeOnlyChooserView::CVMacTimeOnlyChooserView(platform::Locale locale)
    : ChooserView(views::Rect{0, 0, kSize.width, kSize.height}),
      formatter_(std::move(locale), platform::DateStyle::None, platform::DateStyle::Short),
      mirrored_(platform::isRightToLeft(formatter_.locale())) {
    for (int i = 0; i < kHalfHours; ++i) {
        const int column = mirrored_ ? kColumns - 1 - i % kColumns : i % kColumns;
        const int row = i / kColumns;
        addCell(
            {kMargin + column * kCellWidth, kMargin + row * kCellHeight, kCellWidth, kCellHeight});
    }
    updateCells();
}

void CVMacTimeOnlyChooserView::setTime(std::optional<EXTimeOnly> time) {
    time_ = time;
    highlight_.reset();
    updateCells();
}

std::optional<EXTimeOnly> CVMacTimeOnlyChooserView::highlightedTime() const {
    return highlight_ ? std::optional(timeOf(*highlight_)) : std::nullopt;
}

void CVMacTimeOnlyChooserView::updateCells() {
    for (int i = 0; i < kHalfHours; ++i) {
        const auto index = static_cast<std::size_t>(i);
        setCellState(index, {.text = cellName(index),
                             .shaded = i / kColumns % 2 == 1,
                             .selected = timeOf(i) == time_,
                             .highlighted = i == highlight_});
    }
}

std::string CVMacTimeOnlyChooserView::cellName(std::size_t index) const {
    const auto time = timeOf(static_cast<int>(index));
    const auto date = EXCalendar::currentCalendar().dateForTimeOnly(time);
    return date ? formatter_.stringFromDate(*date) : std::string();
}

std::string CVMacTimeOnlyChooserView::accessibilityValue() const {
    return highlight_ ? cellName(static_cast<std::size_t>(*highlight_)) : std::string();
}

views::Size CVMacTimeOnlyChooserView::preferredSizeThatFits(views::Size) {
    return kSize;
}

// Choosing.

void CVMacTimeOnlyChooserView::chooseCell(std::size_t index) {
    const auto keepAlive = weak_from_this().lock();
    const auto time = timeOf(static_cast<int>(index));
    setTime(time);
    if (const auto delegate = delegate_.lock())
        delegate->timeOnlyChooserDidChooseTimeOnly(*this, time);
}

bool CVMacTimeOnlyChooserView::chooseHighlighted() {
    if (!highlight_) return false;
    chooseCell(static_cast<std::size_t>(*highlight_));
    return true;
}

std::optional<int> CVMacTimeOnlyChooserView::movedByKey(const views::KeyEvent& event,
                                                        int from) const {
    if (event.modifierFlags() != 0) return std::nullopt;
    const int forward = mirrored_ ? -1 : 1;
    switch (event.firstCharacter()) {
        case views::kKeyUpArrow:
            return from - kColumns;
        case views::kKeyDownArrow:
            return from + kColumns;
        case views::kKeyLeftArrow:
            return from - forward;
        case views::kKeyRightArrow:
            return from + forward;
        case views::kKeyHome:
            return from - from % kColumns;
        case views::kKeyEnd:
            return from - from % kColumns + kColumns - 1;
        case views::kKeyPageUp:
            return 0;
        case views::kKeyPageDown:
            return kHalfHours - 1;
        default:
            return std::nullopt;
    }
}

bool CVMacTimeOnlyChooserView::moveByKey(const views::KeyEvent& event) {
    const char32_t key = event.firstCharacter();
    if (key == views::kKeyReturn || key == views::kKeyEnter) return chooseHighlighted();
    const auto start = time_.value_or(EXCalendar::currentCalendar().timeOnlyForNow());
    const int from = highlight_.value_or(halfHoursOf(start));
    const auto to = movedByKey(event, from);
    if (!to) return false;
    highlight_ = *to < 0 || *to >= kHalfHours ? from : *to;
    updateCells();
    return true;
}

}  // namespace corvane
