#include "corvane/platform/Files.h"

#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/DirectoryLock.h"
#include "corvane/platform/MappedFile.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace corvane::platform {
namespace {

using Content = std::map<std::string, std::string>;

int codeOf(const std::optional<Error>& error) {
    return error ? error->code : 0;
}

TEST(Files, RemovesEntriesOfEveryKindButNotWhatLinksLeadTo) {
    tests::TemporaryDirectory directory;
    const std::string kept = directory.write("kept", "x");
    directory.write("file", "x");
    ASSERT_FALSE(createDirectories(directory / "tree/one/two"));
    directory.write("tree/one/two/file", "x");
    ASSERT_EQ(::mkfifo((directory / "pipe").c_str(), 0600), 0);
    ASSERT_FALSE(createDirectories(directory / "kept directory/inner"));
    for (std::string link : {"link", "tree/link"})
        ASSERT_EQ(::symlink((directory / "kept directory").c_str(), (directory / link).c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (directory / "dangling").c_str()), 0);
    for (std::string name : {"file", "tree", "pipe", "link", "dangling"})
        EXPECT_EQ(codeOf(removeFile(directory / name)), 0) << name;
    EXPECT_EQ(codeOf(removeFile(directory / "file")), ENOENT);
    EXPECT_EQ(codeOf(removeFile(kept + std::string("\0x", 2))), ENOENT);
    EXPECT_EQ(directory.content(),
              (Content{{"kept", "x"}, {"kept directory", "/"}, {"kept directory/inner", "/"}}));
}

TEST(Files, CreatesDirectoriesWithOrWithoutTheirParents) {
    tests::TemporaryDirectory directory;
    directory.write("file", "x");
    // clang-format off
    const std::tuple<decltype(&createDirectory), const char*, int> cases[] = {
        {&createDirectory, "one", 0}, {&createDirectory, "one", 0},
        {&createDirectory, "two/inner", ENOENT}, {&createDirectory, "file", EEXIST},
        {&createDirectories, "two/inner//x/", 0},
        {&createDirectories, "two", 0}, {&createDirectories, "file", EEXIST},
        {&createDirectories, "file/x/y", ENOTDIR},
    };
    // clang-format on
    for (auto [create, name, code] : cases)
        EXPECT_EQ(codeOf(create(directory / name, 0700)), code) << name;
    // clang-format off
    EXPECT_EQ(directory.content(), (Content{
        {"file", "x"}, {"one", "/"}, {"two", "/"}, {"two/inner", "/"}, {"two/inner/x", "/"}}));
    // clang-format on
    struct stat status {};
    ASSERT_EQ(::stat((directory / "two").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

// The sizes lie on both sides of a page and of the bound between reading and mapping.
TEST(Files, AViewShowsTheWholeContentAlsoWhenMovedAndWhenTheFileGoes) {
    tests::TemporaryDirectory directory;
    for (std::size_t size : {0u, 1u, 4095u, 4096u, 16383u, 16384u, 16385u, 65536u, 1000003u}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * 7 + i / 251);
        const std::string path = directory.write("file", content);
        EXPECT_TRUE(readTextFile(path) == content) << size;
        auto view = MappedFile::open(path);
        ASSERT_TRUE(view && ::unlink(path.c_str()) == 0) << size;
        MappedFile moved = std::move(*view);
        EXPECT_TRUE(std::ranges::equal(moved.bytes(), std::as_bytes(std::span(content)))) << size;
        EXPECT_TRUE(view->bytes().empty()) << size;  // NOLINT: what was moved from shows nothing
    }
    EXPECT_NE(readTextFile("/proc/self/maps").value_or("").find("[stack]"), std::string::npos)
        << "a file that announces no size";
}

TEST(Files, OpensNothingButRegularFiles) {
    tests::TemporaryDirectory directory;
    std::string file = directory.write("file", "content");
    ASSERT_EQ(::mkfifo((directory / "pipe").c_str(), 0600), 0);
    for (auto [target, link] :
         {std::pair("nowhere", "dangling"), {"loop", "loop"}, {"file", "link"}})
        ASSERT_EQ(::symlink(target, (directory / link).c_str()), 0);
    // clang-format off
    const std::pair<std::string, int> cases[] = {
        {directory.path(), EISDIR}, {directory / "pipe", EINVAL}, {directory / "dangling", ENOENT},
        {directory / "loop", ELOOP}, {file + "/below", ENOTDIR}, {"/dev/null", EINVAL},
        {"", ENOENT}, {file + std::string("\0x", 2), ENOENT},
    };
    // clang-format on
    for (const auto& [path, code] : cases) {
        Error error;
        EXPECT_FALSE(readFile(path, &error)) << path;
        EXPECT_EQ(error.code, code) << path;
        EXPECT_NE(error.message.find(path), std::string::npos) << error.message;
    }
    EXPECT_EQ(readTextFile(directory / "link"), "content");
}

std::vector<std::string> names(const std::vector<DirectoryEntry>& entries) {
    std::vector<std::string> found;
    for (const auto& entry : entries)
        found.push_back(entry.name);
    return found;
}

TEST(Files, ListsEntriesOfEveryKind) {
    tests::TemporaryDirectory directory;
    EXPECT_EQ(names(listDirectory(directory.path()).value()), std::vector<std::string>{});
    for (const char* name : {"file", ".hidden", "..odd"})
        directory.write(name, "x");
    std::filesystem::create_directories(directory / "directory/inner");
    std::filesystem::create_symlink("nowhere", directory / "dangling");
    EXPECT_THAT(names(listDirectory(directory.path()).value()),
                testing::UnorderedElementsAre("..odd", ".hidden", "dangling", "directory", "file"));
    Error error;
    EXPECT_FALSE(listDirectory(directory / "missing", &error));
    EXPECT_EQ(error.code, ENOENT);
    EXPECT_FALSE(listDirectory(directory / "file", &error));
    EXPECT_EQ(error.code, ENOTDIR);
    EXPECT_FALSE(DirectoryLock::acquire(directory / "file", &error));
    EXPECT_EQ(error.code, ENOTDIR);
}

TEST(Files, ListingsTellTheCreation) {
    tests::TemporaryDirectory directory;
    const timespec past[] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, directory.write("file", "x").c_str(), past, 0), 0);
    struct statx status {};
    ASSERT_EQ(::statx(AT_FDCWD, (directory / "file").c_str(), 0, STATX_BTIME, &status), 0);
    auto expected = status.stx_mask & STATX_BTIME ? status.stx_btime.tv_sec : 1000;
    auto found = listDirectory(directory.path()).value().at(0).creationTime.time_since_epoch();
    EXPECT_EQ(found / std::chrono::seconds{1}, expected);
}

TEST(Files, ListingsSortByTimeThenByTheBytesOfTheName) {
    auto at = [](int number) { return Instant{std::chrono::microseconds{number}}; };
    std::vector<DirectoryEntry> entries = {{"b", at(5)},  {"\xC3\xA4", at(5)}, {"B", at(5)},
                                           {"z", at(-1)}, {"a", at(6)},        {"", at(5)}};
    sortByCreationTime(entries);
    EXPECT_EQ(names(entries), (std::vector<std::string>{"z", "", "B", "b", "\xC3\xA4", "a"}));
}

// Reading a number and writing its successor loses counts as soon as two processes interleave.
TEST(Files, ALockLetsOneProcessInAfterTheOther) {
    tests::TemporaryDirectory directory;
    directory.write("counter", "0");
    pid_t children[4];
    for (pid_t& child : children) {
        child = tests::startChild([&] {
            for (int i = 0; i < 200; ++i) {
                auto lock = DirectoryLock::acquire(directory.path());
                if (!lock) return 1;
                int value = std::stoi(readTextFile(directory / "counter").value_or("0"));
                ::sched_yield();
                directory.write("counter", std::to_string(value + 1));
            }
            return 0;
        });
    }
    for (pid_t child : children)
        EXPECT_EQ(tests::waitForChild(child), 0);
    EXPECT_EQ(readTextFile(directory / "counter"), "800");
}

}  // namespace
}  // namespace corvane::platform
