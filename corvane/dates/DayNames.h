// The application's own words for today and tomorrow, each literal or a reference to a translation
// ("${Today}"). For one thread at a time, also for reading.
#pragma once

#include "corvane/platform/TypedText.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The short names are only understood, never given.
enum class DayName { TodayShort, Today, TomorrowShort, Tomorrow };

class DayNames {
  public:
    /// References to the texts that the string tables have for them.
    static DayNames ofStringTables();

    /// None for a name that is not set, as all are at first.
    const std::optional<std::string>& name(DayName which) const { return entry(which).name; }
    void setName(DayName which, std::optional<std::string> name);

    /// The name as it reads now, in the user's language.
    std::optional<std::string> text(DayName which) const;

    /// 0 where the text is a name of today, 1 for one of tomorrow. Takes the trimmed text of a
    /// TypedText.
    std::optional<int> daysAhead(std::string_view typed, platform::LetterCase letterCase) const;

  private:
    struct Entry {
        std::optional<std::string> name;
        std::string typed;  ///< The name's text as a TypedText gives it; empty for none.
    };

    /// What the entries' typed texts depend on beside the names.
    struct Surroundings {
        std::uint64_t tables;
        std::vector<std::string> languages;
        platform::LetterCase letterCase;
    };

    const Entry& entry(DayName which) const { return entries_[static_cast<std::size_t>(which)]; }
    bool isUpToDate(platform::LetterCase letterCase) const;
    void update(platform::LetterCase letterCase) const;

    mutable std::array<Entry, 4> entries_;
    mutable std::optional<Surroundings> surroundings_;
    bool isEmpty_ = true;
};

}  // namespace corvane
