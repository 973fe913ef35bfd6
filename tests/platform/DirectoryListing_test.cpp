#include "corvane/platform/DirectoryListing.h"

#include "corvane/platform/Files.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace corvane::platform {
namespace {

std::vector<std::string> names(const std::vector<DirectoryEntry>& entries) {
    std::vector<std::string> found;
    for (const auto& entry : entries)
        found.push_back(entry.name);
    return found;
}

TEST(DirectoryListing, ListsEntriesOfEveryKind) {
    tests::TemporaryDirectory directory;
    EXPECT_EQ(names(listDirectory(directory.path()).value()), std::vector<std::string>{});
    directory.write("file", "x");
    directory.write(".hidden", "x");
    directory.write("..odd", "x");
    ASSERT_FALSE(createDirectory(directory / "directory"));
    directory.write("directory/inner", "x");
    ASSERT_EQ(::symlink("nowhere", (directory / "dangling").c_str()), 0);
    auto found = names(listDirectory(directory.path()).value());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found,
              (std::vector<std::string>{"..odd", ".hidden", "dangling", "directory", "file"}));
}

// Terminals live in a file system of the kernel that keeps no creation times.
TEST(DirectoryListing, TellsTheCreationOrWhereNoneIsKeptTheModification) {
    tests::TemporaryDirectory directory;
    const timespec past[] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, directory.write("file", "x").c_str(), past, 0), 0);
    for (const std::string& path : {directory.path(), std::string("/dev/pts")}) {
        for (const auto& entry : listDirectory(path).value_or(std::vector<DirectoryEntry>{})) {
            struct statx status {};
            constexpr auto kMask = STATX_BTIME | STATX_MTIME;
            ASSERT_EQ(::statx(AT_FDCWD, (path + "/" + entry.name).c_str(), 0, kMask, &status), 0);
            bool kept = status.stx_mask & STATX_BTIME;
            auto expected = kept ? status.stx_btime : status.stx_mtime;
            EXPECT_EQ(entry.creationTime.time_since_epoch() / std::chrono::seconds{1},
                      expected.tv_sec);
        }
    }
}

TEST(DirectoryListing, IsNoneForAnythingButADirectory) {
    tests::TemporaryDirectory directory;
    Error error;
    EXPECT_FALSE(listDirectory(directory / "missing", &error));
    EXPECT_EQ(error.code, ENOENT);
    EXPECT_FALSE(listDirectory(directory.write("file", "x"), &error));
    EXPECT_EQ(error.code, ENOTDIR);
}

TEST(DirectoryListing, SortsByTimeThenByTheBytesOfTheName) {
    auto at = [](std::int64_t microseconds) {
        return Instant{std::chrono::microseconds{microseconds}};
    };
    std::vector<DirectoryEntry> entries = {
        {"b", at(5)}, {"\xC3\xA4", at(5)}, {"B", at(5)}, {"z", at(-1)}, {"a", at(6)}, {"", at(5)},
    };
    sortByCreationTime(entries);
    EXPECT_EQ(names(entries), (std::vector<std::string>{"z", "", "B", "b", "\xC3\xA4", "a"}));
}

}  // namespace
}  // namespace corvane::platform
