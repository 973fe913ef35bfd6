#include "corvane/platform/MappedFile.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace corvane::platform {
namespace {

std::string text(const MappedFile& view) {
    return {reinterpret_cast<const char*>(view.bytes().data()), view.bytes().size()};
}

std::string patterned(std::size_t size) {
    std::string content(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        content[i] = static_cast<char>(i * 7 + i / 251);
    return content;
}

// The sizes lie on both sides of a page and of the bound between reading and mapping.
TEST(MappedFile, ShowsTheWholeContent) {
    tests::TemporaryDirectory directory;
    for (std::size_t size : {0u, 1u, 4095u, 4096u, 16383u, 16384u, 16385u, 65536u, 1000003u}) {
        std::string content = patterned(size);
        auto view = MappedFile::open(directory.write("file", content));
        ASSERT_TRUE(view) << size;
        EXPECT_TRUE(text(*view) == content) << size;
    }
}

TEST(MappedFile, KeepsItsBytesWhenMovedAndWhenTheFileGoes) {
    tests::TemporaryDirectory directory;
    for (std::size_t size : {100u, 100000u}) {
        std::string content = patterned(size);
        auto view = MappedFile::open(directory.write("file", content));
        ASSERT_TRUE(view);
        const std::byte* start = view->bytes().data();
        ASSERT_EQ(::unlink((directory / "file").c_str()), 0);
        MappedFile moved = std::move(*view);
        EXPECT_EQ(moved.bytes().data(), start);
        EXPECT_TRUE(text(moved) == content);
        EXPECT_TRUE(view->bytes().empty());
    }
}

TEST(MappedFile, ReadsFilesThatAnnounceNoSize) {
    auto view = MappedFile::open("/proc/self/maps");
    ASSERT_TRUE(view);
    EXPECT_NE(text(*view).find("[stack]"), std::string::npos);
}

TEST(MappedFile, OpensNothingButRegularFiles) {
    tests::TemporaryDirectory directory;
    std::string file = directory.write("file", "content");
    ASSERT_EQ(::mkfifo((directory / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("nowhere", (directory / "dangling").c_str()), 0);
    ASSERT_EQ(::symlink("loop", (directory / "loop").c_str()), 0);
    ASSERT_EQ(::symlink("file", (directory / "link").c_str()), 0);
    const struct {
        std::string path;
        int code;
    } cases[] = {
        {directory.path(), EISDIR},
        {directory / "pipe", EINVAL},
        {directory / "dangling", ENOENT},
        {directory / "loop", ELOOP},
        {directory / "missing", ENOENT},
        {file + "/below", ENOTDIR},
        {"/dev/null", EINVAL},
        {"", ENOENT},
        {file + std::string(1, '\0') + "x", ENOENT},
    };
    for (const auto& c : cases) {
        Error error;
        EXPECT_FALSE(MappedFile::open(c.path, &error)) << c.path;
        EXPECT_EQ(error.code, c.code) << c.path;
        EXPECT_NE(error.message.find(c.path), std::string::npos) << error.message;
    }
    EXPECT_TRUE(MappedFile::open(directory / "link"));
}

}  // namespace
}  // namespace corvane::platform
