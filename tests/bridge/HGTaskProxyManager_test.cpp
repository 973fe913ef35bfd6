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
        counts.push_back(model->numberOfSections());
    return counts;
}

/// The map with those of the four models that are there.
HGTaskProxyModels mapOf(const Models& models) {
    const std::string keys[] = {"Inbox", "Today", "Next", "WaitingFor"};
    HGTaskProxyModels map;
    for (std::size_t i = 0; i < models.size(); ++i)
        if (models[i]) map.emplace("HGSharedInfoTaskProxyModel" + keys[i] + "Key", models[i]);
    return map;
}

const List a = listOf({}, "a"), b = listOf({}, "b"), c = listOf({}, "c");
const Model inbox = modelOf({a}), today = modelOf({a, b, c}), next = modelOf({b, c}),
            waiting = modelOf({a, b, c, a});
const Models kAll{inbox, today, next, waiting};
const Lists kNoLists(3);

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

TEST(HGTaskProxyManager, BadgesBelowOneAreNotShown) {
    const std::pair<std::int64_t, std::optional<std::string>> cases[] = {
        {12, "12"}, {1, "1"}, {0, {}}, {-3, {}}, {4294967301, "5"}, {2147483648, "-2147483648"}};
    for (const auto& [number, text] : cases) {
        const HGTaskProxyManager m({}, HGBadgeValues{{"HGSharedInfoBadgeValueTodayKey", number}});
        EXPECT_EQ(m.todayBadgeValue(), number);
        EXPECT_EQ(m.todayBadgeValueString(), text);
    }
}

TEST(HGTaskProxyManager, LoadsASnapshotFromItsFileOrStaysAsItWas) {
    tests::TemporaryDirectory directory;
    const std::string path = directory / "info";
    ASSERT_TRUE(tests::sampleInfo().writeToFile(path));
    HGTaskProxyManager manager;
    EXPECT_EQ(sectionCounts(manager), Counts(4));
    manager.reloadDataFromSharedInfoFile(path);
    for (const std::string& unreadable : {directory / "missing", directory.write("bad", "x")}) {
        manager.reloadDataFromSharedInfoFile(unreadable);
        EXPECT_EQ(sectionCounts(manager), (Counts{1, 2, 2, 0}));
        EXPECT_EQ(manager.starredList()->title(), "Starred");
        EXPECT_EQ(manager.dueTodayList()->count(), 2u);
        EXPECT_EQ(manager.dueTomorrowList()->title(), "Tomorrow");
        EXPECT_EQ((std::vector{manager.inboxBadgeValue(), manager.todayBadgeValue(),
                               manager.todayBadgeValueForTomorrow(), manager.nextBadgeValue(),
                               manager.waitingForBadgeValue()}),
                  (std::vector<std::int64_t>{12, 2, 300, 0, -3}));
        using Texts = std::vector<std::optional<std::string>>;
        EXPECT_EQ((Texts{manager.inboxBadgeValueString(), manager.todayBadgeValueString(),
                         manager.todayBadgeValueStringForTomorrow(), manager.nextBadgeValueString(),
                         manager.waitingForBadgeValueString()}),
                  (Texts{"12", "2", "300", {}, {}}));
    }
    const auto models = modelsOf(manager);
    ASSERT_TRUE(HGSharedInfo().writeToFile(path));
    manager.reloadDataFromSharedInfoFile(path);
    EXPECT_EQ(modelsOf(manager), models) << "a snapshot without models keeps them";
    EXPECT_EQ(listsOf(manager), kNoLists);
    EXPECT_TRUE(manager.badgeValues().empty());
}

}  // namespace
}  // namespace corvane
