#include "corvane/platform/Files.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

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
    directory.write("kept", "x");
    directory.write("file", "x");
    ASSERT_FALSE(createDirectories(directory / "kept directory/inner"));
    ASSERT_FALSE(createDirectories(directory / "tree/one/two"));
    directory.write("tree/one/two/file", "x");
    ASSERT_EQ(::mkfifo((directory / "pipe").c_str(), 0600), 0);
    for (std::string link : {"link", "tree/link"}) {
        ASSERT_EQ(::symlink((directory / "kept directory").c_str(), (directory / link).c_str()), 0);
    }
    ASSERT_EQ(::symlink("nowhere", (directory / "dangling").c_str()), 0);
    for (std::string name : {"file", "tree", "pipe", "link", "dangling"}) {
        EXPECT_EQ(codeOf(removeFile(directory / name)), 0) << name;
    }
    EXPECT_EQ(codeOf(removeFile(directory / "file")), ENOENT);
    EXPECT_EQ(codeOf(removeFile(directory / std::string("kept\0x", 6))), ENOENT);
    EXPECT_EQ(directory.content(),
              (Content{{"kept", "x"}, {"kept directory", "/"}, {"kept directory/inner", "/"}}));
}

TEST(Files, CreatesDirectoriesWithOrWithoutTheirParents) {
    tests::TemporaryDirectory directory;
    directory.write("file", "x");
    using Create = decltype(&createDirectory);
    const struct {
        Create create;
        const char* name;
        int code;
    } cases[] = {
        {&createDirectory, "one", 0},
        {&createDirectory, "one", 0},
        {&createDirectory, "two/inner", ENOENT},
        {&createDirectory, "file", EEXIST},
        {&createDirectories, "two/inner//x/", 0},
        {&createDirectories, "two", 0},
        {&createDirectories, "file", EEXIST},
        {&createDirectories, "file/x/y", ENOTDIR},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(codeOf(c.create(directory / c.name, 0700)), c.code) << c.name;
    }
    EXPECT_EQ(
        directory.content(),
        (Content{
            {"file", "x"}, {"one", "/"}, {"two", "/"}, {"two/inner", "/"}, {"two/inner/x", "/"}}));
    struct stat status {};
    ASSERT_EQ(::stat((directory / "two").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST(Files, ReadsTextAndBytes) {
    tests::TemporaryDirectory directory;
    std::string content("a\0b", 3);
    std::string path = directory.write("file", content);
    EXPECT_EQ(readTextFile(path), content);
    EXPECT_EQ(readFile(path), (Bytes{std::byte{'a'}, std::byte{0}, std::byte{'b'}}));
    EXPECT_EQ(readTextFile(directory.write("empty", "")), "");
    EXPECT_EQ(readTextFile(directory / "missing"), std::nullopt);
}

}  // namespace
}  // namespace corvane::platform
