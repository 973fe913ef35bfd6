// All outputs of the process. Not for applications: these add their outputs through EXLog.
#pragma once

#include "corvane/logging/Gate.h"
#include "corvane/logging/Output.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/URL.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::logging {

/// Lives as long as the process, so that objects which end after everything else can still log. A
/// forked child begins with none: the threads are its parent's.
///
/// With the first output it arranges that nothing is lost when the process exits or is ended by
/// SIGTERM, SIGINT or SIGHUP: what was logged before is written first. A thread that logs after
/// such a signal waits for the end. After exit() has begun, each message is written before logging
/// it returns.
class Outputs {
  public:
    enum class Kind { SystemLog, Terminal, File };
    using MakeWriter = std::function<std::unique_ptr<Writer>()>;

    static Outputs& shared();

    /// There is at most one of any kind but File; another one is not added. Reported on the console
    /// where the system has no thread for it.
    void add(Kind kind, const MakeWriter& makeWriter);

    /// The directory of the first file output; none while there is no such output.
    std::optional<platform::URL> fileDirectory() const;
    void addFile(const platform::URL& directory, const MakeWriter& makeWriter);

    void removeAll();

    /// On the thread of an output this and flush() do nothing.
    void post(platform::Instant instant, Level level, std::string_view text);
    void flush();

  private:
    Outputs() = default;
    bool addIfPossible(Kind kind, const MakeWriter& makeWriter);
    void flushAll();

    struct Entry {
        Kind kind;
        std::unique_ptr<Output> output;
    };

    mutable std::mutex changing_;  ///< for whoever changes what is below, with the gate closed
    Gate gate_;
    std::vector<Entry> entries_;
    std::optional<platform::URL> fileDirectory_;
    std::atomic<bool> exiting_{false};

    static void atExit();
    static void beforeTermination();
    static void inForkedChild();
    static void watchTheEnd();
    static std::atomic<Outputs*> current;
};

}  // namespace corvane::logging
