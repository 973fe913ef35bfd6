#include "corvane/controls/MonthChooserView.h"

#include "corvane/controls/OutputDateFormatter.h"
#include "corvane/platform/TimeZone.h"
#include "corvane/platform/WritingDirection.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;
using views::Canvas;
using views::KeyEvent;
using views::MouseEvent;
using views::theme;

constexpr double kCellWidth = 32;
constexpr double kCellHeight = 24;
constexpr double kHeaderHeight = 48;
constexpr double kTitleHeight = 28;
constexpr double kMargin = 6;
constexpr views::Font kTitleFont{13, true};
constexpr views::Font kWeekdayFont{11};
constexpr Size kSize{MonthGrid::kColumns * kCellWidth + 2 * kMargin,
                     kHeaderHeight + (MonthGrid::kRows * kCellHeight) + 2 * kMargin};

/// Of the weekdays as headers: short names, or narrow ones where those are too wide.
std::array<std::string, 7> weekdayHeaders(const platform::Locale& locale) {
    auto names =
        dateNamesOfLocale(locale, platform::NameLength::Short, platform::NameUse::Alone).weekdays;
    const bool fit = std::all_of(names.begin(), names.end(), [](const std::string& name) {
        return views::textMeasurer().sizeOfText(name, kWeekdayFont).width < kCellWidth;
    });
    return fit ? names
               : dateNamesOfLocale(locale, platform::NameLength::Narrow, platform::NameUse::Alone)
                     .weekdays;
}

platform::CivilTime noonOf(EXDateOnly day) {
    return {.year = day.year(), .month = day.month(), .day = day.day(), .hour = 12};
}

}  // namespace

/// Turns to another month; called by that month's name.
class MonthChooserView::PageButton final : public views::View {
  public:
    PageButton(MonthChooserView& chooser, const Rect& frame, DayMove move, std::string sign)
        : View(frame), chooser_(chooser), move_(move), sign_(std::move(sign)) {}

    void draw(Canvas& canvas, const Rect&) override {
        canvas.drawText(sign_, bounds(), {kTitleFont, theme().text, views::TextAlignment::Center});
    }
    bool mouseDown(const MouseEvent&) override {
        chooser_.turnPage(move_);
        return true;
    }
    views::Role accessibilityRole() const override { return views::Role::Button; }
    std::string accessibilityName() const override {
        if (!superview()) return {};
        return chooser_.monthTitle(dayAfterMove(chooser_.calendar_, chooser_.shownMonth(), move_));
    }

  private:
    MonthChooserView& chooser_;  ///< there for as long as it is the superview
    DayMove move_;
    std::string sign_;
};

MonthChooserView::MonthChooserView(platform::Locale locale)
    : ChooserView(Rect{0, 0, kSize.width, kSize.height}),
      locale_(std::move(locale)),
      calendar_(platform::Calendar(platform::TimeZone::current(), locale_)),
      mirrored_(platform::isRightToLeft(locale_)),
      today_(EXCalendar::currentCalendar().dateOnlyForToday()),
      grid_(calendar_, today_),
      titleFormatter_(platform::bestDatePattern(locale_, "yMMMM"), locale_),
      numberFormatter_("d", locale_) {
    textSizesDidChange();
    addSubviews();
    showPage(today_);
}

void MonthChooserView::textSizesDidChange() {
    const auto names = weekdayHeaders(locale_);
    for (std::size_t i = 0; i < names.size(); ++i)
        weekdays_[i] = names[(i + static_cast<std::size_t>(calendar_.firstWeekday()) - 1) % 7];
}

void MonthChooserView::addSubviews() {
    const Rect left{kMargin, 0, kCellWidth, kTitleHeight};
    const Rect right{kSize.width - kMargin - kCellWidth, 0, kCellWidth, kTitleHeight};
    addSubview(std::make_shared<PageButton>(*this, mirrored_ ? right : left, DayMove::PreviousMonth,
                                            mirrored_ ? "›" : "‹"));
    addSubview(std::make_shared<PageButton>(*this, mirrored_ ? left : right, DayMove::NextMonth,
                                            mirrored_ ? "‹" : "›"));
    for (int i = 0; i < MonthGrid::kDays; ++i)
        addCell(cellFrame(i / MonthGrid::kColumns, i % MonthGrid::kColumns));
}

views::Rect MonthChooserView::cellFrame(int row, int column) const {
    const int place = mirrored_ ? MonthGrid::kColumns - 1 - column : column;
    return {kMargin + place * kCellWidth, kHeaderHeight + kMargin + row * kCellHeight, kCellWidth,
            kCellHeight};
}

// Days and pages.

void MonthChooserView::setDay(std::optional<EXDateOnly> day) {
    day_ = day;
    highlight_.reset();
    today_ = EXCalendar::currentCalendar().dateOnlyForToday();
    showPage(day.value_or(today_));
}

void MonthChooserView::setHighlightedDay(std::optional<EXDateOnly> day) {
    highlight_ = day;
    if (day && !grid_.isInMonth(*day)) return showPage(*day);
    updateCells();
}

EXDateOnly MonthChooserView::shownMonth() const {
    return grid_.firstOfMonth();
}

void MonthChooserView::turnPage(DayMove move) {
    showPage(dayAfterMove(calendar_, grid_.firstOfMonth(), move));
}

std::string MonthChooserView::monthTitle(EXDateOnly day) const {
    return titleFormatter_.stringFromCivil(noonOf(day));
}

void MonthChooserView::showPage(EXDateOnly day) {
    grid_ = MonthGrid(calendar_, day);
    title_ = monthTitle(day);
    setNeedsDisplay();
    updateCells();
}

void MonthChooserView::updateCells() {
    for (std::size_t i = 0; i < grid_.days().size(); ++i) {
        const EXDateOnly day = grid_.days()[i];
        setCellState(i, {.text = numberFormatter_.stringFromCivil(noonOf(day)),
                         .dimmed = !grid_.isInMonth(day),
                         .shaded = calendar_.isDateOnlyInWeekend(day),
                         .ringed = day == today_,
                         .selected = day == day_,
                         .highlighted = day == highlight_});
    }
}

std::string MonthChooserView::fullText(EXDateOnly day) const {
    const OutputDateFormatter formatter(locale_, platform::DateStyle::Full);
    const auto calendar = EXCalendar::currentCalendar();
    const auto noon = calendar.dateForDateOnly(day, EXTimeOnly(12, 0, 0));
    return noon ? formatter.stringFromDate(*noon) : std::string();
}

std::string MonthChooserView::cellValue(std::size_t index) const {
    return grid_.days()[index] == today_ ? EXLocalizable::localize(kTodayKey) : std::string();
}

void MonthChooserView::choose(EXDateOnly day) {
    const auto keepAlive = weak_from_this().lock();
    setDay(day);
    didChoose(day);
}

bool MonthChooserView::chooseHighlighted() {
    const auto highlight = highlight_;
    if (highlight) choose(*highlight);
    return highlight.has_value();
}

// Keys.

std::optional<DayMove> MonthChooserView::moveOfKey(const KeyEvent& event) const {
    const auto others = event.modifierFlags() & ~views::kModifierShift;
    const bool byYears = event.has(views::kModifierShift);
    const char32_t key = event.firstCharacter();
    const bool pages = key == views::kKeyPageUp || key == views::kKeyPageDown;
    if (others != 0 || (byYears && !pages)) return std::nullopt;
    switch (key) {
        case views::kKeyUpArrow:
            return DayMove::PreviousWeek;
        case views::kKeyDownArrow:
            return DayMove::NextWeek;
        case views::kKeyLeftArrow:
            return mirrored_ ? DayMove::NextDay : DayMove::PreviousDay;
        case views::kKeyRightArrow:
            return mirrored_ ? DayMove::PreviousDay : DayMove::NextDay;
        case views::kKeyHome:
            return DayMove::StartOfWeek;
        case views::kKeyEnd:
            return DayMove::EndOfWeek;
        case views::kKeyPageUp:
            return byYears ? DayMove::PreviousYear : DayMove::PreviousMonth;
        case views::kKeyPageDown:
            return byYears ? DayMove::NextYear : DayMove::NextMonth;
        default:
            return std::nullopt;
    }
}

bool MonthChooserView::moveByKey(const KeyEvent& event) {
    const char32_t key = event.firstCharacter();
    if (key == views::kKeyReturn || key == views::kKeyEnter) return chooseHighlighted();
    const auto move = moveOfKey(event);
    if (!move) return false;
    // A page that was turned to by the pointer is where the user looks.
    const EXDateOnly start = highlight_.value_or(day_.value_or(today_));
    const bool isSeen = grid_.isInMonth(start);
    setHighlightedDay(dayAfterMove(calendar_, isSeen ? start : grid_.firstOfMonth(), *move));
    return true;
}

// Looks.

views::Size MonthChooserView::preferredSizeThatFits(views::Size) {
    return kSize;
}

void MonthChooserView::draw(Canvas& canvas, const Rect& dirty) {
    ChooserView::draw(canvas, dirty);
    canvas.fillRect({0, 0, bounds().width, kHeaderHeight}, headerBackgroundColor());
    canvas.drawText(
        title_, {kMargin + kCellWidth, 0, kSize.width - 2 * (kMargin + kCellWidth), kTitleHeight},
        {kTitleFont, theme().text, views::TextAlignment::Center});
    for (int i = 0; i < MonthGrid::kColumns; ++i) {
        const double x = cellFrame(0, i).x;
        canvas.drawText(weekdays_[static_cast<std::size_t>(i)],
                        {x, kTitleHeight, kCellWidth, kHeaderHeight - kTitleHeight},
                        {kWeekdayFont, theme().secondaryText, views::TextAlignment::Center});
    }
}

std::string MonthChooserView::accessibilityValue() const {
    const auto shown = highlight_ ? highlight_ : day_;
    return shown ? fullText(*shown) : std::string();
}

}  // namespace corvane
