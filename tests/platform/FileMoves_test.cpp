#include "corvane/platform/FileMoves.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <span>

namespace corvane::platform {
namespace {

using tests::TemporaryDirectory;
using Content = std::map<std::string, std::string>;

int codeOf(const std::optional<Error>& error) {
    return error ? error->code : 0;
}

TEST(FileMoves, FollowsLinksToTheEntryThatTheyLeadTo) {
    TemporaryDirectory directory;
    std::filesystem::create_directory(directory / "real");
    directory.write("real/file", "");
    std::filesystem::create_symlink("real", directory / "link");
    std::filesystem::create_symlink("link/file", directory / "linked");
    std::filesystem::create_symlink("nowhere", directory / "dangling");
    const std::string root = std::filesystem::canonical(directory.path());
    const struct {
        const char *path, *resolved;
        int code = 0;
    } cases[] = {
        {"real/file", "/real/file"},   {"linked", "/real/file"},
        {"link/new", "/real/new"},     {"link/../link/file", "/real/file"},
        {"dangling", "/dangling"},     {"missing/file", nullptr, ENOENT},
        {"missing/", nullptr, ENOENT}, {"real/file/x", nullptr, ENOTDIR},
    };
    for (const auto& c : cases) {
        Error error;
        auto resolved = resolvedPath(directory / c.path, &error);
        EXPECT_EQ(resolved, c.resolved ? std::optional(root + c.resolved) : std::nullopt) << c.path;
        EXPECT_EQ(error.code, c.code) << c.path;
    }
}

TEST(FileMoves, MovesAFileOverAnother) {
    TemporaryDirectory directory;
    directory.write("old", "old");
    directory.write("new", "new");
    EXPECT_EQ(codeOf(moveFile(directory / "new", directory / "old")), 0);
    EXPECT_EQ(codeOf(moveFile(directory / "new", directory / "old")), ENOENT);
    EXPECT_EQ(directory.content(), (Content{{"old", "new"}}));
}

TEST(FileMoves, WritesAFileWithThePermissionsOfAnother) {
    TemporaryDirectory directory;
    directory.write("model", "x");
    const mode_t previous = ::umask(027);
    auto written = [&](const char* model, std::string_view content) {
        return codeOf(
            writeFileLike(directory / model, directory / "new", std::as_bytes(std::span(content))));
    };
    auto permissions = [&] {
        struct stat status {};
        ::stat((directory / "new").c_str(), &status);
        return status.st_mode & 0777;
    };
    for (mode_t mode : {0600u, 0664u, 0440u}) {
        ASSERT_EQ(::chmod((directory / "model").c_str(), mode), 0);
        EXPECT_EQ(written("model", "long content"), 0);
        EXPECT_EQ(permissions(), mode);
        ::chmod((directory / "new").c_str(), 0600);
        EXPECT_EQ(written("model", "short"), 0);
        EXPECT_EQ(directory.content()["new"], "short");
        std::filesystem::remove(directory / "new");
    }
    EXPECT_EQ(written("missing", ""), 0);
    EXPECT_EQ(permissions(), 0640u);
    ::umask(previous);
}

TEST(FileMoves, DoesNotWriteThroughALink) {
    TemporaryDirectory directory;
    directory.write("kept", "x");
    std::filesystem::create_symlink("kept", directory / "link");
    EXPECT_EQ(codeOf(writeFileLike(directory / "kept", directory / "link", {})), ELOOP);
    EXPECT_EQ(directory.content()["kept"], "x");
}

TEST(FileMoves, SyncsOnlyDirectories) {
    TemporaryDirectory directory;
    EXPECT_EQ(codeOf(syncDirectory(directory.path())), 0);
    EXPECT_EQ(codeOf(syncDirectory(directory.write("file", ""))), ENOTDIR);
}

}  // namespace
}  // namespace corvane::platform
