// A fresh directory for one test, removed with all its content at the end.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace corvane::tests {

class TemporaryDirectory {
  public:
    TemporaryDirectory() {
        path_ = (std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").native();
        if (!::mkdtemp(path_.data())) throw std::runtime_error("no temporary directory");
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::string& path() const { return path_; }
    std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

    std::string write(std::string_view name, std::string_view content) const {
        std::ofstream(*this / name, std::ios::binary) << content;
        return *this / name;
    }

    /// Every entry below the directory with its content; directories and links have "/" and "@".
    std::map<std::string, std::string> content() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path_)) {
            found[entry.path().native().substr(path_.size() + 1)] = describe(entry);
        }
        return found;
    }

  private:
    static std::string describe(const std::filesystem::directory_entry& entry) {
        if (entry.is_symlink()) return "@";
        if (entry.is_directory()) return "/";
        if (!entry.is_regular_file()) return "?";
        std::ifstream file(entry.path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string path_;
};

}  // namespace corvane::tests
