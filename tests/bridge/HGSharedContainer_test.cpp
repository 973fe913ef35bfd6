#include "corvane/bridge/HGSharedContainer.h"

#include "corvane/platform/Clock.h"

#include "tests/support/BridgeSamples.h"
#include "tests/support/ForeignArchive.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane {
namespace {

using platform::Instant;
using platform::ScopedGroupContainer;
using platform::URL;

const HGSharedContainer& container = HGSharedContainer::defaultContainer();

platform::Bytes bytesOf(std::string_view text) {
    auto* first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

TEST(HGSharedContainer, NamesThreeFilesByPathAndTwoEntriesByURL) {
    ScopedGroupContainer scope("/srv/50% #1");
    EXPECT_EQ(container.rootURL(), URL("file:///srv/50%25%20%231"));
    EXPECT_EQ(container.sharedInfoFilePath(), "/srv/50% #1/shared-info.archive");
    EXPECT_EQ(container.sharedRepositoryFilePath(), "/srv/50% #1/shared-repository.archive");
    EXPECT_EQ(container.updatedFilePath(), "/srv/50% #1/updated.timestamp");
    EXPECT_EQ(container.insertQueueDirectoryURL(), URL("file:///srv/50%25%20%231/insert-queue"));
    EXPECT_EQ(container.importedBackupFileURL(),
              URL("file:///srv/50%25%20%231/imported-backup.cvbx"));

    ScopedGroupContainer other("/srv/b");
    EXPECT_EQ(container.updatedFilePath(), "/srv/b/updated.timestamp") << "asked for anew";
    ScopedGroupContainer none("");
    EXPECT_FALSE(container.rootURL() || container.insertQueueDirectoryURL() ||
                 container.sharedInfoFilePath() || container.importedBackupFileURL());
}

TEST(HGSharedContainer, WhatCannotBeReadIsAbsentAndWhatCannotBeWrittenIsFalse) {
    tests::TemporaryDirectory directory;
    for (const char* name : {"blocked/shared-info.archive", "blocked/updated.timestamp"})
        std::filesystem::create_directories(directory / name);
    const auto before = directory.content();
    for (const std::string& root : {std::string(), directory / "missing", directory / "blocked"}) {
        ScopedGroupContainer scope(root);
        EXPECT_FALSE(container.readSharedInfoAsData()) << root;
        EXPECT_FALSE(container.writeSharedInfoData(bytesOf("x"))) << root;
        EXPECT_FALSE(container.readUpdatedTimestamp()) << root;
        EXPECT_FALSE(container.touchUpdatedTimestamp()) << root;
    }
    EXPECT_EQ(directory.content(), before);
}

TEST(HGSharedContainer, PassesTheSharedInfoOnAsItIs) {
    tests::ScopedContainer scope;
    for (std::string_view text : {"not even an archive", "", "\x01\xFF shorter"}) {
        EXPECT_TRUE(container.writeSharedInfoData(bytesOf(text)));
        EXPECT_EQ(container.readSharedInfoAsData(), bytesOf(text));
    }
    EXPECT_EQ(scope.directory.content().size(), 1u) << "nothing but the file itself";
}

TEST(HGSharedContainer, TheTimestampIsTheMomentOfTheTouch) {
    tests::ScopedContainer scope;
    for (auto count : {1'709'647'629'123'457l, 978'307'200'000'000l, -1l, 4'102'444'799'999'999l}) {
        const platform::FixedClock clock{Instant(std::chrono::microseconds(count))};
        platform::ScopedClock inForce(clock);
        EXPECT_TRUE(container.touchUpdatedTimestamp());
        EXPECT_EQ(container.readUpdatedTimestamp(), clock.now());
    }
    const Instant before = platform::currentClock().now();
    EXPECT_TRUE(container.touchUpdatedTimestamp());
    EXPECT_GE(container.readUpdatedTimestamp(), before);
    EXPECT_LE(container.readUpdatedTimestamp(), platform::currentClock().now());
}

TEST(HGSharedContainer, ReadsTimestampsOfOtherWritersAndRefusesOtherRoots) {
    tests::ScopedContainer scope;
    const auto readBack = [](const platform::Bytes& bytes) {
        EXPECT_FALSE(platform::replaceFile(*container.updatedFilePath(), bytes,
                                           platform::Durability::Rename));
        return container.readUpdatedTimestamp();
    };
    const std::string half("\x3F\xE0\0\0\0\0\0\0", 8);
    const Instant expected = platform::kReferenceDate + std::chrono::milliseconds(500);
    tests::ForeignArchive a, b;
    EXPECT_EQ(readBack(a.file({a.text("$null"), a.raw("\x33" + half)})), expected) << "a raw date";
    auto date = b.dictionary({{"$class", b.uid(2)}, {"NS.time", b.raw("\x23" + half)}});
    EXPECT_EQ(readBack(b.file({b.text("$null"), date, b.classNamed("NSDate")})), expected);
    const EXValue others[] = {0.5, "2001-01-01", tests::sampleTask()};
    for (const EXValue& root : others)
        EXPECT_FALSE(readBack(*platform::KeyedArchiver::archivedData(root)));
}

}  // namespace
}  // namespace corvane
