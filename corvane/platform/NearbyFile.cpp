#include "corvane/platform/NearbyFile.h"

#include "corvane/platform/FileDescriptor.h"

#include <sys/stat.h>

#include <deque>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <set>
#include <system_error>

namespace corvane::platform {

namespace {

constexpr int kMostEntries = 20'000;

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

class Search {
  public:
    explicit Search(const FileIdentity& file) : file_(file) {}

    bool isOver() const { return found_ || entriesLeft_ <= 0; }
    const std::optional<std::string>& found() const { return found_; }

    /// Looks at the directory and below, the nearest first. False where it is not on the file
    /// system of the first one.
    bool searchFrom(const std::string& start) {
        struct stat status {};
        if (::stat(start.c_str(), &status) != 0) return true;
        if (!device_) device_ = status.st_dev;
        if (status.st_dev != *device_) return false;
        std::deque<std::string> directories{start};
        while (!directories.empty() && !isOver()) {
            searchIn(directories.front(), directories);
            directories.pop_front();
        }
        return true;
    }

  private:
    /// Null for what is no directory to be entered. Looked at before it is opened, because opening
    /// may mount a file system.
    Directory open(const std::string& path) {
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0) return nullptr;
        if (!S_ISDIR(status.st_mode) || status.st_dev != *device_) return nullptr;
        if (!seen_.insert(status.st_ino).second) return nullptr;
        FileDescriptor file = openFile(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
        Directory directory(file ? ::fdopendir(file.get()) : nullptr);
        if (directory) file.release();
        return directory;
    }

    void searchIn(const std::string& path, std::deque<std::string>& directories) {
        Directory directory = open(path);
        if (!directory) return;
        while (const dirent* entry = ::readdir(directory.get())) {
            const std::string_view name = entry->d_name;
            if (name == "." || name == "..") continue;
            if (--entriesLeft_ < 0) return;
            const bool isDirectory = entry->d_type == DT_DIR || entry->d_type == DT_UNKNOWN;
            if (entry->d_ino != file_.inode && !isDirectory) continue;
            const std::string place = std::string(path == "/" ? "" : path).append("/").append(name);
            if (entry->d_ino == file_.inode && isWanted(place)) {
                found_ = place;
                return;
            }
            if (isDirectory) directories.push_back(place);
        }
    }

    bool isWanted(const std::string& place) const {
        const auto identity = fileIdentity(place);
        return identity && isSameFile(*identity, file_);
    }

    const FileIdentity& file_;
    std::optional<dev_t> device_;
    std::set<ino_t> seen_;
    int entriesLeft_ = kMostEntries;
    std::optional<std::string> found_;
};

}  // namespace

std::optional<std::string> findNearby(const std::string& formerPath, const FileIdentity& file) {
    std::filesystem::path directory = std::filesystem::path(formerPath).parent_path();
    std::error_code failure;
    while (!std::filesystem::is_directory(directory, failure) && directory.has_relative_path())
        directory = directory.parent_path();
    directory = std::filesystem::canonical(directory, failure);
    if (failure) return std::nullopt;
    Search search(file);
    while (search.searchFrom(directory.native()) && !search.isOver()) {
        if (!directory.has_relative_path()) break;
        directory = directory.parent_path();
    }
    return search.found();
}

}  // namespace corvane::platform
