#include "corvane/platform/FileReplacement.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/Files.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <set>
#include <thread>

namespace {

/// Notes what is synced while it is in force, and how the watched file read at that moment.
struct SyncWatch {
    int note(bool isDirectory) {
        seen += isDirectory ? "directory " : "file ";
        seen += corvane::platform::readTextFile(path).value_or("none") + ";";
        errno = isDirectory ? directoryFailure : fileFailure;
        return errno == 0 ? 0 : -1;
    }

    static inline SyncWatch* inForce = nullptr;
    std::string path, seen;
    int fileFailure = 0, directoryFailure = 0;
};

}  // namespace

// Stands in for the C library's in this program.
extern "C" int fsync(int file) {
    struct stat status {};
    if (!SyncWatch::inForce || ::fstat(file, &status) != 0)
        return static_cast<int>(::syscall(SYS_fsync, file));
    return SyncWatch::inForce->note(S_ISDIR(status.st_mode));
}

namespace corvane::platform {
namespace {

using tests::runInChild;
using tests::TemporaryDirectory;
using Content = std::map<std::string, std::string>;

std::span<const std::byte> bytes(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
}

mode_t permissions(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

struct Way {
    const char* name;
    decltype(&replaceFile) replace;
};

// Both ways of writing keep the same promises.
struct FileReplacement : testing::TestWithParam<Way> {
    int codeOf(const std::string& path, std::string_view content = "new",
               const std::optional<std::string>& staging = std::nullopt) const {
        auto error = GetParam().replace(path, bytes(content), Durability::Rename, staging);
        return error ? error->code : 0;
    }
};

INSTANTIATE_TEST_SUITE_P(Ways, FileReplacement,
                         testing::Values(Way{"Nameless", &replaceFile},
                                         Way{"HiddenName", &replaceFileThroughHiddenName}),
                         [](const auto& suite) { return suite.param.name; });

TEST_P(FileReplacement, WritesTheWholeContentAndNothingElse) {
    // One bit each for durability, a file that is there already, and a staging directory.
    for (unsigned way = 0; way < 8; ++way) {
        const auto durability = way & 1 ? Durability::Synced : Durability::Rename;
        for (std::size_t size : {0u, 5u, 3000000u}) {
            TemporaryDirectory directory, staging;
            const std::string content(size, 'n');
            if (way & 2) directory.write("file", "the old content");
            auto elsewhere = way & 4 ? std::optional(staging.path()) : std::nullopt;
            EXPECT_FALSE(
                GetParam().replace(directory / "file", bytes(content), durability, elsewhere));
            EXPECT_EQ(directory.content(), (Content{{"file", content}}));
            EXPECT_TRUE(staging.content().empty());
        }
    }
}

TEST(AbandonedFiles, GoWhenTheyAreOldAndNobodysAnyMore) {
    TemporaryDirectory directory;
    const pid_t child = tests::startChild([] { return 0; });
    tests::waitForChild(child);
    const std::string gone = ".corvane-" + std::to_string(child), abandoned = gone + "-0";
    for (const auto& name : {abandoned, gone, gone + "-0x", "x" + abandoned,
                             ".corvane-" + std::to_string(::getpid()) + "-0"})
        directory.write(name, "");
    auto left = directory.content();
    removeAbandonedFiles(directory.path());
    EXPECT_EQ(directory.content(), left) << "too young";
    const FixedClock later(currentClock().now() + std::chrono::minutes(11));
    const ScopedClock scope(later);
    removeAbandonedFiles(directory.path());
    left.erase(abandoned);
    EXPECT_EQ(directory.content(), left);
}

TEST_P(FileReplacement, ReportsAFailureAndLeavesEverythingAsItWas) {
    TemporaryDirectory directory;
    directory.write("file", "old");
    ASSERT_FALSE(createDirectory(directory / "directory"));
    ASSERT_EQ(::mkfifo((directory / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("loop", (directory / "loop").c_str()), 0);
    ASSERT_EQ(::symlink("pipe", (directory / "link").c_str()), 0);
    const auto before = directory.content();
    const std::string missing = directory / "missing";
    // clang-format off
    using Staging = std::optional<std::string>;
    const std::tuple<std::string, Staging, std::set<int>> cases[] = {
        {missing + "/file", {}, {ENOENT}},
        {missing + "/file", directory.path(), {ENOENT}},
        {directory / "file/below", {}, {ENOTDIR}},
        {directory / "file/below", directory.path(), {ENOTDIR}},
        {directory / "file", missing, {ENOENT}},
        {directory / "file", directory / "file", {ENOTDIR}},
        {directory / "directory", {}, {EISDIR}},
        {directory / "new/", directory.path(), {ENOENT, ENOTDIR}},
        {directory / "pipe", {}, {EINVAL}}, {directory / "link", {}, {EINVAL}},
        {directory / "loop", {}, {ELOOP}},
        {directory / std::string(256, 'n'), {}, {ENAMETOOLONG}},
        {directory / std::string("file\0x", 6), {}, {ENOENT}},
        {"", directory.path(), {ENOENT}},
        {"/proc/corvane-new-file", {}, {ENOENT, EACCES, EPERM, EROFS}},
        {directory / "file", "/proc", {EXDEV, ENOENT, EACCES, EPERM, EROFS}},
    };
    // clang-format on
    for (const auto& [path, staging, codes] : cases) {
        const int code = codeOf(path, "new", staging);
        EXPECT_TRUE(codes.contains(code)) << path << ", " << staging.value_or("-") << ": " << code;
        EXPECT_EQ(directory.content(), before) << path;
    }
}

TEST_P(FileReplacement, LeavesEverythingAsItWasOnAFullDiskOrInAReadOnlyDirectory) {
    TemporaryDirectory directory;
    directory.write("file", "old");
    const auto before = directory.content();
    for (const char* name : {"file", "new"}) {
        EXPECT_EQ(EFBIG, runInChild([&] {
                      // A limit stops the write halfway, as a full disk does.
                      ::signal(SIGXFSZ, SIG_IGN);
                      rlimit limit{65536, 65536};
                      ::setrlimit(RLIMIT_FSIZE, &limit);
                      return codeOf(directory / name, std::string(100000, 'n'));
                  }));
        ASSERT_EQ(::chmod(directory.path().c_str(), 0555), 0);
        EXPECT_EQ(EACCES, runInChild([&] {
                      // To the superuser no directory is read-only.
                      if (::geteuid() == 0 && ::seteuid(65534) != 0) return 1;
                      return codeOf(directory / name);
                  }));
        ::chmod(directory.path().c_str(), 0755);
        EXPECT_EQ(directory.content(), before);
    }
}

TEST_P(FileReplacement, SyncsTheFileBeforeAndTheDirectoryAfterTheExchange) {
    const struct {
        Durability durability;
        int fileFailure, directoryFailure, code;
        const char *synced, *result;
    } cases[] = {
        {Durability::Rename, EIO, EIO, 0, "", "new"},
        {Durability::Synced, 0, 0, 0, "file old;directory new;", "new"},
        {Durability::Synced, EIO, 0, EIO, "file old;", "old"},
        {Durability::Synced, 0, EIO, EIO, "file old;directory new;", "new"},
        {Durability::Synced, 0, EINVAL, 0, "file old;directory new;", "new"},
    };
    for (const auto& c : cases) {
        TemporaryDirectory directory;
        SyncWatch watch{directory.write("file", "old"), "", c.fileFailure, c.directoryFailure};
        SyncWatch::inForce = &watch;
        auto error = GetParam().replace(watch.path, bytes("new"), c.durability, std::nullopt);
        SyncWatch::inForce = nullptr;
        EXPECT_EQ(error ? error->code : 0, c.code);
        EXPECT_EQ(watch.seen, c.synced);
        EXPECT_EQ(directory.content(), (Content{{"file", c.result}}));
    }
}

TEST_P(FileReplacement, KeepsPermissionsAndLinksAndGivesNewFilesTheUmask) {
    TemporaryDirectory directory;
    mode_t previous = ::umask(027);
    EXPECT_EQ(codeOf(directory / "new"), 0);
    EXPECT_EQ(permissions(directory / "new"), 0640u);
    ASSERT_EQ(::symlink("file", (directory / "link").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (directory / "dangling").c_str()), 0);
    for (mode_t mode : {0600u, 0666u, 0444u, 0755u}) {
        ASSERT_EQ(::chmod(directory.write("file", "old").c_str(), mode), 0);
        EXPECT_EQ(codeOf(directory / "link"), 0);
        EXPECT_EQ(permissions(directory / "file"), mode);
        ASSERT_FALSE(removeFile(directory / "file"));
    }
    EXPECT_EQ(codeOf(directory / "dangling"), 0);
    EXPECT_EQ(directory.content(), (Content{{"dangling", "new"}, {"link", "@"}, {"new", "new"}}));
    ::umask(previous);
}

TEST_P(FileReplacement, NeverShowsAReaderHalfAFile) {
    TemporaryDirectory directory;
    const std::string path = directory / "file";
    const std::string contents[] = {std::string(10, 's'), std::string(200000, 'l')};
    ASSERT_EQ(codeOf(path, contents[0]), 0);
    std::atomic<bool> done = false;
    std::atomic<int> torn = 0;
    std::thread reader([&] {
        while (!done) {
            auto text = readTextFile(path);
            if (!text || (*text != contents[0] && *text != contents[1])) ++torn;
        }
    });
    int failures = 0;
    for (int i = 1; i <= 500; ++i)
        failures += codeOf(path, contents[i % 2]) != 0;
    done = true;
    reader.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(torn, 0);
}

}  // namespace
}  // namespace corvane::platform
