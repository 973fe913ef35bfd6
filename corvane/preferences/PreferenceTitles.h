// The titles of choices that the application's preferences take from the string tables.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace corvane {

struct PreferenceTitle {
    std::string_view key;
    std::uint64_t value;
};

inline constexpr std::array<PreferenceTitle, 4> kShowDueTitles{
    {{"DueTomorrow", 1}, {"Due3Days", 3}, {"Due5Days", 5}, {"Due7Days", 7}}};

inline constexpr std::array<PreferenceTitle, 2> kAddTasksByDefaultAsTitles{
    {{"Starred", 0}, {"DueToday", 1}}};

}  // namespace corvane
