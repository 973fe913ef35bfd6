#include "corvane/platform/DirectoryLock.h"

#include "corvane/platform/Files.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/file.h>

#include <fstream>

namespace corvane::platform {
namespace {

bool isFree(const std::string& path) {
    FileDescriptor directory = openFile(path, O_RDONLY | O_DIRECTORY);
    return ::flock(directory.get(), LOCK_EX | LOCK_NB) == 0;
}

TEST(DirectoryLock, LastsAsLongAsItsObject) {
    tests::TemporaryDirectory directory;
    {
        auto lock = DirectoryLock::acquire(directory.path());
        ASSERT_TRUE(lock);
        DirectoryLock moved = std::move(*lock);
        lock.reset();
        EXPECT_FALSE(isFree(directory.path()));
    }
    EXPECT_TRUE(isFree(directory.path()));
}

TEST(DirectoryLock, IsNoneForAnythingButADirectory) {
    tests::TemporaryDirectory directory;
    Error error;
    EXPECT_FALSE(DirectoryLock::acquire(directory / "missing", &error));
    EXPECT_EQ(error.code, ENOENT);
    EXPECT_FALSE(DirectoryLock::acquire(directory.write("file", "x"), &error));
    EXPECT_EQ(error.code, ENOTDIR);
}

// Reading a number and writing its successor loses counts as soon as two processes interleave.
TEST(DirectoryLock, LetsOneProcessInAfterTheOther) {
    constexpr int kProcesses = 4;
    constexpr int kRounds = 200;
    tests::TemporaryDirectory directory;
    std::string counter = directory.write("counter", "0");
    auto count = [&] {
        for (int i = 0; i < kRounds; ++i) {
            auto lock = DirectoryLock::acquire(directory.path());
            if (!lock) return 1;
            int value = std::stoi(readTextFile(counter).value_or("0"));
            ::sched_yield();
            std::ofstream(counter) << value + 1;
        }
        return 0;
    };
    pid_t children[kProcesses];
    for (pid_t& child : children)
        child = tests::startChild(count);
    for (pid_t child : children)
        EXPECT_EQ(tests::waitForChild(child), 0);
    EXPECT_EQ(readTextFile(counter), std::to_string(kProcesses * kRounds));
}

}  // namespace
}  // namespace corvane::platform
