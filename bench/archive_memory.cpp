// How much memory it takes to read a repository: the peak of a process of its own that does only
// that, less the peak of one that does nothing. Prints one line a size.
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include "bench/ExampleRepository.h"

#include <fmt/format.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>

namespace {

/// Runs this program again with these arguments and returns its peak in KiB.
long peakOf(const char* program, const std::string& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(program, program, "read", path.c_str(), nullptr);
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? usage.ru_maxrss : -1;
}

int readAndExit(const char* path) {
    if (!*path) return 0;
    auto root =
        corvane::platform::KeyedUnarchiver::unarchiveFile(path, corvane::sharedArchiveClasses());
    // The peak is what counts; taking the records apart is not part of it.
    ::_exit(root.isNull() ? 1 : 0);
}

}  // namespace

int main(int count, char** arguments) {
    if (count == 3 && std::strcmp(arguments[1], "read") == 0) return readAndExit(arguments[2]);
    const char* self = "/proc/self/exe";
    const long empty = peakOf(self, "");
    for (int tasks : {1000, 10000, 100000}) {
        const std::string path = corvane::bench::exampleRepositoryFile(tasks);
        const double file = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
        const double peak = static_cast<double>(peakOf(self, path) - empty) * 1024 / 1e6;
        fmt::print("read {:>6} tasks: file {:7.2f} MB, peak {:7.2f} MB, {:.2f} times the file\n",
                   tasks, file, peak, peak / file);
    }
}
