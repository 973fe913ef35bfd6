#include "corvane/logging/EXLog.h"

#include "corvane/logging/Log.h"
#include "corvane/logging/Outputs.h"
#include "corvane/logging/RollingFileWriter.h"
#include "corvane/logging/SystemLogWriter.h"
#include "corvane/logging/TerminalWriter.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/LogDirectory.h"
#include "corvane/platform/ProgramName.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace corvane {

using logging::Outputs;

namespace {

constexpr double kDay = 86400;
constexpr std::int64_t kFilesOfADay = 7;

/// Names of files tell seconds.
constexpr double kShortestAge = 1;

double readableFrequency(double seconds) {
    return seconds > 0 ? std::max(seconds, kShortestAge) : std::numeric_limits<double>::infinity();
}

}  // namespace

EXLog& EXLog::sharedLog() {
    static EXLog log;
    return log;
}

logging::LevelMask EXLog::logLevel() const {
    return logging::detail::levels;
}

void EXLog::setLogLevel(logging::LevelMask levels) {
    logging::detail::levels = levels;
}

void EXLog::addDefaultLoggers() {
    Outputs::shared().add(Outputs::Kind::SystemLog,
                          [] { return std::make_unique<logging::SystemLogWriter>(); });
}

void EXLog::addTerminalLogger() {
    Outputs::shared().add(Outputs::Kind::Terminal,
                          [] { return std::make_unique<logging::TerminalWriter>(); });
}

void EXLog::addFileLogger() {
    addFileLoggerWithRollingFrequency(kDay, kFilesOfADay);
}

void EXLog::addFileLoggerWithRollingFrequency(double seconds, std::int64_t maxNumberOfLogFiles) {
    const auto directory = platform::logDirectoryURL();
    const auto path = directory ? directory->path() : std::nullopt;
    if (!path) {
        platform::currentConsole().writeLine("ERROR: there is no directory for log files");
        return;
    }
    const auto most = static_cast<std::size_t>(std::max<std::int64_t>(maxNumberOfLogFiles, 0));
    const logging::LogFiles files(*path, platform::programName(), readableFrequency(seconds), most);
    Outputs::shared().addFile(*directory,
                              [&] { return std::make_unique<logging::RollingFileWriter>(files); });
}

std::optional<platform::URL> EXLog::directoryURLOfDefaultFileLogger() const {
    return Outputs::shared().fileDirectory();
}

void EXLog::removeAllLoggers() {
    Outputs::shared().removeAll();
}

void EXLog::flush() {
    Outputs::shared().flush();
}

}  // namespace corvane
