#include "corvane/dates/HGCustomRepeatFactory.h"

#include "corvane/platform/LocaleData.h"
#include "corvane/platform/TextSegments.h"
#include "corvane/platform/TypedText.h"
#include "corvane/vocabulary/HGLocalizable.h"
#include "corvane/vocabulary/VocabularyKeys.h"

namespace corvane {

namespace {

constexpr int kDaysInWeek = 7;
constexpr int kDaysInLongestMonth = 31;
constexpr std::size_t kLengthOfMonthLabel = 3;

bool isFrequency(std::int16_t code) {
    return code >= 0 && code < static_cast<std::int16_t>(kRepeatFrequencyKeys.size());
}

/// Without undefined behaviour for any mask.
std::int64_t shiftedLeft(std::int64_t mask, int bits) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(mask) << bits);
}

/// How many weekdays stand after the others when the week is shown: those from Sunday up to the
/// calendar's first.
int weekdaysMovedToEnd(std::int16_t frequency, const EXCalendar& calendar) {
    return frequency == HGCustomRepeat::kWeekly ? calendar.firstWeekday() - 1 : 0;
}

/// Of a number from 1 on.
std::int64_t bitOfNumber(std::int64_t number) {
    return std::int64_t{1} << (number - 1);
}

}  // namespace

std::optional<std::string> HGCustomRepeatFactory::choiceTitleForFrequency(std::int16_t frequency) {
    if (!isFrequency(frequency)) return std::nullopt;
    return HGLocalizable::localize(kRepeatFrequencyKeys[static_cast<std::size_t>(frequency)]);
}

std::shared_ptr<EXChoiceList> HGCustomRepeatFactory::choiceListForFrequencies() {
    auto list = std::make_shared<EXChoiceList>();
    for (std::int16_t code = 0; isFrequency(code); ++code)
        list->addItemWithTitle(choiceTitleForFrequency(code), std::int64_t{code});
    return list;
}

std::int64_t HGCustomRepeatFactory::bitmaskForRepeatOccurrences(std::int64_t occurrences,
                                                                std::int16_t frequency,
                                                                const EXCalendar& calendar) {
    const int moved = weekdaysMovedToEnd(frequency, calendar);
    const auto low = occurrences & ((std::int64_t{1} << moved) - 1);
    return moved == 0 ? occurrences : (occurrences >> moved) | (low << (kDaysInWeek - moved));
}

std::int64_t HGCustomRepeatFactory::repeatOccurrencesFromBitmask(std::int64_t bitmask,
                                                                 std::int16_t frequency,
                                                                 const EXCalendar& calendar) {
    const int moved = weekdaysMovedToEnd(frequency, calendar);
    const int kept = kDaysInWeek - moved;
    const auto high = bitmask & (((std::int64_t{1} << moved) - 1) << kept);
    return moved == 0 ? bitmask : shiftedLeft(bitmask ^ high, moved) | (high >> kept);
}

std::vector<std::string> HGCustomRepeatFactory::bitLabelsForWeekOfCalendar(
    const EXCalendar& calendar) {
    auto labels = calendar.createWeekdayStringsWithDateFormat("E");
    for (auto& label : labels)
        label = platform::firstCharacters(label, 1);
    return labels;
}

std::vector<std::string> HGCustomRepeatFactory::bitLabelsForMonthOfCalendar(const EXCalendar&) {
    std::vector<std::string> labels;
    for (int day = 1; day <= kDaysInLongestMonth; ++day)
        labels.push_back(std::to_string(day));
    return labels;
}

std::vector<std::string> HGCustomRepeatFactory::bitLabelsForYearOfCalendar(
    const EXCalendar& calendar) {
    const auto& locale = calendar.calendar().locale();
    const auto names =
        platform::dateNamesOfLocale(locale, platform::NameLength::Full, platform::NameUse::InDate);
    std::vector<std::string> labels;
    for (const auto& name : names.months)
        labels.push_back(
            platform::upperCased(platform::firstCharacters(name, kLengthOfMonthLabel), locale));
    return labels;
}

void HGCustomRepeatFactory::resetPerFrequencyDefaultsForDate(std::optional<EXDateOnly> day,
                                                             std::int16_t frequency,
                                                             std::int64_t interval,
                                                             std::int64_t occurrences,
                                                             const EXCalendar& calendar) {
    const auto date = calendar.dateForDateOnly(day);
    if (!date) return;
    const auto components = calendar.calendar().componentsFromInstant(*date);
    intervals_.fill(1);
    occurrences_ = {0, bitOfNumber(*components.weekday), bitOfNumber(*components.day),
                    bitOfNumber(*components.month)};
    updateWithFrequency(frequency, interval >= 1 ? interval : intervalForFrequency(frequency),
                        occurrences >= 1 ? occurrences : occurrencesForFrequency(frequency));
}

void HGCustomRepeatFactory::updateWithFrequency(std::int16_t frequency, std::int64_t interval,
                                                std::int64_t occurrences) {
    if (!isFrequency(frequency)) return;
    const auto place = static_cast<std::size_t>(frequency);
    intervals_[place] = interval;
    if (frequency != HGCustomRepeat::kDaily) occurrences_[place] = occurrences;
}

std::int64_t HGCustomRepeatFactory::intervalForFrequency(std::int16_t frequency) const {
    return isFrequency(frequency) ? intervals_[static_cast<std::size_t>(frequency)] : 0;
}

std::int64_t HGCustomRepeatFactory::occurrencesForFrequency(std::int16_t frequency) const {
    return isFrequency(frequency) ? occurrences_[static_cast<std::size_t>(frequency)] : 0;
}

}  // namespace corvane
