// The domain's vocabularies: in each table the position is the code and the entry the key of its
// title. Codes are stored in archives, so an entry never moves and none is removed. Backups hold
// the texts instead (but of the indicators and "CustomD"), so they never change either.
#pragma once

#include <array>
#include <string_view>

namespace corvane {

inline constexpr std::array<std::string_view, 5> kPriorityKeys{"Trivial", "Low", "Medium", "High",
                                                               "Critical"};

inline constexpr std::array<std::string_view, 9> kTaskStatusKeys{
    "Inbox",  "Someday",   "Scratchpad", "Actionable", "InProgress",
    "OnHold", "Completed", "Canceled",   "Trash"};

/// Not task states: an action counts its own codes.
inline constexpr std::array<std::string_view, 3> kActionStatusKeys{"Actionable", "InProgress",
                                                                   "Completed"};

inline constexpr std::array<std::string_view, 5> kProjectStatusKeys{
    "NotStarted", "Active", "OnHold", "Completed", "Canceled"};

/// The last code stands for a rule of the task's own.
inline constexpr std::array<std::string_view, 9> kTaskRepeatKeys{
    "Never",          "EveryDay",     "EveryWeek", "EveryTwoWeeks", "EveryMonth",
    "EveryTwoMonths", "EveryQuarter", "EveryYear", "CustomD"};

/// Of such a rule.
inline constexpr std::array<std::string_view, 4> kRepeatFrequencyKeys{
    "RepeatDaily", "RepeatWeekly", "RepeatMonthly", "RepeatYearly"};

inline constexpr std::array<std::string_view, 8> kColorKeys{"Gray", "Purple", "Violet", "Blue",
                                                            "Cyan", "Green",  "Orange", "Red"};

// Not codes but names: what users call these days, in full and for short.
inline constexpr std::string_view kTodayKey = "Today";
inline constexpr std::string_view kTodayShortKey = "TodayShort";
inline constexpr std::string_view kTomorrowKey = "Tomorrow";
inline constexpr std::string_view kTomorrowShortKey = "TomorrowShort";

inline constexpr std::array<std::string_view, 45> kIndicatorKeys = {
    "SIndicatorNone",
    "Phone",
    "Email",
    "QuestionMark",
    "ExclamationMark",  // to 4
    "LightBulb",
    "List",
    "ShoppingBag",
    "Computer",
    "Home",  // to 9
    "Office",
    "Glasses",
    "Gear",
    "Music",
    "Camera",  // to 14
    "Wave",
    "Decision",
    "Hammer",
    "Money",
    "Megaphone",  // to 19
    "App",
    "Brush",
    "Bug",
    "Car",
    "Cloud",  // to 24
    "Cooking",
    "Game",
    "Plane",
    "Star",
    "TV",  // to 29
    "Brain",
    "Gift",
    "Speechbubble",
    "Video",
    "Fitness",  // to 34
    "Flower",
    "YinYang",
    "Smartphone",
    "Tablet",
    "Apple",  // to 39
    "Android",
    "Windows",
    "Web",
    "Handshake",
    "Heart"  // to 44
};

}  // namespace corvane
