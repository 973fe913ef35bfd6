#include "corvane/bridge/EXCloudContainer.h"
#include "corvane/platform/CloudContainer.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/NotificationCenter.h"
#include "corvane/platform/UserDefaults.h"
#include "corvane/preferences/HGCorvanePreferences.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>
using namespace corvane;
using Combo = EXPreferenceKeyCombo;
using Rect = EXPreferenceRect;
using Entries = EXPreferenceDictionary;
constexpr double kInfinite = std::numeric_limits<double>::infinity();
struct Twice : HGCorvanePreferences {
    using HGCorvanePreferences::HGCorvanePreferences;
    void setupDescriptors() override {
        HGCorvanePreferences::setupDescriptors(), registerUIntPreferenceWithKey("showDue", 7),
            registerStringPreferenceWithKey("showDue", "x");
    }
};
struct EXPreferencesTest : testing::Test {
    tests::TemporaryDirectory home;
    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    platform::ScopedLanguages languages{{"en"}};
    std::optional<platform::UserDefaults> defaults;
    std::optional<platform::ScopedUserDefaults> scope;
    std::string announced;
    std::function<void(std::string_view)> react = [&](auto key) { announced.append(key) += " "; };
    platform::NotificationCenter::Observation observation =
        platform::defaultNotificationCenter().addObserver(
            "EXPreferencesDidChangeUserPreferenceNotification", nullptr, [this](auto& n) {
                react(*n.userInfo.at("EXPreferencesDidChangeUserPreferenceNotificationKey").text());
            });
    platform::UserDefaults elsewhere() { return platform::UserDefaults(home / "s.plist"); }
    template <class P>
    std::unique_ptr<P> restart() {
        return scope.reset(), scope.emplace(defaults.emplace(home / "s.plist")),
               EXPreferences::create<P>();
    }
    auto count(std::string_view what) {
        return std::count_if(console.lines().begin(), console.lines().end(),
                             [&](auto& line) { return line.starts_with(what); });
    }
};
TEST_F(EXPreferencesTest, StartWithTheirDefaultsAndKeepWhatIsAssigned) {
    auto p = restart<Twice>();
    EXPECT_TRUE(count("WARNING: Duplicate preferences key 'showDue' -- ignoring redefinition") ==
                    2 &&
                count("### Loading user preference showDue = 1") == 1);
    for (const auto& d : p->descriptors())
        EXPECT_EQ(elsewhere().value("HGCorvane " + d->key()),
                  p->userDefaultValueForPreferenceValue(d->defaultValue(), *d))
            << "stored as the user's";
    EXPECT_EQ(std::count(announced.begin(), announced.end(), ' '), 23);
    p->showInspector = true, p->showDue = UINT64_MAX, p->enableTVDC = INT64_MIN,
    p->activeVersion = "x", p->quickEntryHotkeyCombo = std::nullopt, p->mainWindowFrame = Rect();
    p->hiddenSourceListItems = Entries{{"a", 1}},
    p->quickEntryWindowFrame = Rect(0.1, -2, 1e300, 480);
    EXPECT_EQ(announced.substr(announced.find("logLevel ")),
              "logLevel showInspector showDue enableTVDC activeVersion quickEntryHotkeyCombo "
              "hiddenSourceListItems quickEntryWindowFrame ");
    p = restart<Twice>();
    EXPECT_TRUE(p->showInspector() && p->showDue() == UINT64_MAX && p->enableTVDC() == INT64_MIN &&
                p->activeVersion() == "x" && p->quickEntryHotkeyCombo() == Combo(47, 1310720) &&
                !p->mainWindowFrame() && p->hiddenSourceListItems() == Entries({{"a", 1}}) &&
                p->quickEntryWindowFrame() == Rect(0.1f, -2, kInfinite, 480));
    EXPECT_THROW(p->hiddenSourceListItems = Entries({{"u", platform::URL("u:")}}),
                 std::invalid_argument);
    EXPECT_TRUE(p->hiddenSourceListItems()->size() == 1 && !p->setValue("nothing", EXValue(1)) &&
                !p->setValue("showDue", {}) && p->setValue("mainWindowFrame", Rect()) &&
                p->mainWindowFrame());
}
TEST_F(EXPreferencesTest, LoadWhateverIsStoredAndGiveWayToOthers) {
    const EXValue entry = platform::ValueMap{{{"x", 1e300}, {"code", 7}, {"modifiers", -1}}};
    const std::tuple<const char*, EXValue, EXPreferenceValue, bool> cases[] = {
        // key, stored, loaded, with a warning
        {"showInspector", 2, EXValue(true), false},
        {"displayAreaColors", "no", EXValue(true), true},
        {"enableTVDC", UINT64_MAX, EXValue(INT64_MAX), false},
        {"showDue", -1, EXValue(UINT64_MAX), false},
        {"showDue", 2.9, EXValue(2), false},
        {"activeVersion", 1, {}, true},
        {"hiddenSourceListItems", entry, entry, false},
        {"quickEntryWindowFrame", entry, Rect(kInfinite, 0, 0, 0), false},
        {"quickEntryWindowFrame", "1", {}, true},
        {"quickEntryHotkeyCombo", entry, Combo(7, UINT64_MAX), false},
        {"quickEntryHotkeyCombo", platform::ValueMap(), Combo(), false},
        {"quickEntryHotkeyCombo", 1, Combo(47, 1310720), true}};
    for (const auto& [key, stored, loaded, warns] : cases) {
        elsewhere().setValue(std::string("HGCorvane ") + key, stored);
        const auto before = count("WARNING: the stored");
        EXPECT_TRUE(restart<Twice>()->valueForKey(key) == loaded &&
                    count("WARNING: the stored") - before == warns)
            << key;
    }
    std::unique_ptr<Twice> p;
    react = [&](auto key) {
        if (key == "showDue" && !p)
            elsewhere().setValue("HGCorvane logLevel",
                                 5);  // another process, in the midst of this one's load
        if (key == "enableTVDC" && p && p->enableTVDC() > 100)
            elsewhere().setValue("HGCorvane enableTVDC", 7), p->enableTVDC = 100;
    };
    elsewhere().setValue("HGCorvane logLevel", {}),
        p = restart<Twice>(), elsewhere().setValue("HGCorvane enableTVDC", 999),
        p->reloadUserPreferences();
    EXPECT_TRUE(p->logLevel() == 5 && elsewhere().value("HGCorvane logLevel") == 5 &&
                p->enableTVDC() == 100 && elsewhere().value("HGCorvane enableTVDC") == 100);
}
TEST_F(EXPreferencesTest, OfTheApplicationOfferChoicesToAll) {
    restart<Twice>();
    std::string titles;
    std::size_t asked = 0;
    react = [&](auto) {
        asked += &EXPreferences::sharedPreferences() == &HGCorvanePreferences::sharedPreferences();
    };
    auto& p =
        HGCorvanePreferences::sharedPreferences();  // whoever hears of its load may ask for it
    for (auto list : {p.showDueChoiceList, p.addTasksByDefaultAsChoiceList,
                      p.productiveHoursChoiceList, p.dailyReminderHourChoiceList})
        for (const auto& item : list()->firstSection()->items())
            titles += *item->title() + "=" + std::to_string(item->value().unsignedValue()) + " ";
    EXPECT_EQ(
        titles,
        "Due Tomorrow=1 Due in 3 Days=3 Due in 5 Days=5 Due in 7 Days=7 Starred=0 Due Today=1 4=4 "
        "6=6 8=8 10=10 12=12 4:00=4 5:00=5 6:00=6 7:00=7 8:00=8 9:00=9 10:00=10 11:00=11 ");
    EXPECT_THROW(EXPreferences::sharedPreferences<Twice>(), std::invalid_argument);
    EXPECT_TRUE(asked == 23 && p.localizedStringForShowDue() == "Due Tomorrow" &&
                !(p.showDue = 2, p.localizedStringForShowDue()));
    for (bool development : {true, false}) {
        platform::setCloudContainerEnvironment(
            [=] { return platform::Value(development ? 2 : 1); }),
            EXCloudContainer::resetEnvironment();
        p.setEnableICloudSyncingBasedOnEnvironment(development);
        EXPECT_TRUE(p.enableICloudSyncingBasedOnEnvironment() == development &&
                    p.enableICloudSyncingForDevelopment() && !p.enableICloudSyncing());
    }
    for (auto [ofEvents, ofHotKeys] : {std::pair(0u, 0u),
                                       {1u << 20, 1u << 8},
                                       {1u << 17, 1u << 9},
                                       {1u << 19, 1u << 11},
                                       {1u << 18, 1u << 12},
                                       {0x1E0000u, 0x1B00u}})
        EXPECT_TRUE(Combo::toPTKeyCombo(Combo(47, ofEvents | 1)) ==
                        platform::PTKeyCombo(47, ofHotKeys) &&
                    Combo(platform::PTKeyCombo(47, ofHotKeys | 1)) == Combo(47, ofEvents));
}
