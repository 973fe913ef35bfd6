#include "corvane/bridge/HGSharedContainer.h"

#include "corvane/platform/Clock.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane {
namespace {

using platform::Instant;
using platform::ScopedGroupContainer;
using platform::URL;

const HGSharedContainer& container = HGSharedContainer::defaultContainer();

TEST(HGSharedContainer, NamesThreeFilesByPathAndTwoEntriesByURL) {
    ScopedGroupContainer scope("/srv/50% #1");
    EXPECT_EQ(container.rootURL(), URL("file:///srv/50%25%20%231"));
    EXPECT_EQ(container.sharedInfoFilePath(), "/srv/50% #1/shared-info.archive");
    EXPECT_EQ(container.sharedRepositoryFilePath(), "/srv/50% #1/shared-repository.archive");
    EXPECT_EQ(container.updatedFilePath(), "/srv/50% #1/updated.timestamp");
    EXPECT_EQ(container.insertQueueDirectoryURL(), URL("file:///srv/50%25%20%231/insert-queue"));
    EXPECT_EQ(container.importedBackupFileURL()->path(), "/srv/50% #1/imported-backup.cvbx");
}

TEST(HGSharedContainer, WhatCannotBeReadIsAbsentAndWhatCannotBeWrittenIsFalse) {
    tests::TemporaryDirectory directory;
    for (const char* name : {"blocked/shared-info.archive", "blocked/updated.timestamp"})
        std::filesystem::create_directories(directory / name);
    const auto before = directory.content();
    for (const std::string& root : {std::string(), directory / "missing", directory / "blocked"}) {
        ScopedGroupContainer scope(root);
        EXPECT_FALSE(container.readSharedInfoAsData()) << root;
        EXPECT_FALSE(container.writeSharedInfoData({})) << root;
        EXPECT_FALSE(container.readUpdatedTimestamp()) << root;
        EXPECT_FALSE(container.touchUpdatedTimestamp()) << root;
    }
    EXPECT_EQ(directory.content(), before);
}

TEST(HGSharedContainer, TheTimestampIsTheMomentOfTheTouchAndAbsentWhereItIsNoDate) {
    tests::ScopedContainer scope;
    const platform::FixedClock clock{Instant(std::chrono::microseconds(-1))};
    platform::ScopedClock inForce(clock);
    EXPECT_TRUE(container.touchUpdatedTimestamp());
    EXPECT_EQ(container.readUpdatedTimestamp(), clock.now());
    const EXValue others[] = {0.5, "2001-01-01", tests::sampleTask()};
    for (const EXValue& root : others) {
        const auto path = *container.updatedFilePath();
        EXPECT_FALSE(platform::KeyedArchiver::archiveToFile(root, path));
        EXPECT_FALSE(container.readUpdatedTimestamp());
    }
}

}  // namespace
}  // namespace corvane
