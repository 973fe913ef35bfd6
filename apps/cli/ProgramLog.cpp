#include "apps/cli/ProgramLog.h"

#include "corvane/logging/EXLog.h"
#include "corvane/logging/Log.h"
#include "corvane/platform/Clock.h"
#include "corvane/preferences/HGCorvanePreferences.h"

#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <cstdio>
#include <utility>

namespace corvane::cli {

using logging::Level;

ProgramLog::ProgramLog(const Options& options, std::string command)
    : command_(std::move(command)),
      start_(platform::currentClock().now()),
      options_(options),
      // The program's own lines begin with its name, and all of them warn.
      console_(platform::currentConsole(),
               options.verbose ? logging::kNoLevel : logging::kUpToWarning, Level::Warning) {
    if (options.file || options.verbose) {
        const auto levels = HGCorvanePreferences::sharedPreferences().logLevel();
        EXLog::sharedLog().setLogLevel(static_cast<logging::LevelMask>(levels));
    }
    if (options.file) EXLog::sharedLog().addFileLogger();
    if (options.verbose) EXLog::sharedLog().addTerminalLogger();
}

ProgramLog::~ProgramLog() {
    if (options_.file || options_.verbose) EXLog::sharedLog().removeAllLoggers();
}

void ProgramLog::succeeded() const {
    const auto time =
        std::chrono::floor<std::chrono::milliseconds>(platform::currentClock().now() - start_);
    logging::log(Level::Information, "{}: done in {}.{:03} seconds", command_, time.count() / 1000,
                 time.count() % 1000);
}

void ProgramLog::failed(const std::string& reason) const {
    logging::log(Level::Error, "{}: {}", command_, reason);
    const bool isShown = options_.verbose && logging::isLogged(Level::Error);
    if (!isShown) fmt::print(stderr, "corvane: {}\n", onOneLine(reason));
}

}  // namespace corvane::cli
