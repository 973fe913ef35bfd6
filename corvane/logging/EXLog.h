// The application's front to the log: its level and its outputs. What is logged, and how, is in
// Log.h. Any thread.
#pragma once

#include "corvane/logging/Level.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <optional>

namespace corvane {

/// Without an output nothing is written and no thread runs. Each output has a queue and a thread of
/// its own. What was logged is written before the process exits, and before SIGTERM, SIGINT or
/// SIGHUP ends it, unless the application handles these itself; a crash or _exit() may cost the
/// last messages. A process that forks adds its outputs after that: the child begins with none.
///
///     EXLog::sharedLog().addFileLogger();
///     logging::log(logging::Level::Information, "publish: {} tasks", 35);
class EXLog {
  public:
    static EXLog& sharedLog();

    /// Which messages are written; of the whole process. 7 (errors, warnings and information) until
    /// it is set.
    logging::LevelMask logLevel() const;
    void setLogLevel(logging::LevelMask levels);

    /// Adds the system log. There is one for the process, and adding it again changes nothing.
    void addDefaultLoggers();

    /// Adds standard error, in colours where that is a terminal and NO_COLOR is not set. Adding it
    /// again changes nothing.
    void addTerminalLogger();

    /// Adds log files, one a day, of which seven are kept.
    void addFileLogger();

    /// Adds log files in the directory of platform::logDirectoryURL(): a new one is begun when the
    /// last is `seconds` old, and the oldest are removed when there are more than
    /// `maxNumberOfLogFiles`, the one that is written included.
    ///
    /// A younger file of an earlier run is continued. Seconds of 0 or less, and those that are no
    /// number, never begin a new one; anything between 0 and 1 is 1. A number of 0 or less removes
    /// none. Each process writes a file of its own, and none removes what another one writes, so
    /// that many at once may have more files than this.
    ///
    /// A disk that is full or a directory that cannot be written is reported on the console once,
    /// until it can be written again.
    void addFileLoggerWithRollingFrequency(double seconds, std::int64_t maxNumberOfLogFiles);

    /// The log directory of the file logger that was added first; none where there is none.
    std::optional<platform::URL> directoryURLOfDefaultFileLogger() const;

    /// Writes what was logged, and ends all outputs with their threads.
    void removeAllLoggers();

    /// Returns when everything logged before it was handed to the system. Not needed at the end.
    void flush();

  private:
    EXLog() = default;
};

}  // namespace corvane
