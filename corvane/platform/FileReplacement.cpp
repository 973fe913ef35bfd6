#include "corvane/platform/FileReplacement.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileSink.h"

#include <sys/stat.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace corvane::platform {

namespace {

// Followed by the number of the process, "-" and a number that counts up.
constexpr std::string_view kHiddenPrefix = ".corvane-";

constexpr std::chrono::minutes kLongestWriting{10};

// The functions below return 0 or the errno value of what failed.

struct Job {
    std::string path;  // where the file goes, links at the end followed
    std::string staging;
    const ContentWriter& content;
    Durability durability;
    std::optional<mode_t> permissions;  // of the file that stands there already

    // Closed to others until the permissions of a replaced file are set.
    mode_t creationMode() const { return permissions ? 0600 : 0666; }
};

Error describe(const std::string& path, int failure) {
    return Error::fromErrno("cannot write '" + path + "'", failure);
}

/// Looks at what stands at the job's path, and follows a link there.
std::optional<Error> examineTarget(Job& job) {
    struct stat status {};
    const char* path = systemPath(job.path);
    if (!*path) return describe(job.path, ENOENT);
    if (::lstat(path, &status) != 0) {
        return errno == ENOENT ? std::nullopt : std::optional(describe(job.path, errno));
    }
    if (S_ISLNK(status.st_mode)) {
        std::unique_ptr<char, decltype(&std::free)> real(::realpath(path, nullptr), &std::free);
        if (!real && errno == ENOENT) return std::nullopt;
        if (!real || ::stat(real.get(), &status) != 0) return describe(job.path, errno);
        job.path = real.get();
    }
    if (S_ISDIR(status.st_mode)) return describe(job.path, EISDIR);
    if (!S_ISREG(status.st_mode)) {
        return Error{"posix", EINVAL, "cannot write '" + job.path + "': not a regular file"};
    }
    job.permissions = status.st_mode & 0777;
    return std::nullopt;
}

/// Network file systems report a full disk only when a descriptor is closed.
int flushByClosing(int file) {
    FileDescriptor twin(::fcntl(file, F_DUPFD_CLOEXEC, 0));
    if (!twin) return errno;
    if (::close(twin.release()) != 0 && errno != EINTR) return errno;
    return 0;
}

int fill(int file, const Job& job) {
    struct stat status {};
    if (::fstat(file, &status) != 0) return errno;
    bool differs = job.permissions && (status.st_mode & 0777) != *job.permissions;
    if (differs && ::fchmod(file, *job.permissions) != 0) return errno;
    FileSink sink(file);
    if (!job.content(sink)) return sink.failure() ? sink.failure() : ECANCELED;
    if (job.durability == Durability::Rename) return flushByClosing(file);
    return retryOnInterrupt([&] { return ::fsync(file); }) == 0 ? 0 : errno;
}

/// A name in the staging directory that goes away again unless it was moved to its place.
class HiddenName {
  public:
    explicit HiddenName(const std::string& directory) : directory_(directory) {}
    HiddenName(const HiddenName&) = delete;
    HiddenName& operator=(const HiddenName&) = delete;
    ~HiddenName() {
        if (exists_) ::unlink(path_.c_str());
    }

    /// Calls `create(path)`, which must fail with EEXIST where the name is taken, with one name
    /// after the other until it answers anything else.
    template <class Create>
    bool create(Create tryCreate) {
        static std::atomic<std::uint64_t> counter = 0;
        do {
            path_ = directory_ + "/" + std::string(kHiddenPrefix) + std::to_string(::getpid()) +
                    "-" + std::to_string(counter++);
            exists_ = tryCreate(path_);
        } while (!exists_ && errno == EEXIST);
        return exists_;
    }

    int moveTo(const std::string& path) {
        if (std::rename(path_.c_str(), systemPath(path)) != 0) return errno;
        exists_ = false;
        return 0;
    }

  private:
    const std::string& directory_;
    std::string path_;
    bool exists_ = false;
};

/// None where a file without a name cannot be made or cannot be given one.
std::optional<int> publishNamelessFile(const Job& job) {
    FileDescriptor file = openFile(job.staging, O_TMPFILE | O_WRONLY, job.creationMode());
    if (!file) return std::nullopt;
    if (int failure = fill(file.get(), job)) return failure;
    std::string source = "/proc/self/fd/" + std::to_string(file.get());
    auto link = [&](const std::string& path) {
        return ::linkat(AT_FDCWD, source.c_str(), AT_FDCWD, systemPath(path), AT_SYMLINK_FOLLOW) ==
               0;
    };
    if (!job.permissions && link(job.path)) return 0;
    HiddenName name(job.staging);
    if (!name.create(link)) return std::nullopt;
    return name.moveTo(job.path);
}

int publishHiddenFile(const Job& job) {
    HiddenName name(job.staging);
    FileDescriptor file;
    bool created = name.create([&](const std::string& path) {
        file = openFile(path, O_CREAT | O_EXCL | O_WRONLY, job.creationMode());
        return static_cast<bool>(file);
    });
    if (!created) return errno;
    if (int failure = fill(file.get(), job)) return failure;
    return name.moveTo(job.path);
}

template <class Publish>
std::optional<Error> replace(const std::string& path, const ContentWriter& content,
                             Durability durability,
                             const std::optional<std::string>& stagingDirectory, Publish publish) {
    Job job{path, {}, content, durability, std::nullopt};
    if (auto refusal = examineTarget(job)) return refusal;
    job.staging = stagingDirectory.value_or(directoryOf(job.path));
    int failure = publish(job);
    if (failure == 0 && durability == Durability::Synced) {
        if (auto notSynced = syncDirectory(directoryOf(job.path))) failure = notSynced->code;
    }
    if (failure != 0) return describe(path, failure);
    return std::nullopt;
}

/// 0 where the name is none that a HiddenName gives.
pid_t processOf(std::string_view name) {
    if (!name.starts_with(kHiddenPrefix)) return 0;
    name.remove_prefix(kHiddenPrefix.size());
    pid_t process = 0;
    const auto [end, failure] = std::from_chars(name.begin(), name.end(), process);
    name.remove_prefix(static_cast<std::size_t>(end - name.begin()));
    const bool isOurs = failure == std::errc() && name.size() > 1 && name[0] == '-' &&
                        name.find_first_not_of("0123456789", 1) == name.npos;
    return isOurs ? process : 0;
}

bool isGone(pid_t process) {
    return process > 0 && ::kill(process, 0) != 0 && errno == ESRCH;
}

ContentWriter inOnePiece(std::span<const std::byte> content) {
    return [content](ByteSink& sink) { return sink.write(content); };
}

}  // namespace

std::optional<Error> replaceFile(const std::string& path, std::span<const std::byte> content,
                                 Durability durability,
                                 const std::optional<std::string>& stagingDirectory) {
    return replaceFileInPieces(path, inOnePiece(content), durability, stagingDirectory);
}

std::optional<Error> replaceFileInPieces(const std::string& path, const ContentWriter& content,
                                         Durability durability,
                                         const std::optional<std::string>& stagingDirectory) {
    return replace(path, content, durability, stagingDirectory, [](const Job& job) {
        // Whatever keeps a nameless file from its place, the ordinary way either gets there or
        // finds the reason.
        auto failure = publishNamelessFile(job);
        return failure ? *failure : publishHiddenFile(job);
    });
}

std::optional<Error> replaceFileThroughHiddenName(
    const std::string& path, std::span<const std::byte> content, Durability durability,
    const std::optional<std::string>& stagingDirectory) {
    return replace(path, inOnePiece(content), durability, stagingDirectory, publishHiddenFile);
}

void removeAbandonedFiles(const std::string& stagingDirectory) {
    const auto entries = listDirectory(stagingDirectory);
    if (!entries) return;
    const Instant latest = currentClock().now() - kLongestWriting;
    for (const auto& [name, creationTime] : *entries)
        if (creationTime < latest && isGone(processOf(name)))
            ::unlink((stagingDirectory + "/" + name).c_str());
}

}  // namespace corvane::platform
