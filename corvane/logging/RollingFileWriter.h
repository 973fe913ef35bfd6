// Writes messages into files that are closed at a certain age, and keeps so many of them.
#pragma once

#include "corvane/logging/LineFormat.h"
#include "corvane/logging/LogFiles.h"
#include "corvane/logging/Writer.h"

#include <cstddef>
#include <optional>
#include <string>

namespace corvane::logging {

/// A file is opened with the first message, so that a program with nothing to say leaves none. Ages
/// are counted by the messages' own times.
///
/// Where the disk is full or the directory cannot be written, the console is told once, the oldest
/// 1 MiB of lines is kept, and what comes after it is counted. Each flush tries again; when it
/// succeeds, the kept lines are written, and after them one that tells how many were lost.
class RollingFileWriter final : public Writer {
  public:
    explicit RollingFileWriter(LogFiles files)
        : files_(std::move(files)), format_(LineFormat::Style::File) {}

    void write(const Message& message) override;
    void flush() override;

  private:
    bool hasFile(platform::Error& error);
    bool writePending(platform::Error& error);
    void tellWhatWasLost();

    LogFiles files_;
    LineFormat format_;
    std::optional<LogFiles::OpenFile> open_;
    platform::Instant latest_{};  ///< of the last message
    std::string pending_;         ///< whole lines
    std::size_t lost_ = 0;
    bool failing_ = false;
};

}  // namespace corvane::logging
