#include "corvane/platform/FileReplacement.h"

#include "corvane/platform/Files.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <set>
#include <thread>

namespace {

/// Notes what is synced while it lives, and how the watched file read at that moment.
struct SyncWatch {
    explicit SyncWatch(std::string watched) : path(std::move(watched)) { inForce = this; }
    ~SyncWatch() { inForce = nullptr; }

    int note(bool isDirectory) {
        seen += isDirectory ? "directory " : "file ";
        seen += corvane::platform::readTextFile(path).value_or("none") + ";";
        errno = isDirectory ? directoryFailure : fileFailure;
        return errno == 0 ? 0 : -1;
    }

    static inline SyncWatch* inForce = nullptr;
    std::string path;
    std::string seen;
    int fileFailure = 0;
    int directoryFailure = 0;
};

}  // namespace

// Stands in for the C library's in this program.
extern "C" int fsync(int file) {
    struct stat status {};
    if (!SyncWatch::inForce || ::fstat(file, &status) != 0) {
        return static_cast<int>(::syscall(SYS_fsync, file));
    }
    return SyncWatch::inForce->note(S_ISDIR(status.st_mode));
}

namespace corvane::platform {
namespace {

using tests::runInChild;
using tests::TemporaryDirectory;

std::span<const std::byte> bytes(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
}

mode_t permissions(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

bool hasNamelessFiles(const TemporaryDirectory& directory) {
    int file = ::open(directory.path().c_str(), O_TMPFILE | O_WRONLY, 0600);
    return file >= 0 && ::close(file) == 0;
}

struct Way {
    const char* name;
    decltype(&replaceFile) replace;
};

// Both ways of writing keep the same promises.
class FileReplacement : public testing::TestWithParam<Way> {
  protected:
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
    for (auto durability : {Durability::Rename, Durability::Synced}) {
        for (bool exists : {false, true}) {
            for (bool staged : {false, true}) {
                for (std::size_t size : {0u, 5u, 3000000u}) {
                    TemporaryDirectory directory;
                    ASSERT_FALSE(createDirectory(directory / "staging"));
                    if (exists) directory.write("file", "the old content");
                    auto staging = staged ? std::optional(directory / "staging") : std::nullopt;
                    std::string content(size, 'n');
                    EXPECT_FALSE(GetParam().replace(directory / "file", bytes(content), durability,
                                                    staging));
                    EXPECT_EQ(directory.content(), (std::map<std::string, std::string>{
                                                       {"file", content}, {"staging", "/"}}));
                }
            }
        }
    }
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
    const struct {
        std::string path;
        std::optional<std::string> staging;
        std::set<int> codes;
    } cases[] = {
        {missing + "/file", std::nullopt, {ENOENT}},
        {missing + "/file", directory.path(), {ENOENT}},
        {directory / "file/below", std::nullopt, {ENOTDIR}},
        {directory / "file/below", directory.path(), {ENOTDIR}},
        {directory / "file", missing, {ENOENT}},
        {directory / "file", directory / "file", {ENOTDIR}},
        {directory / "directory", std::nullopt, {EISDIR}},
        {directory / "directory/", std::nullopt, {EISDIR}},
        {directory / "new/", directory.path(), {ENOENT, ENOTDIR}},
        {directory / "pipe", std::nullopt, {EINVAL}},
        {directory / "link", std::nullopt, {EINVAL}},
        {directory / "loop", std::nullopt, {ELOOP}},
        {directory / std::string(256, 'n'), std::nullopt, {ENAMETOOLONG}},
        {directory / std::string("file\0x", 6), std::nullopt, {ENOENT}},
        {"", std::nullopt, {ENOENT}},
        {"", directory.path(), {ENOENT}},
        {"/proc/corvane-new-file", std::nullopt, {ENOENT, EACCES, EPERM, EROFS}},
        {directory / "file", "/proc", {EXDEV, ENOENT, EACCES, EPERM, EROFS}},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(c.codes.contains(codeOf(c.path, "new", c.staging)))
            << c.path << " through " << c.staging.value_or("-") << ": "
            << codeOf(c.path, "new", c.staging);
        EXPECT_EQ(directory.content(), before) << c.path;
    }
}

TEST_P(FileReplacement, LeavesEverythingAsItWasWhenTheDiskIsFull) {
    TemporaryDirectory directory;
    directory.write("file", "old");
    auto before = directory.content();
    std::string large(100000, 'n');
    for (const char* name : {"file", "new"}) {
        EXPECT_EQ(EFBIG, runInChild([&] {
                      // A limit to the size of files stops the write halfway, as a full disk does.
                      ::signal(SIGXFSZ, SIG_IGN);
                      rlimit limit{65536, 65536};
                      ::setrlimit(RLIMIT_FSIZE, &limit);
                      return codeOf(directory / name, large);
                  }));
        EXPECT_EQ(directory.content(), before);
    }
}

TEST_P(FileReplacement, LeavesEverythingAsItWasInAReadOnlyDirectory) {
    TemporaryDirectory directory;
    directory.write("file", "old");
    auto before = directory.content();
    ASSERT_EQ(::chmod(directory.path().c_str(), 0555), 0);
    for (const char* name : {"file", "new"}) {
        EXPECT_EQ(EACCES, runInChild([&] {
                      // To the superuser no directory is read-only.
                      if (::geteuid() == 0 && ::seteuid(65534) != 0) return 1;
                      return codeOf(directory / name);
                  }));
        EXPECT_EQ(directory.content(), before);
    }
    ::chmod(directory.path().c_str(), 0755);
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
        SyncWatch watch(directory.write("file", "old"));
        watch.fileFailure = c.fileFailure;
        watch.directoryFailure = c.directoryFailure;
        auto error = GetParam().replace(watch.path, bytes("new"), c.durability, std::nullopt);
        EXPECT_EQ(error ? error->code : 0, c.code);
        EXPECT_EQ(watch.seen, c.synced);
        EXPECT_EQ(directory.content(), (std::map<std::string, std::string>{{"file", c.result}}));
    }
}

TEST_P(FileReplacement, ShowsNoOtherNameWhereTheFileIs) {
    TemporaryDirectory directory, staging;
    int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(watch, directory.path().c_str(), IN_CREATE | IN_MOVE), 0);
    // A nameless file needs no other place as long as its name is free.
    bool direct = GetParam().replace == &replaceFile && hasNamelessFiles(directory);
    EXPECT_EQ(
        codeOf(directory / "file", "first", direct ? std::nullopt : std::optional(staging.path())),
        0);
    EXPECT_EQ(codeOf(directory / "file", "second", staging.path()), 0);
    std::vector<char> events(4096);
    ssize_t size = ::read(watch, events.data(), events.size());
    ::close(watch);
    std::set<std::string> names;
    for (ssize_t at = 0; at < size;) {
        inotify_event event{};
        std::memcpy(&event, events.data() + at, sizeof event);
        names.insert(events.data() + at + sizeof event);
        at += static_cast<ssize_t>(sizeof event + event.len);
    }
    EXPECT_EQ(names, std::set<std::string>{"file"});
}

TEST_P(FileReplacement, GivesNewFilesTheUmaskAndKeepsThePermissionsOfOldOnes) {
    TemporaryDirectory directory;
    mode_t previous = ::umask(027);
    EXPECT_EQ(codeOf(directory / "new"), 0);
    EXPECT_EQ(permissions(directory / "new"), 0640u);
    for (mode_t mode : {0600u, 0666u, 0444u, 0755u}) {
        ASSERT_EQ(::chmod(directory.write("file", "old").c_str(), mode), 0);
        EXPECT_EQ(codeOf(directory / "file"), 0);
        EXPECT_EQ(permissions(directory / "file"), mode);
        ASSERT_FALSE(removeFile(directory / "file"));
    }
    ::umask(previous);
}

TEST_P(FileReplacement, FollowsALinkThatLeadsToAFile) {
    TemporaryDirectory directory;
    ASSERT_FALSE(createDirectory(directory / "real"));
    directory.write("real/file", "old");
    ASSERT_EQ(::symlink("real/file", (directory / "link").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (directory / "dangling").c_str()), 0);
    EXPECT_EQ(codeOf(directory / "link"), 0);
    EXPECT_EQ(codeOf(directory / "dangling"), 0);
    EXPECT_EQ(directory.content(),
              (std::map<std::string, std::string>{
                  {"dangling", "new"}, {"link", "@"}, {"real", "/"}, {"real/file", "new"}}));
}

TEST_P(FileReplacement, NeverShowsAReaderHalfAFile) {
    TemporaryDirectory directory;
    const std::string path = directory / "file";
    const std::string contents[] = {std::string(10, 's'), std::string(200000, 'l')};
    ASSERT_EQ(codeOf(path, contents[0]), 0);
    std::atomic<bool> done = false;
    std::atomic<int> torn = 0;
    auto read = [&] {
        while (!done) {
            auto text = readTextFile(path);
            if (!text || (*text != contents[0] && *text != contents[1])) ++torn;
        }
    };
    std::thread readers[] = {std::thread(read), std::thread(read)};
    int failures = 0;
    for (int i = 1; i <= 500; ++i)
        failures += codeOf(path, contents[i % 2]) != 0;
    done = true;
    for (auto& reader : readers)
        reader.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(torn, 0);
}

TEST(FileReplacementOfAKilledProcess, LeavesNothingBehind) {
    TemporaryDirectory directory;
    if (!hasNamelessFiles(directory)) GTEST_SKIP() << "this file system has no nameless files";
    directory.write("file", "old");
    auto before = directory.content();
    std::string large(100000, 'n');
    // Beyond the limit the write itself ends the process.
    EXPECT_EQ(-SIGXFSZ, runInChild([&] {
        ::signal(SIGXFSZ, SIG_DFL);
        rlimit limit{65536, 65536};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        limit = {0, 0};
        ::setrlimit(RLIMIT_CORE, &limit);
        return replaceFile(directory / "file", bytes(large), Durability::Rename) ? 1 : 0;
    }));
    EXPECT_EQ(directory.content(), before);
}

}  // namespace
}  // namespace corvane::platform
