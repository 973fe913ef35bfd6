// The keys of the application's settings. They are a file format (docs/formats/preferences.md) and
// never change.
#pragma once

#include <string_view>

namespace corvane {

/// In front of every key where it is stored: "HGCorvane showDue".
inline constexpr std::string_view HGCorvanePreferencesKeyPrefix = "HGCorvane ";

inline constexpr std::string_view HGCorvanePreferencesShowDueKey = "showDue";
inline constexpr std::string_view HGCorvanePreferencesShowProjectAndCategoryNotesKey =
    "showProjectAndCategoryNotes";
inline constexpr std::string_view HGCorvanePreferencesAddTasksByDefaultAsKey =
    "addTasksByDefaultAs";
inline constexpr std::string_view HGCorvanePreferencesIncludeInProgressInTaskStatusAdvancementKey =
    "includeInProgressInTaskStatusAdvancement";
inline constexpr std::string_view HGCorvanePreferencesEnableDailyReminderKey =
    "enableDailyReminder";
inline constexpr std::string_view HGCorvanePreferencesDailyReminderHourKey = "dailyReminderHour";
inline constexpr std::string_view HGCorvanePreferencesAlwaysShowTaskNotesKey =
    "alwaysShowTaskNotes";
inline constexpr std::string_view HGCorvanePreferencesDisplayAreaColorsKey = "displayAreaColors";
inline constexpr std::string_view HGCorvanePreferencesReverseOrderOfPriorityColumnsKey =
    "reverseOrderOfPriorityColumns";
inline constexpr std::string_view HGCorvanePreferencesDefaultEmailCategoryNameKey =
    "defaultEmailCategoryName";
inline constexpr std::string_view HGCorvanePreferencesDefaultLinkCategoryNameKey =
    "defaultLinkCategoryName";
inline constexpr std::string_view HGCorvanePreferencesQuickEntryWindowFrameKey =
    "quickEntryWindowFrame";
inline constexpr std::string_view HGCorvanePreferencesQuickEntryHotkeyComboKey =
    "quickEntryHotkeyCombo";
inline constexpr std::string_view HGCorvanePreferencesHiddenSourceListItemsKey =
    "hiddenSourceListItems";
inline constexpr std::string_view HGCorvanePreferencesActiveVersion = "activeVersion";
inline constexpr std::string_view HGCorvanePreferencesEnableTVDC = "enableTVDC";
inline constexpr std::string_view HGCorvanePreferencesShowInspector = "showInspector";
inline constexpr std::string_view HGCorvanePreferencesEnableICloudSyncingKey =
    "enableICloudSyncing";
inline constexpr std::string_view HGCorvanePreferencesEnableICloudSyncingForDevelopmentKey =
    "enableICloudSyncingForDevelopment";
inline constexpr std::string_view HGCorvanePreferencesAutoImportRemindersKey =
    "autoImportReminders";
inline constexpr std::string_view HGCorvanePreferencesShowEventUtilizationKey =
    "showEventUtilization";
inline constexpr std::string_view HGCorvanePreferencesProductiveHoursPerDayKey =
    "productiveHoursPerDay";
inline constexpr std::string_view HGCorvanePreferencesLogLevelKey = "logLevel";

// Of fields that are not stored: a frame of the running program, and a switch for two others.
inline constexpr std::string_view HGCorvanePreferencesMainWindowFrameKey = "mainWindowFrame";
inline constexpr std::string_view HGCorvanePreferencesEnableICloudSyncingBasedOnEnvironmentKey =
    "enableICloudSyncingBasedOnEnvironment";

}  // namespace corvane
