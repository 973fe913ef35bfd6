#include "corvane/bridge/HGSharedInfo.h"

#include "corvane/platform/Files.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane {
namespace {

using platform::KeyedArchiver;
using platform::ValueList;
using platform::ValueMap;
using tests::contentOf;

TEST(HGSharedInfo, AnAbsentArgumentLeavesItsKeyOut) {
    for (const auto& m : {std::optional(HGTaskProxyModels{{"a", tests::modelOf({})}}), {}}) {
        for (const auto& b : {std::optional(HGBadgeValues{{"b", 1}}), {}}) {
            const HGSharedInfo info(m, b);
            EXPECT_EQ(info.dictionary()->items.size(), std::size_t{m.has_value()} + b.has_value());
            EXPECT_EQ(info.taskProxyModels(), m);
            EXPECT_EQ(info.badgeValues(), b);
        }
    }
}

TEST(HGSharedInfo, PassesThroughItsFileOrIsAbsent) {
    tests::ScopedContainer container;
    const std::string path = container.directory / "shared-info.archive";
    const HGSharedInfo info = tests::sampleInfo();
    auto bytes = *info.archiveToData();
    ASSERT_TRUE(info.writeToFile(path));
    EXPECT_EQ(platform::readFile(path), bytes);
    for (const auto& read :
         {HGSharedInfo::unarchiveFromData(bytes), HGSharedInfo::readFromSharedContainer()})
        EXPECT_EQ(contentOf(read), contentOf(info));
    bytes.pop_back();
    EXPECT_FALSE(HGSharedInfo::unarchiveFromData(bytes));
    EXPECT_FALSE(HGSharedInfo::unarchiveFromData(*KeyedArchiver::archivedData(EXValue())));

    std::filesystem::remove(path);
    EXPECT_FALSE(HGSharedInfo::readFromFile(path) || HGSharedInfo::readFromSharedContainer());
    std::filesystem::create_directory(path);
    EXPECT_FALSE(HGSharedInfo::readFromFile(path) || HGSharedInfo::readFromSharedContainer());
    EXPECT_FALSE(info.writeToFile(path) || info.writeToSharedContainer()) << "onto a directory";
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

std::optional<HGSharedInfo> archivedInfo(const EXValue& root) {
    return HGSharedInfo::unarchiveFromData(*KeyedArchiver::archivedData(root));
}

TEST(HGSharedInfo, BadgesOfTheWrongKindAreReadAsNumbers) {
    const std::pair<EXValue, std::int64_t> cases[] = {
        {7, 7},    {-3, -3},     {std::int64_t{1} << 40, std::int64_t{1} << 40},
        {true, 1}, {3.9, 3},     {-3.9, -3},
        {"12", 0}, {nullptr, 0}, {tests::sampleTask(), 0}};
    for (const auto& [stored, expected] : cases) {
        const EXValue root =
            ValueMap{{{HGSharedInfoBadgeValuesKey, ValueMap{{{"badge", stored}, {5, 5}}}}}};
        for (const auto& info : {HGSharedInfo::withDictionary(root), *archivedInfo(root)})
            EXPECT_EQ(info.badgeValues(), (HGBadgeValues{{"badge", expected}}))
                << "a key that is no text is passed over";
    }
}

TEST(HGSharedInfo, ForeignRootsAndEntriesCountAsMissing) {
    const auto model = tests::modelOf({tests::listOf({}, "Inbox")});
    auto info = archivedInfo(ValueMap{
        {{HGSharedInfoTaskProxyModelsKey, ValueMap{{{"model", model}, {"text", "x"}, {1, model}}}},
         {HGSharedInfoBadgeValuesKey, 12},
         {"unknown", 1}}});
    EXPECT_EQ(contentOf(info->taskProxyModels()), contentOf(HGTaskProxyModels{{"model", model}}));
    EXPECT_FALSE(info->badgeValues());

    const EXValue roots[] = {"text", 12, tests::sampleTask(), ValueList{{1, 2}}};
    for (const EXValue& root : roots) {
        info = archivedInfo(root);
        EXPECT_FALSE(info->dictionary() || info->taskProxyModels() || info->badgeValues());
    }
}

}  // namespace
}  // namespace corvane
