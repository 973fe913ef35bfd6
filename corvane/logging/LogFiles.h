// The log files of one program in one directory: which they are, and which of them is written next.
// Several processes may share a directory: each writes a file of its own.
#pragma once

#include "corvane/platform/AppendFile.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/Instant.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::logging {

/// Told apart by the second of creation, in UTC, and by a number where that is not enough. Ordered
/// by age, oldest first.
///
///     LogFileName{instant, 1}.text("corvane")  // "corvane 2026-11-21 09-15-00Z.log"
///     LogFileName{instant, 2}.text("corvane")  // "corvane 2026-11-21 09-15-00Z 2.log"
struct LogFileName {
    std::chrono::sys_seconds creation;
    int number = 1;

    std::string text(std::string_view program) const;

    /// None for every name that text() does not give.
    static std::optional<LogFileName> parse(std::string_view program, std::string_view name);

    friend auto operator<=>(const LogFileName&, const LogFileName&) = default;
};

class LogFiles {
  public:
    struct OpenFile {
        platform::AppendFile file;
        std::chrono::sys_seconds creation;
    };

    /// `mostSeconds` is the age at which a file is full; `mostFiles` how many files there may be,
    /// with the one that is written. Infinite, or 0: as many as there are.
    LogFiles(std::string directory, std::string program, double mostSeconds, std::size_t mostFiles);

    /// Whether a file of that age is to be closed. One that seems to come from a distant future is
    /// too: the clock was set back.
    bool isFull(std::chrono::sys_seconds creation, platform::Instant now) const;

    /// The youngest file that is not full and that no other process writes, else a new one. The
    /// directory is made where it is missing, for the user alone. Then the oldest files beyond the
    /// limit are removed, except for those that others write.
    std::optional<OpenFile> open(platform::Instant now, platform::Error* error) const;

  private:
    std::vector<LogFileName> existing() const;
    std::string path(const LogFileName& name) const;
    std::optional<OpenFile> continued(platform::Instant now) const;
    std::optional<OpenFile> created(platform::Instant now, platform::Error* error) const;
    void removeOldest() const;

    std::string directory_, program_;
    double mostSeconds_;
    std::size_t mostFiles_;
};

}  // namespace corvane::logging
