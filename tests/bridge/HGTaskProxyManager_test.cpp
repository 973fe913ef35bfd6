#include "corvane/bridge/HGTaskProxyManager.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using tests::listOf;
using tests::modelOf;
using Model = std::shared_ptr<HGTaskProxyModel>;
using Models = std::vector<Model>;
using List = std::shared_ptr<HGTaskProxyList>;
using Lists = std::vector<List>;
using Counts = std::vector<std::size_t>;

Models modelsOf(const HGTaskProxyManager& m) {
    return {m.inboxModel(), m.todayModel(), m.nextModel(), m.waitingForModel()};
}

Lists listsOf(const HGTaskProxyManager& m) {
    return {m.starredList(), m.dueTodayList(), m.dueTomorrowList()};
}

Counts sectionCounts(const HGTaskProxyManager& manager) {
    Counts counts;
    for (const auto& model : modelsOf(manager))
        counts.push_back(model ? model->numberOfSections() : 99);
    return counts;
}

/// The map with those of the four models that are there.
HGTaskProxyModels mapOf(const Models& models) {
    const std::string_view keys[] = {
        HGSharedInfoTaskProxyModelInboxKey, HGSharedInfoTaskProxyModelTodayKey,
        HGSharedInfoTaskProxyModelNextKey, HGSharedInfoTaskProxyModelWaitingForKey};
    HGTaskProxyModels map;
    for (std::size_t i = 0; i < models.size(); ++i)
        if (models[i]) map.emplace(keys[i], models[i]);
    return map;
}

const List a = listOf({}, "a"), b = listOf({}, "b"), c = listOf({}, "c");
const Model inbox = modelOf({a}), today = modelOf({a, b, c}), next = modelOf({b, c}),
            waiting = modelOf({a, b, c, a});
const Models kAll{inbox, today, next, waiting};
const Lists kNoLists(3);

TEST(HGTaskProxyManager, BeginsWithEmptyModelsAndNoBadges) {
    const HGTaskProxyManager own;
    for (const auto* manager : {&own, &std::as_const(HGTaskProxyManager::defaultManager())}) {
        EXPECT_EQ(sectionCounts(*manager), Counts(4));
        EXPECT_EQ(listsOf(*manager), kNoLists);
        EXPECT_TRUE(manager->badgeValues().empty());
    }
}

TEST(HGTaskProxyManager, TakesModelsAndListsFromAMap) {
    const struct {
        Models models;
        Counts sections;
        Lists lists;
    } cases[] = {{kAll, {1, 3, 2, 4}, {a, b, c}},
                 {{}, {0, 0, 0, 0}, kNoLists},
                 {{nullptr, today}, {0, 3, 0, 0}, {a, b, nullptr}},
                 {{inbox, nullptr, next}, {1, 0, 2, 0}, {nullptr, nullptr, c}},
                 // Fewer sections than every publisher writes.
                 {{nullptr, modelOf({c}), modelOf({b})}, {0, 1, 1, 0}, {c, nullptr, nullptr}},
                 {{nullptr, modelOf({}), modelOf({})}, {0, 0, 0, 0}, kNoLists}};
    for (const auto& [models, sections, lists] : cases) {
        const HGTaskProxyManager fresh(mapOf(models));
        HGTaskProxyManager filled(mapOf(kAll));
        filled.reloadTaskProxyModels(mapOf(models));
        for (const auto* manager : {&fresh, &std::as_const(filled)}) {
            EXPECT_EQ(sectionCounts(*manager), sections);
            EXPECT_EQ(listsOf(*manager), lists);
        }
    }
}

TEST(HGTaskProxyManager, WithoutAMapOnlyTheListsAreCleared) {
    HGTaskProxyManager manager(mapOf(kAll), HGBadgeValues{{"x", 1}});
    manager.reloadTaskProxyModels(std::nullopt);
    EXPECT_EQ(modelsOf(manager), kAll);
    EXPECT_EQ(listsOf(manager), kNoLists);
    EXPECT_EQ(manager.badgeValues(), (HGBadgeValues{{"x", 1}}));
    manager.reloadBadgeValues(std::nullopt);
    EXPECT_TRUE(manager.badgeValues().empty());
}

TEST(HGTaskProxyManager, BadgesBelowOneAreNotShown) {
    const std::string keys[] = {"Inbox", "Today", "TodayForTomorrow", "Next", "WaitingFor"};
    const std::pair<std::int64_t, std::optional<std::string>> cases[] = {
        {12, "12"}, {1, "1"}, {0, {}}, {-3, {}}, {4294967301, "5"}, {2147483648, "-2147483648"}};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        for (const auto& [number, text] : cases) {
            const HGTaskProxyManager m(
                {}, HGBadgeValues{{"HGSharedInfoBadgeValue" + keys[i] + "Key", number}});
            std::vector<std::int64_t> values(5);
            values[i] = number;
            EXPECT_EQ((std::vector{m.inboxBadgeValue(), m.todayBadgeValue(),
                                   m.todayBadgeValueForTomorrow(), m.nextBadgeValue(),
                                   m.waitingForBadgeValue()}),
                      values);
            std::vector<std::optional<std::string>> texts(5);
            texts[i] = text;
            EXPECT_EQ((std::vector{m.inboxBadgeValueString(), m.todayBadgeValueString(),
                                   m.todayBadgeValueStringForTomorrow(), m.nextBadgeValueString(),
                                   m.waitingForBadgeValueString()}),
                      texts);
        }
    }
}

TEST(HGTaskProxyManager, LoadsASnapshotFromItsFileOrStaysAsItWas) {
    tests::TemporaryDirectory directory;
    const std::string path = directory / "info";
    ASSERT_TRUE(tests::sampleInfo().writeToFile(path));
    HGTaskProxyManager manager;
    manager.reloadDataFromSharedInfoFile(path);
    EXPECT_EQ(sectionCounts(manager), (Counts{1, 2, 2, 0}));
    EXPECT_EQ(manager.starredList()->title(), "Starred");
    EXPECT_EQ(manager.dueTodayList()->count(), 2u);
    EXPECT_EQ(manager.dueTomorrowList()->title(), "Tomorrow");
    EXPECT_EQ(manager.inboxBadgeValue(), 12);

    const auto models = modelsOf(manager);
    const auto lists = listsOf(manager);
    for (const std::string& unreadable : {directory / "missing", directory.write("bad", "x")}) {
        manager.reloadDataFromSharedInfoFile(unreadable);
        EXPECT_EQ(modelsOf(manager), models);
        EXPECT_EQ(listsOf(manager), lists);
        EXPECT_EQ(manager.inboxBadgeValue(), 12);
    }
    ASSERT_TRUE(HGSharedInfo().writeToFile(path));
    manager.reloadDataFromSharedInfoFile(path);
    EXPECT_EQ(modelsOf(manager), models) << "a snapshot without models keeps them";
    EXPECT_EQ(listsOf(manager), kNoLists);
    EXPECT_TRUE(manager.badgeValues().empty());
}

}  // namespace
}  // namespace corvane
