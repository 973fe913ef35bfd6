// The settings of the application, and what its settings screen offers to choose from.
#pragma once

#include "corvane/preferences/EXPreferences.h"
#include "corvane/preferences/HGCorvanePreferencesKeys.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

inline constexpr std::uint64_t HGCorvanePreferencesProductiveHours4 = 4;
inline constexpr std::uint64_t HGCorvanePreferencesProductiveHours6 = 6;
inline constexpr std::uint64_t HGCorvanePreferencesProductiveHours8 = 8;
inline constexpr std::uint64_t HGCorvanePreferencesProductiveHours10 = 10;
inline constexpr std::uint64_t HGCorvanePreferencesProductiveHours12 = 12;

/// See EXPreferences for how fields behave. A value that no list offers is kept like any other.
///
///     auto& preferences = HGCorvanePreferences::sharedPreferences();
///     preferences.showDue()                       // 1
///     preferences.localizedStringForShowDue()     // "Due Tomorrow"
///     preferences.showDue = 2;
///     preferences.localizedStringForShowDue()     // none
class HGCorvanePreferences : public EXPreferences {
  public:
    using EXPreferences::EXPreferences;

    static HGCorvanePreferences& sharedPreferences() {
        return EXPreferences::sharedPreferences<HGCorvanePreferences>();
    }

    // The settings.

    /// How many days ahead the due view looks; of showDueChoiceList.
    EXPreferenceField<std::uint64_t> showDue{this, HGCorvanePreferencesShowDueKey};

    /// Whether the notes of projects and categories are shown.
    EXPreferenceField<bool> showProjectAndCategoryNotes{
        this, HGCorvanePreferencesShowProjectAndCategoryNotesKey};

    /// How a new task is marked; of addTasksByDefaultAsChoiceList.
    EXPreferenceField<std::uint64_t> addTasksByDefaultAs{
        this, HGCorvanePreferencesAddTasksByDefaultAsKey};

    /// Whether advancing a task's status passes through the one in progress.
    EXPreferenceField<bool> includeInProgressInTaskStatusAdvancement{
        this, HGCorvanePreferencesIncludeInProgressInTaskStatusAdvancementKey};
    EXPreferenceField<bool> enableDailyReminder{this, HGCorvanePreferencesEnableDailyReminderKey};

    /// Of dailyReminderHourChoiceList.
    EXPreferenceField<std::uint64_t> dailyReminderHour{this,
                                                       HGCorvanePreferencesDailyReminderHourKey};
    EXPreferenceField<bool> alwaysShowTaskNotes{this, HGCorvanePreferencesAlwaysShowTaskNotesKey};
    EXPreferenceField<bool> displayAreaColors{this, HGCorvanePreferencesDisplayAreaColorsKey};
    EXPreferenceField<bool> reverseOrderOfPriorityColumns{
        this, HGCorvanePreferencesReverseOrderOfPriorityColumnsKey};

    /// The category of tasks made from e-mail.
    EXPreferenceField<std::optional<std::string>> defaultEmailCategoryName{
        this, HGCorvanePreferencesDefaultEmailCategoryNameKey};

    /// The category of tasks made from links.
    EXPreferenceField<std::optional<std::string>> defaultLinkCategoryName{
        this, HGCorvanePreferencesDefaultLinkCategoryNameKey};
    EXPreferenceField<std::optional<EXPreferenceRect>> quickEntryWindowFrame{
        this, HGCorvanePreferencesQuickEntryWindowFrameKey};

    /// The global hot key of quick entry.
    EXPreferenceField<std::optional<EXPreferenceKeyCombo>> quickEntryHotkeyCombo{
        this, HGCorvanePreferencesQuickEntryHotkeyComboKey};

    /// Which items of the source list the user has hidden.
    EXPreferenceField<std::optional<EXPreferenceDictionary>> hiddenSourceListItems{
        this, HGCorvanePreferencesHiddenSourceListItemsKey};

    /// Kept for the application, which knows what they mean.
    EXPreferenceField<std::optional<std::string>> activeVersion{this,
                                                                HGCorvanePreferencesActiveVersion};
    EXPreferenceField<std::int64_t> enableTVDC{this, HGCorvanePreferencesEnableTVDC};
    EXPreferenceField<bool> showInspector{this, HGCorvanePreferencesShowInspector};

    /// In the production environment of the cloud, and in that of development.
    EXPreferenceField<bool> enableICloudSyncing{this, HGCorvanePreferencesEnableICloudSyncingKey};
    EXPreferenceField<bool> enableICloudSyncingForDevelopment{
        this, HGCorvanePreferencesEnableICloudSyncingForDevelopmentKey};

    /// Whether the system's reminders are imported by themselves.
    EXPreferenceField<bool> autoImportReminders{this, HGCorvanePreferencesAutoImportRemindersKey};
    EXPreferenceField<bool> showEventUtilization{this, HGCorvanePreferencesShowEventUtilizationKey};

    /// Of productiveHoursChoiceList.
    EXPreferenceField<std::uint64_t> productiveHoursPerDay{
        this, HGCorvanePreferencesProductiveHoursPerDayKey};

    /// Levels of the log (logging/Level.h): errors, warnings and information unless set.
    EXPreferenceField<std::uint64_t> logLevel{this, HGCorvanePreferencesLogLevelKey};

    /// No setting, unlike the frame above: the window system restores the main window itself. None
    /// after every start.
    EXPreferenceField<std::optional<EXPreferenceRect>> mainWindowFrame{
        this, HGCorvanePreferencesMainWindowFrameKey};

    /// That of the two switches for syncing which counts in the environment of
    /// EXCloudContainer::environment(): 1 is development, everything else is production.
    bool enableICloudSyncingBasedOnEnvironment() const;
    void setEnableICloudSyncingBasedOnEnvironment(bool enable);

    /// The title that showDueChoiceList has for the present value; none where it has none.
    std::optional<std::string> localizedStringForShowDue() const;

    // Each is made at its first call, in the languages in force then, and stays the same ever
    // after. Any thread.
    static std::shared_ptr<const EXChoiceList> showDueChoiceList();
    static std::shared_ptr<const EXChoiceList> addTasksByDefaultAsChoiceList();
    static std::shared_ptr<const EXChoiceList> productiveHoursChoiceList();
    static std::shared_ptr<const EXChoiceList> dailyReminderHourChoiceList();

  protected:
    void setupDescriptors() override;
    std::optional<std::string> keyPrefixForUserDefaults() const override;
};

}  // namespace corvane
