#include "corvane/bridge/HGSharedInfo.h"

#include "corvane/platform/Files.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane {
namespace {

using platform::KeyedArchiver;
using platform::KeyedUnarchiver;
using platform::ValueList;
using platform::ValueMap;
using tests::contentOf;

TEST(HGSharedInfo, AnAbsentArgumentLeavesItsKeyOut) {
    const std::optional models = HGTaskProxyModels{{"a", tests::modelOf({})}};
    const std::optional badges = HGBadgeValues{{"b", 1}};
    for (const auto& m : {models, std::optional<HGTaskProxyModels>()}) {
        for (const auto& b : {badges, std::optional<HGBadgeValues>()}) {
            const HGSharedInfo info(m, b);
            EXPECT_EQ(info.dictionary()->items.size(), std::size_t{m.has_value()} + b.has_value());
            EXPECT_EQ(info.taskProxyModels(), m);
            EXPECT_EQ(info.badgeValues(), b);
        }
    }
    EXPECT_TRUE(HGSharedInfo().dictionary()->items.empty());
}

TEST(HGSharedInfo, ComesBackFromBytesFilesAndTheContainer) {
    tests::ScopedContainer container;
    const HGSharedInfo info = tests::sampleInfo();
    ASSERT_TRUE(info.writeToFile(container.directory / "file"));
    ASSERT_TRUE(info.writeToSharedContainer());
    const auto bytes = info.archiveToData();
    EXPECT_EQ(platform::readFile(container.directory / "file"), bytes);
    EXPECT_EQ(platform::readFile(container.directory / "shared-info.archive"), bytes);
    for (const auto& read :
         {HGSharedInfo::unarchiveFromData(*bytes), HGSharedInfo::readFromSharedContainer(),
          HGSharedInfo::readFromFile(container.directory / "file")}) {
        ASSERT_TRUE(read);
        EXPECT_EQ(contentOf(*read), contentOf(info));
        EXPECT_NE(read->taskProxyModels(), info.taskProxyModels()) << "new objects";
        EXPECT_EQ(read->archiveToData(), bytes);
    }
    const EXValue root = KeyedUnarchiver::unarchiveData(*bytes, sharedArchiveClasses());
    ASSERT_TRUE(root.map()) << "the archive's root is the map itself";
    EXPECT_TRUE(root.map()->growable);
}

TEST(HGSharedInfo, WhatIsUnreadableIsAbsentAndWhatCannotBeWrittenIsFalse) {
    auto bytes = *tests::sampleInfo().archiveToData();
    bytes.pop_back();
    EXPECT_FALSE(HGSharedInfo::unarchiveFromData(bytes));
    EXPECT_FALSE(HGSharedInfo::unarchiveFromData({}));
    EXPECT_FALSE(HGSharedInfo::unarchiveFromData(*KeyedArchiver::archivedData(EXValue())));

    tests::TemporaryDirectory directory;
    directory.write("garbage", "not an archive");
    std::filesystem::create_directory(directory / "folder");
    const auto before = directory.content();
    for (const char* name : {"missing", "garbage", "folder", "missing/file"})
        EXPECT_FALSE(HGSharedInfo::readFromFile(directory / name)) << name;
    for (const char* name : {"folder", "missing/file", "garbage/file"})
        EXPECT_FALSE(HGSharedInfo().writeToFile(directory / name)) << name;
    EXPECT_EQ(directory.content(), before);

    platform::ScopedGroupContainer noContainer("");
    EXPECT_FALSE(HGSharedInfo().writeToSharedContainer());
    EXPECT_FALSE(HGSharedInfo::readFromSharedContainer());
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
    ASSERT_TRUE(info && info->taskProxyModels());
    ASSERT_EQ(info->taskProxyModels()->size(), 1u);
    EXPECT_EQ(contentOf(*info->taskProxyModels()->at("model")), contentOf(*model));
    EXPECT_FALSE(info->badgeValues());

    const EXValue roots[] = {"text", 12, tests::sampleTask(), ValueList{{1, 2}}};
    for (const EXValue& root : roots) {
        info = archivedInfo(root);
        ASSERT_TRUE(info);
        EXPECT_FALSE(info->dictionary() || info->taskProxyModels() || info->badgeValues());
    }
}

}  // namespace
}  // namespace corvane
