#include "corvane/dates/DayNames.h"

#include "corvane/platform/Locale.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <algorithm>
#include <utility>

namespace corvane {

DayNames DayNames::ofStringTables() {
    DayNames names;
    for (const auto& [which, key] :
         {std::pair(DayName::Today, kTodayKey), std::pair(DayName::TodayShort, kTodayShortKey),
          std::pair(DayName::Tomorrow, kTomorrowKey),
          std::pair(DayName::TomorrowShort, kTomorrowShortKey)})
        names.setName(which, EXLocalizable::localizableNameForKey(key));
    return names;
}

void DayNames::setName(DayName which, std::optional<std::string> name) {
    entries_[static_cast<std::size_t>(which)].name = std::move(name);
    surroundings_.reset();
    isEmpty_ = std::none_of(entries_.begin(), entries_.end(),
                            [](const Entry& each) { return each.name.has_value(); });
}

std::optional<std::string> DayNames::text(DayName which) const {
    return EXLocalizable::localizeName(name(which));
}

std::optional<int> DayNames::daysAhead(std::string_view typed,
                                       platform::LetterCase letterCase) const {
    if (typed.empty() || isEmpty_) return std::nullopt;
    if (!isUpToDate(letterCase)) update(letterCase);
    for (auto which :
         {DayName::TodayShort, DayName::Today, DayName::TomorrowShort, DayName::Tomorrow})
        if (entry(which).typed == typed) return which < DayName::TomorrowShort ? 0 : 1;
    return std::nullopt;
}

/// Looking up translations takes longer than all the rest of reading a word.
bool DayNames::isUpToDate(platform::LetterCase letterCase) const {
    return surroundings_ && surroundings_->tables == EXLocalizable::stringTablesRevision() &&
           surroundings_->letterCase == letterCase &&
           surroundings_->languages == platform::preferredLanguages();
}

void DayNames::update(platform::LetterCase letterCase) const {
    // Asked before the look-ups: a table that is added meanwhile makes the texts outdated.
    const auto tables = EXLocalizable::stringTablesRevision();
    for (auto& entry : entries_) {
        const auto text = EXLocalizable::localizeName(entry.name).value_or("");
        entry.typed = platform::TypedText(text, letterCase).trimmedText();
    }
    surroundings_ = {tables, platform::preferredLanguages(), letterCase};
}

}  // namespace corvane
