#include "corvane/controls/CVMacRepeatEditor.h"

#include "corvane/controls/CVMacBitmaskChooser.h"
#include "corvane/controls/CVMacSegmentedChoice.h"
#include "corvane/platform/TypedNumber.h"
#include "corvane/views/Command.h"
#include "corvane/views/Label.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;

constexpr double kGap = 8;
constexpr double kFieldWidth = 48;
constexpr double kEndless = 1e6;
constexpr int kColumnsOfWeek = 7;
constexpr int kColumnsOfMonth = 7;
constexpr int kColumnsOfYear = 4;
constexpr int kMonthsInYear = 12;

/// By frequency, for one and for more.
struct UnitKeys {
    std::string_view one;
    std::string_view more;
};
constexpr std::array<UnitKeys, 4> kUnitKeys{{{"RepeatDay", "RepeatDays"},
                                             {"RepeatWeek", "RepeatWeeks"},
                                             {"RepeatMonth", "RepeatMonths"},
                                             {"RepeatYear", "RepeatYears"}}};

/// Of the masks of a frequency, those that stand for a day or a month.
std::int64_t knownBits(std::int16_t frequency) {
    constexpr std::array<int, 4> kCounts{0, 7, 31, 12};
    return (std::int64_t{1} << kCounts[static_cast<std::size_t>(frequency)]) - 1;
}

/// None for what is no whole number.
std::optional<std::int64_t> numberFromText(std::string_view text) {
    const auto plain = platform::plainNumber(text);
    if (!plain) return std::nullopt;
    std::int64_t number = 0;
    const char* const end = plain->data() + plain->size();
    const auto [stop, problem] = std::from_chars(plain->data(), end, number);
    // A number that is too great for any type is a great one too, or one far below 0.
    if (problem == std::errc::result_out_of_range)
        return plain->starts_with('-') ? 0 : CVMacRepeatEditor::kLongestInterval;
    return problem == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::vector<std::string> namesOfMonths(const EXCalendar& calendar) {
    std::vector<std::string> names;
    for (int month = 1; month <= kMonthsInYear; ++month)
        names.push_back(calendar.nameForMonthOfDateOnly(EXDateOnly(2001, month, 1)).value_or(""));
    return names;
}

void place(views::View& view, const Rect& frame, double width) {
    view.setFrame(views::mirrored(frame, width));
}

}  // namespace

CVMacRepeatEditor::CVMacRepeatEditor(const Rect& frame)
    : CompoundView(frame),
      frequencies_(std::make_shared<CVMacSegmentedChoice>()),
      every_(std::make_shared<views::Label>(EXLocalizable::localize("RepeatEvery"))),
      interval_(std::make_shared<views::TextField>()),
      unit_(std::make_shared<views::Label>()),
      occurrences_(std::make_shared<CVMacBitmaskChooser>()) {
    addParts();
    setRepeatForDay({}, std::nullopt);
}

void CVMacRepeatEditor::addParts() {
    frequencies_->setChoiceList(HGCustomRepeatFactory::choiceListForFrequencies());
    frequencies_->setAccessibilityName(EXLocalizable::localize("RepeatFrequency"));
    frequencies_->setAction([this](auto&) { chooseFrequency(); });
    interval_->setAlignment(views::TextAlignment::Center);
    interval_->setAction([this](auto&) { commitInterval(); });
    occurrences_->setAction([this](auto&) { chooseOccurrences(); });
    for (const std::shared_ptr<views::View>& part :
         {std::shared_ptr<views::View>(frequencies_), std::shared_ptr<views::View>(every_),
          std::shared_ptr<views::View>(interval_), std::shared_ptr<views::View>(unit_),
          std::shared_ptr<views::View>(occurrences_)})
        addSubview(part);
    setKeyViewParts({frequencies_, interval_, occurrences_});
}

// The rule.

HGCustomRepeat CVMacRepeatEditor::repeat() const {
    return {frequency_, storedInterval(), factory_.occurrencesForFrequency(frequency_)};
}

void CVMacRepeatEditor::setRepeatForDay(const HGCustomRepeat& repeat,
                                        std::optional<EXDateOnly> day) {
    calendar_ = EXCalendar::currentCalendar();
    factory_ = HGCustomRepeatFactory();
    const bool isKnown =
        HGCustomRepeatFactory::choiceTitleForFrequency(repeat.frequency()).has_value();
    frequency_ = isKnown ? repeat.frequency() : HGCustomRepeat::kDaily;
    const auto interval = std::max<std::int64_t>(repeat.interval(), 1);
    factory_.resetPerFrequencyDefaultsForDate(day, frequency_, interval, repeat.occurrences(),
                                              calendar_);
    if (!day) store(interval, repeat.occurrences());
    frequencies_->setValue(std::int64_t{frequency_});
    showFrequency();
}

std::int64_t CVMacRepeatEditor::storedInterval() const {
    return std::max<std::int64_t>(1, factory_.intervalForFrequency(frequency_));
}

void CVMacRepeatEditor::store(std::int64_t interval, std::int64_t occurrences) {
    factory_.updateWithFrequency(frequency_, interval, occurrences);
}

// What the user does.

void CVMacRepeatEditor::chooseFrequency() {
    const auto keepAlive = weak_from_this().lock();
    // A click leaves the focus where it is, and what is typed belongs to the frequency before.
    if (interval_->isEditing()) commitInterval();
    frequency_ = static_cast<std::int16_t>(frequencies_->value().integerValue());
    showFrequency();
    tellOfChange();
}

void CVMacRepeatEditor::chooseOccurrences() {
    const auto others = factory_.occurrencesForFrequency(frequency_) & ~knownBits(frequency_);
    const auto chosen = HGCustomRepeatFactory::repeatOccurrencesFromBitmask(occurrences_->bitmask(),
                                                                            frequency_, calendar_);
    store(storedInterval(), chosen | others);
    tellOfChange();
}

void CVMacRepeatEditor::commitInterval() {
    setInterval(numberFromText(interval_->stringValue()).value_or(storedInterval()));
}

void CVMacRepeatEditor::setInterval(std::int64_t interval) {
    interval = std::clamp<std::int64_t>(interval, 1, std::max(kLongestInterval, storedInterval()));
    const bool changes = interval != storedInterval();
    store(interval, factory_.occurrencesForFrequency(frequency_));
    interval_->setStringValue(platform::typedNumberText(interval));
    showUnit(interval);
    if (changes) tellOfChange();
}

void CVMacRepeatEditor::tellOfChange() {
    const auto keepAlive = weak_from_this().lock();
    const auto notice = didChangeRepeat;
    if (notice) notice(repeat());
}

std::shared_ptr<views::TextFieldDelegate> CVMacRepeatEditor::delegateAround() const {
    for (views::View* view = superview(); view; view = view->superview())
        if (auto* delegate = dynamic_cast<views::TextFieldDelegate*>(view))
            return {view->shared_from_this(), delegate};
    return nullptr;
}

void CVMacRepeatEditor::controlTextDidBeginEditing(views::TextField& field) {
    if (const auto around = delegateAround()) around->controlTextDidBeginEditing(field);
}

void CVMacRepeatEditor::controlTextDidChange(views::TextField& field) {
    if (const auto typed = numberFromText(field.stringValue())) showUnit(*typed);
    if (const auto around = delegateAround()) around->controlTextDidChange(field);
}

void CVMacRepeatEditor::controlTextDidEndEditing(views::TextField& field) {
    if (const auto around = delegateAround()) around->controlTextDidEndEditing(field);
}

bool CVMacRepeatEditor::controlDoCommandBySelector(views::TextField& field,
                                                   views::FieldEditor& editor,
                                                   views::Command command) {
    const bool up = command == views::Command::MoveUp;
    if (!up && command != views::Command::MoveDown) {
        const auto around = delegateAround();
        return around && around->controlDoCommandBySelector(field, editor, command);
    }
    const auto shown = numberFromText(field.stringValue()).value_or(storedInterval());
    const auto most = std::max(kLongestInterval, storedInterval());
    setInterval(std::clamp<std::int64_t>(shown, 0, most) + (up ? 1 : -1));
    return true;
}

void CVMacRepeatEditor::setEnabled(bool enabled) {
    enabled_ = enabled;
    frequencies_->setEnabled(enabled);
    interval_->setEnabled(enabled);
    interval_->setEditable(enabled);
    occurrences_->setEnabled(enabled);
}

// What it shows.

void CVMacRepeatEditor::showFrequency() {
    const auto interval = storedInterval();
    interval_->setStringValue(platform::typedNumberText(interval));
    showUnit(interval);
    const bool isYearly = frequency_ == HGCustomRepeat::kYearly;
    if (frequency_ == HGCustomRepeat::kWeekly) {
        occurrences_->setLabels(HGCustomRepeatFactory::bitLabelsForWeekOfCalendar(calendar_),
                                kColumnsOfWeek);
        occurrences_->setCellNames(calendar_.createWeekdayNames());
    } else if (isYearly) {
        occurrences_->setLabels(HGCustomRepeatFactory::bitLabelsForYearOfCalendar(calendar_),
                                kColumnsOfYear);
        occurrences_->setCellNames(namesOfMonths(calendar_));
    } else {
        occurrences_->setLabels(HGCustomRepeatFactory::bitLabelsForMonthOfCalendar(calendar_),
                                kColumnsOfMonth);
        occurrences_->setCellNames({});
    }
    occurrences_->setAccessibilityName(EXLocalizable::localize(isYearly ? "RepeatIn" : "RepeatOn"));
    occurrences_->setBitmask(HGCustomRepeatFactory::bitmaskForRepeatOccurrences(
        factory_.occurrencesForFrequency(frequency_) & knownBits(frequency_), frequency_,
        calendar_));
    occurrences_->setHidden(frequency_ == HGCustomRepeat::kDaily);
    setNeedsApplyLayout();
}

void CVMacRepeatEditor::showUnit(std::int64_t interval) {
    const UnitKeys& keys = kUnitKeys[static_cast<std::size_t>(frequency_)];
    unit_->setText(EXLocalizable::localize(interval == 1 ? keys.one : keys.more));
    interval_->setAccessibilityName(every_->text() + " … " + unit_->text());
    setNeedsApplyLayout();
}

std::string CVMacRepeatEditor::accessibilityName() const {
    const std::string own = CompoundView::accessibilityName();
    return own.empty() ? EXLocalizable::localize("CustomD") : own;
}

views::Size CVMacRepeatEditor::preferredSizeThatFits(Size available) {
    // Of the widest and highest grid, so that nothing jumps when the frequency changes.
    const Size segments = frequencies_->preferredSizeThatFits(available);
    const double line = interval_->preferredSizeThatFits(available).height;
    CVMacBitmaskChooser month;
    month.setLabels(HGCustomRepeatFactory::bitLabelsForMonthOfCalendar(calendar_), kColumnsOfMonth);
    const Size grid = month.preferredSizeThatFits({kEndless, kEndless});
    const double width = std::max(segments.width, grid.width);
    return {std::min(available.width, width), segments.height + line + grid.height + 2 * kGap};
}

void CVMacRepeatEditor::applyLayout() {
    const double width = bounds().width;
    const Size room{width, kEndless};
    double y = 0;
    const double segments = frequencies_->preferredSizeThatFits(room).height;
    place(*frequencies_, {0, y, width, segments}, width);
    y += segments + kGap;
    const double line = interval_->preferredSizeThatFits(room).height;
    const double every = every_->preferredSizeThatFits(room).width;
    place(*every_, {0, y, every, line}, width);
    const double field = every + kGap;
    place(*interval_, {field, y, kFieldWidth, line}, width);
    const double unit = field + kFieldWidth + kGap;
    place(*unit_, {unit, y, std::max(0.0, width - unit), line}, width);
    y += line + kGap;
    const Size grid = occurrences_->preferredSizeThatFits(room);
    place(*occurrences_, {0, y, width, grid.height}, width);
}

}  // namespace corvane
