#include "corvane/preferences/HGCorvanePreferences.h"

#include "corvane/bridge/EXCloudContainer.h"
#include "corvane/preferences/PreferenceTitles.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include <span>

namespace corvane {

namespace {

constexpr std::uint64_t kCommand = 1u << 20;
constexpr std::uint64_t kControl = 1u << 18;
constexpr std::int64_t kPeriodKey = 47;
constexpr EXPreferenceKeyCombo kQuickEntryHotkeyCombo(kPeriodKey, kCommand | kControl);

constexpr int kDevelopment = 1;

using SharedList = std::shared_ptr<const EXChoiceList>;

SharedList localizedList(std::span<const PreferenceTitle> titles) {
    auto list = std::make_shared<EXChoiceList>();
    for (const auto& title : titles)
        list->addItemWithTitle(HGLocalizable::localize(title.key), title.value);
    return list;
}

}  // namespace

std::optional<std::string> HGCorvanePreferences::keyPrefixForUserDefaults() const {
    return std::string(HGCorvanePreferencesKeyPrefix);
}

void HGCorvanePreferences::setupDescriptors() {
    registerUIntPreferenceWithKey(HGCorvanePreferencesShowDueKey, 1);
    registerBoolPreferenceWithKey(HGCorvanePreferencesShowProjectAndCategoryNotesKey, true);
    registerUIntPreferenceWithKey(HGCorvanePreferencesAddTasksByDefaultAsKey, 0);
    registerBoolPreferenceWithKey(HGCorvanePreferencesIncludeInProgressInTaskStatusAdvancementKey,
                                  true);
    registerBoolPreferenceWithKey(HGCorvanePreferencesEnableDailyReminderKey, true);
    registerUIntPreferenceWithKey(HGCorvanePreferencesDailyReminderHourKey, 8);
    registerBoolPreferenceWithKey(HGCorvanePreferencesAlwaysShowTaskNotesKey, true);
    registerBoolPreferenceWithKey(HGCorvanePreferencesDisplayAreaColorsKey, true);
    registerBoolPreferenceWithKey(HGCorvanePreferencesReverseOrderOfPriorityColumnsKey, true);
    registerStringPreferenceWithKey(HGCorvanePreferencesDefaultEmailCategoryNameKey, std::nullopt);
    registerStringPreferenceWithKey(HGCorvanePreferencesDefaultLinkCategoryNameKey, std::nullopt);
    registerRectPreferenceWithKey(HGCorvanePreferencesQuickEntryWindowFrameKey, std::nullopt);
    registerKeyComboPreferenceWithKey(HGCorvanePreferencesQuickEntryHotkeyComboKey,
                                      kQuickEntryHotkeyCombo);
    registerDictionaryPreferenceWithKey(HGCorvanePreferencesHiddenSourceListItemsKey, std::nullopt);
    registerStringPreferenceWithKey(HGCorvanePreferencesActiveVersion, std::nullopt);
    registerIntPreferenceWithKey(HGCorvanePreferencesEnableTVDC, 0);
    registerBoolPreferenceWithKey(HGCorvanePreferencesShowInspector, false);
    registerBoolPreferenceWithKey(HGCorvanePreferencesEnableICloudSyncingKey, false);
    registerBoolPreferenceWithKey(HGCorvanePreferencesEnableICloudSyncingForDevelopmentKey, false);
    registerBoolPreferenceWithKey(HGCorvanePreferencesAutoImportRemindersKey, false);
    registerBoolPreferenceWithKey(HGCorvanePreferencesShowEventUtilizationKey, true);
    registerUIntPreferenceWithKey(HGCorvanePreferencesProductiveHoursPerDayKey, 8);
    registerUIntPreferenceWithKey(HGCorvanePreferencesLogLevelKey, 7);
}

bool HGCorvanePreferences::enableICloudSyncingBasedOnEnvironment() const {
    return EXCloudContainer::environment() == kDevelopment ? enableICloudSyncingForDevelopment()
                                                           : enableICloudSyncing();
}

void HGCorvanePreferences::setEnableICloudSyncingBasedOnEnvironment(bool enable) {
    const bool isDevelopment = EXCloudContainer::environment() == kDevelopment;
    (isDevelopment ? enableICloudSyncingForDevelopment : enableICloudSyncing) = enable;
}

std::optional<std::string> HGCorvanePreferences::localizedStringForShowDue() const {
    for (const auto& title : kShowDueTitles)
        if (title.value == showDue()) return HGLocalizable::localize(title.key);
    return std::nullopt;
}

SharedList HGCorvanePreferences::showDueChoiceList() {
    static const SharedList list = localizedList(kShowDueTitles);
    return list;
}

SharedList HGCorvanePreferences::addTasksByDefaultAsChoiceList() {
    static const SharedList list = localizedList(kAddTasksByDefaultAsTitles);
    return list;
}

SharedList HGCorvanePreferences::productiveHoursChoiceList() {
    static const SharedList list = [] {
        auto made = std::make_shared<EXChoiceList>();
        for (std::uint64_t hours :
             {HGCorvanePreferencesProductiveHours4, HGCorvanePreferencesProductiveHours6,
              HGCorvanePreferencesProductiveHours8, HGCorvanePreferencesProductiveHours10,
              HGCorvanePreferencesProductiveHours12})
            made->addItemWithTitle(std::to_string(hours), hours);
        return made;
    }();
    return list;
}

SharedList HGCorvanePreferences::dailyReminderHourChoiceList() {
    static const SharedList list = [] {
        auto made = std::make_shared<EXChoiceList>();
        for (std::uint64_t hour = 4; hour <= 11; ++hour)
            made->addItemWithTitle(std::to_string(hour) + ":00", hour);
        return made;
    }();
    return list;
}

}  // namespace corvane
