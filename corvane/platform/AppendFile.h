// A file of lines that grows at its end and has one writer at a time among those who open it so.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/FileDescriptor.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// Held from creation or opening to the end of the object, or of the process, however it ends.
/// Movable; used by one thread at a time.
class AppendFile {
  public:
    /// A new file, readable by the user alone. A file that stands there already is an error
    /// (EEXIST); so is a file that somebody removes at that very moment (EAGAIN).
    static std::optional<AppendFile> create(const std::string& path, Error* error = nullptr);

    /// An existing regular file, to go on at its end. EAGAIN tells that somebody else holds it.
    static std::optional<AppendFile> open(const std::string& path, Error* error = nullptr);

    /// Removes the file, unless somebody holds it. Whether it is gone.
    static bool removeUnlessHeld(const std::string& path);

    /// REQUIRES: every line ends in a line break. Writes as many lines as there is room for, and
    /// tells how many bytes that were; of the first that fails nothing stays. `error` is set where
    /// that is not all. A line that a killed writer left unfinished is ended first.
    std::size_t appendLines(std::string_view lines, Error* error = nullptr);

    /// False once somebody removed the file: what is written now is lost with it.
    bool hasName() const;

    const std::string& path() const { return path_; }

  private:
    AppendFile(FileDescriptor file, std::string path)
        : file_(std::move(file)), path_(std::move(path)) {}
    static std::optional<AppendFile> opened(const std::string& path, int flags, Error* error);
    bool write(std::string_view bytes, std::size_t& written);
    void takeBack(std::size_t bytes);

    FileDescriptor file_;
    std::string path_;
    bool endsWithinLine_ = false;
};

}  // namespace corvane::platform
